// A host in C++17: walks a file and prints how many records it holds.
#include <qvslm_walk.h>

#include <iostream>
#include <vector>

int main(int argc, char** argv) {
  const char* const path = argc > 1 ? argv[1] : "no such file";
  std::vector<double> context(QV_GetBufferSize() / sizeof(double));  // aligned to 8 bytes
  std::vector<std::uint32_t> record(QV_OUTPUT_RECORD_SIZE / sizeof(std::uint32_t));
  std::cout << "translation " << QV_TranVersionEx() << '\n';

  QvRecordCensus census;
  QvWalk walk;
  long count = 0;
  QvWalkOpen(&walk, path, context.data(), record.data(), &census);
  while (QvWalkNext(&walk) != 0) count += walk.Whole;
  QvWalkClose(&walk);
  std::cout << count << '\n';
  if (QvWalkWasWhole(&walk) == 0) std::cout << QvWalkWhy(&walk) << '\n';
}
