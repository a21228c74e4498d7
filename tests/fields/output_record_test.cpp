// How records are begun in the host's buffer: what is cleared, and what they take from the context.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

// One of each of the records that are begun alike. The band records are those of the first items.
DataFile ItemsOfZeros(DataFile file) {
  for (int const type : {1, 2, 3, 4, 5}) file.Item(type, Body().Fill(600));
  for (int const type : {129, 130, 131}) file.Item(type, Body().U16(1).Fill(600));
  for (int const type : {132, int{'C'}, int{'S'}}) file.Item(type, Body().Fill(600));
  return file.EndOfData();
}

// Of the two intervals this is the one of these files.
std::size_t SizeOf(int code) {
  return code == QV_INTERVAL ? sizeof(QvInterval) : QvRecordSize(static_cast<std::uint16_t>(code));
}

// Whatever the host's buffer held, the record is the same, and behind it all is as it was.
TEST(OutputRecord, IsClearedToItsSizeAndNoFurther) {
  for (bool const general : {true, false}) {
    TempFile const file(Startable(ItemsOfZeros(general ? General() : Model431("iSLM"))));
    Translation const zeros(file.Path(), {.recordFill = 0});
    Translation const ones(file.Path(), {.recordFill = 0xFF});
    ASSERT_EQ(zeros.Codes(), ones.Codes());
    ASSERT_EQ(zeros.steps.size(), 12U);
    for (std::size_t i = 0; i < zeros.steps.size(); ++i) {
      const std::vector<std::uint8_t>& first = zeros.steps[i].record;
      const std::vector<std::uint8_t>& second = ones.steps[i].record;
      std::size_t const size = SizeOf(zeros.steps[i].Code());
      auto const end = static_cast<std::ptrdiff_t>(size);
      EXPECT_TRUE(std::equal(first.begin(), first.begin() + end, second.begin())) << i;
      EXPECT_EQ(std::vector<std::uint8_t>(second.begin() + end, second.end()),
                std::vector<std::uint8_t>(second.size() - size, 0xFF))
          << i;
    }
  }
}

TEST(OutputRecord, HasCodeSiteAndModel) {
  Translation const run(General().Q(157, "513").Item(5, MarkAt({2024, 6, 21})).EndOfData());
  auto const mark = run.As<QvLevelMark>(1);
  EXPECT_EQ(mark.RecordType, 5);
  EXPECT_EQ(mark.SiteNumber, 513);
  EXPECT_EQ(mark.SettingFormat, 0);
  EXPECT_EQ(mark.Model, 486);
  Translation const run431(Model431("iSLM").Item(5, MarkAt({2024, 6, 21})).EndOfData());
  EXPECT_EQ(run431.As<QvLevelMark>(0).Model, 431);
  EXPECT_EQ(run431.As<QvLevelMark>(0).SiteNumber, 0);
}

}  // namespace
}  // namespace test
