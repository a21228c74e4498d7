// What every target does before its first input.

#include <cstdlib>
#include <ctime>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

// Times are read in one zone, with a daylight change, wherever the target runs. The rule stands in
// the variable itself, so no zone files are needed.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();
  return 0;
}
