// write_bulk PATH BYTES: writes a mixed file of about so many bytes.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "bulk_files.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("write_bulk PATH BYTES\n", stderr);
    return 2;
  }
  try {
    samples::WriteMixedFile(argv[1], std::atoll(argv[2]));
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "write_bulk: %s\n", fault.what());
    return 1;
  }
  return 0;
}
