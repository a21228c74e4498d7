// Numbers and lengths of time in text. No export hands these out one by one.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "fields/number_text.h"
#include "support/guarded_buffer.h"

namespace {

using test::GuardedBuffer;

// A text whose terminator is the last byte that can be read.
class TextAtTheEdge {
 public:
  explicit TextAtTheEdge(const char* text) : buffer_(std::strlen(text) + 1) {
    std::memcpy(buffer_.Data(), text, buffer_.Size());
  }
  const char* Get() const { return reinterpret_cast<const char*>(buffer_.Data()); }

 private:
  GuardedBuffer buffer_;
};

struct NumberRow {
  const char* text;
  int status;
  double number;
};

TEST(ParseDouble, PlainDecimalNotation) {
  constexpr NumberRow kRows[] = {
      {"0", 0, 0.0},
      {"7", 0, 7.0},
      {"007", 0, 7.0},
      {"123", 0, 123.0},
      {"65.5", 0, 65.5},
      {"5.", 0, 5.0},
      {".5", 0, 0.5},
      {"0.125", 0, 0.125},
      {"123.456", 0, 123.456},
      {"1.50", 0, 1.5},
      {"+2", 0, 2.0},
      {"-2", 0, -2.0},
      {"-.25", 0, -0.25},
      {" - 1.50x", 0, -1.5},
      {"\t +\t 3.5", 0, 3.5},
      {"4294967296", 0, 4294967296.0},
      // What follows the number is ignored.
      {"12abc", 0, 12.0},
      {"12 34", 0, 12.0},
      {"1,5", 0, 1.0},
      {"1.2.3", 0, 1.2},
      {"1.5-", 0, 1.5},
      {"2. 5", 0, 2.0},
      // No exponents, no other bases.
      {"1e5", 0, 1.0},
      {"1.5e2", 0, 1.5},
      {"0x10", 0, 0.0},
      // A point alone is zero.
      {".", 0, 0.0},
      {"-.", 0, 0.0},
      {".x", 0, 0.0},
      // No number.
      {"", -1, 0.0},
      {"   ", -1, 0.0},
      {"abc", -1, 0.0},
      {"+", -1, 0.0},
      {"- ", -1, 0.0},
      {"--1", -1, 0.0},
      {"+-1", -1, 0.0},
      {"\n1", -1, 0.0},
      {"inf", -1, 0.0},
      {"nan", -1, 0.0},
      {",5", -1, 0.0},
  };
  for (const NumberRow& row : kRows) {
    double number = 99.0;
    EXPECT_EQ(qvslm::ParseDouble(TextAtTheEdge(row.text).Get(), &number), row.status)
        << '\'' << row.text << '\'';
    EXPECT_EQ(number, row.number) << '\'' << row.text << '\'';
  }
}

TEST(ParseDouble, AVeryLongNumberIsStillANumber) {
  double number = 99.0;
  EXPECT_EQ(qvslm::ParseDouble(std::string(400, '9').c_str(), &number), 0);
  EXPECT_TRUE(std::isinf(number));
}

struct SpanRow {
  const char* text;
  double seconds;
};

TEST(ParseHms, BothForms) {
  constexpr SpanRow kRows[] = {
      // A point in fewer than nine characters: minutes and seconds.
      {"1:30.5", 90.5},
      {"12:34.56", 754.56},
      {"0:00.25", 0.25},
      {"1:.5", 60.5},
      {"1.5:2.5", 92.5},
      {"1:2:3.5", 62.0},  // the seconds are what stands behind the first colon
      // Else hours, minutes and seconds.
      {"01:00:10", 3610.0},
      {"1:2:3", 3723.0},
      {"100:00:00", 360000.0},
      {"1:02:03.5", 3723.5},  // nine characters
      {"01:02:03.25", 3723.25},
      {"01:-2:03", 3483.0},
      {"00:00:00", 0.0},
      {"01:00:10 h", 3610.0},
      // What is missing makes it zero.
      {"", 0.0},
      {"90", 0.0},
      {"90.5", 0.0},
      {"12:30", 0.0},
      {"123456.78", 0.0},
      {"1234:5678.9", 0.0},
      {"x:30.5", 0.0},
      {":30.5", 0.0},
      {"1:x.5", 0.0},
      {"::", 0.0},
      {"x:10:10", 0.0},
      {"1::5", 0.0},
      {"1:2:", 0.0},
      {"1:2:x", 0.0},
  };
  for (const SpanRow& row : kRows) {
    EXPECT_DOUBLE_EQ(qvslm::ParseHms(TextAtTheEdge(row.text).Get()), row.seconds)
        << '\'' << row.text << '\'';
  }
}

TEST(FormatHms, HoursMinutesSecondsAndTenths) {
  struct Row {
    float seconds;
    const char* text;
  };
  constexpr Row kRows[] = {
      {0.0f, "00:00:00.0"},      {9.5f, "00:00:09.5"},       {59.96f, "00:00:60.0"},
      {60.0f, "00:01:00.0"},     {3599.0f, "00:59:59.0"},    {3661.5f, "01:01:01.5"},
      {36000.0f, "10:00:00.0"},  {86399.5f, "23:59:59.5"},   {86400.0f, "24:00:00.0"},
      {90061.25f, "25:01:01.2"}, {360000.0f, "100:00:00.0"}, {0.75f, "00:00:00.8"},
  };
  for (const Row& row : kRows) {
    char text[64];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(qvslm::FormatHms(row.seconds, text), 0);
    EXPECT_STREQ(text, row.text);
  }
}

}  // namespace
