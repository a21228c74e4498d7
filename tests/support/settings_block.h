// 'Q' blocks, one in a file, and their records.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "support/record_image.h"
#include "support/translation.h"

namespace test {

// The record of a block that fills nothing.
inline RecordImage EmptySettings(int model = 486) {
  return RecordImage(688).U16(0, 7).U16(10, model);
}

// The record of the only block of a file.
inline Step SettingsStep(samples::DataFile file) {
  Translation const run(file.EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_EQ(run.steps[0].status, QV_OK);
  return run.steps[0];
}

inline QvSettings Settings(const samples::DataFile& file) {
  return Translation::Copy<QvSettings>(SettingsStep(file));
}

}  // namespace test
