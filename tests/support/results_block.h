// 'R' blocks of general models, one in a file, and their records.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "support/block_lines.h"
#include "support/record_image.h"
#include "support/translation.h"

namespace test {

// The record of a block that fills nothing.
inline RecordImage EmptyResults(int model = 486) {
  return RecordImage(728).U16(0, 8).U16(392, model);
}

// The record of the only block of a file, and that of a file of model 486 with the given lines.
inline Step ResultsStep(samples::DataFile file) {
  Translation const run(file.EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{8, 15}));
  EXPECT_EQ(run.steps[0].status, QV_OK);
  return run.steps[0];
}

inline Step ResultsStep(const std::vector<Setting>& lines) {
  samples::DataFile file = General();
  return ResultsStep(AddResults(file, lines));
}

inline QvResults Results(const std::vector<Setting>& lines) {
  return Translation::Copy<QvResults>(ResultsStep(lines));
}

}  // namespace test
