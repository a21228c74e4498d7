// What most tests of qvslm read: files of model 486 with level marks.
#pragma once

#include "support/stamped_items.h"
#include "support/translation.h"

namespace test {

// Of 21 June 2024, 12:30, with status 32.
inline samples::Body Mark(double level = 60) {
  return MarkAt({2024, 6, 21, 12, 30}, level, 32);
}

// Of the same day, 12:31:05, with detail 3.
inline samples::Body Event(int code) {
  return samples::Body().U8(0).Date(21, 6, 2024).Time(12, 31, 5).U8(code + 3).U16(515).U24(70000);
}

// Without an end of data. 300 are more than the 2500 bytes that the start wants to see.
inline samples::DataFile Marks(int count = 300) {
  samples::DataFile file = General();
  for (int i = 0; i < count; ++i) file.Item(5, Mark());
  return file;
}

}  // namespace test
