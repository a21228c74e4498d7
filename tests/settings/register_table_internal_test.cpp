// What proves the tables of registers when they are compiled. Internal: the tables themselves are
// sound, so that no export shows an unsound one refused.
#include <gtest/gtest.h>

#include <vector>

#include "settings/register_table.h"

namespace {

using namespace qvslm;

constexpr FieldPlace Wide(u16 size) {
  return {0, size};
}

bool IsSettings(const std::vector<Register>& rows) {
  return IsSettingsTable(rows);
}
bool IsResults(const std::vector<Register>& rows) {
  return IsResultsTable(rows);
}

TEST(RegisterTable, NumbersAscend) {
  EXPECT_TRUE(IsSettings({}));
  EXPECT_TRUE(IsSettings({{3, Wide(2), Form::Int16}, {4, Wide(2), Form::Int16}}));
  EXPECT_FALSE(IsSettings({{4, Wide(2), Form::Int16}, {3, Wide(2), Form::Int16}}));
  EXPECT_FALSE(IsSettings({{4, Wide(2), Form::Int16}, {4, Wide(2), Form::Int16}}));
}

TEST(RegisterTable, FormsAreThoseOfTheBlock) {
  EXPECT_TRUE(IsSettings({{1, Wide(4), Form::Real}}));
  EXPECT_TRUE(IsResults({{1, Wide(4), Form::Real}}));
  EXPECT_TRUE(IsSettings({{1, Wide(4), Form::DayName}}));
  EXPECT_FALSE(IsResults({{1, Wide(4), Form::DayName}}));
  EXPECT_TRUE(IsSettings({{1, Wide(2), Form::SamplePeriod}}));
  EXPECT_FALSE(IsResults({{1, Wide(2), Form::SamplePeriod}}));
  EXPECT_FALSE(IsSettings({{1, Wide(4), Form::Int32}}));
  EXPECT_TRUE(IsResults({{1, Wide(4), Form::Int32}}));
  EXPECT_FALSE(IsSettings({{1, Wide(4), Form::ScaledNumber}}));
  EXPECT_TRUE(IsResults({{1, Wide(4), Form::ScaledNumber}}));
}

TEST(RegisterTable, WidthsThatAFormFixes) {
  struct {
    Form form;
    u16 width;
  } const rows[] = {
      {Form::Int16, 2},
      {Form::Int16Newer, 2},
      {Form::SamplePeriod, 2},
      {Form::CompassPoint, 2},
      {Form::CompassPointAnew, 2},
      {Form::Int32, 4},
      {Form::Stamp, 4},
      {Form::LetterTest, 4},
      {Form::DayName, 4},
      {Form::Real, 4},
      {Form::Hms, 4},
      {Form::Atof, 4},
      {Form::LastNumber, 4},
      {Form::ScaledNumber, 4},
      {Form::Threshold, 4},
      {Form::ColumnBytes, 8},
      {Form::EightIntegers, 32},
      {Form::SevenNames, 154},
      {Form::BandList, 184},
      {Form::CountedBandList, 184},
      {Form::BandReset, 184},
  };
  for (const auto& row : rows) {
    for (u16 width = 0; width < 200; ++width) {
      EXPECT_EQ(FitsWidth(row.form, width), width == row.width)
          << static_cast<int>(row.form) << " " << width;
    }
  }
}

TEST(RegisterTable, WidthsOfListsAndTexts) {
  for (Form const form :
       {Form::RealList, Form::AtofList, Form::StampList, Form::IndexedReal, Form::IndexedInteger}) {
    EXPECT_FALSE(FitsWidth(form, 0));
    EXPECT_TRUE(FitsWidth(form, 4));
    EXPECT_FALSE(FitsWidth(form, 6));
    EXPECT_TRUE(FitsWidth(form, 120));
  }
  for (Form const form :
       {Form::Text, Form::BlankSkippedText, Form::ClockText, Form::DateText, Form::ShortDate}) {
    EXPECT_FALSE(FitsWidth(form, 1));  // the NUL alone
    EXPECT_TRUE(FitsWidth(form, 2));
  }
}

}  // namespace
