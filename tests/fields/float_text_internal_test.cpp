// Floating-point and whole numbers in text, in all forms that the C library reads. No export hands
// them out as they are read.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "fields/number_text.h"
#include "fields/whole_number.h"

namespace {

using qvslm::FloatNumber;
using qvslm::WholeNumber;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(FloatNumber, DecimalForms) {
  struct {
    const char* text;
    double number;
  } constexpr kRows[] = {
      {"1.5", 1.5}, {" \t\n1.5", 1.5}, {"+1.5", 1.5},      {"-1.5", -1.5},   {".5", 0.5},
      {"5.", 5.0},  {"1.5dB", 1.5},    {"1e2", 100.0},     {"1E+2", 100.0},  {"1e-2", 0.01},
      {"1e", 1.0},  {"1e+", 1.0},      {"1,5", 1.0},       {"", 0.0},        {"-", 0.0},
      {"+-1", 0.0}, {"--1", 0.0},      {"dB", 0.0},        {".", 0.0},       {"e5", 0.0},
      {"0x", 0.0},  {"1 e2", 1.0},     {"4e-324", 5e-324}, {"1e308", 1e308},
  };
  for (const auto& row : kRows) EXPECT_EQ(FloatNumber(row.text), row.number) << row.text;
}

TEST(FloatNumber, HexadecimalForms) {
  struct {
    const char* text;
    double number;
  } constexpr kRows[] = {
      {"0x10", 16.0},  {"0X1F", 31.0}, {"-0xa", -10.0}, {"0x1p4", 16.0},
      {"0x1P-1", 0.5}, {"0x.8", 0.5},  {"0x1.8", 1.5},  {"0x1p", 1.0},
      {"0xg", 0.0},    {"0xG", 0.0},   {"0x@", 0.0},    {"0x.", 0.0},
      {"0x.g", 0.0},   {"0x-1", 0.0},  {"00x10", 0.0},  {"0xffdB", 0xffd * 16.0 + 0xB},
  };
  for (const auto& row : kRows) EXPECT_EQ(FloatNumber(row.text), row.number) << row.text;
}

TEST(FloatNumber, NamesOfNoNumbers) {
  EXPECT_EQ(FloatNumber("inf"), kInfinity);
  EXPECT_EQ(FloatNumber("-INF"), -kInfinity);
  EXPECT_EQ(FloatNumber("Infinity"), kInfinity);
  EXPECT_EQ(FloatNumber("in"), 0.0);
  EXPECT_TRUE(std::isnan(FloatNumber("nan")));
  EXPECT_TRUE(std::isnan(FloatNumber("-NaN")));
}

// Beyond what a double holds a number is infinite, or 0.
TEST(FloatNumber, TooLargeOrTooSmall) {
  std::string const manyDigits(400, '1');
  std::string const manyZeros(400, '0');
  struct {
    std::string text;
    double number;
  } const rows[] = {
      {"1e999", kInfinity},
      {"-1e999", -kInfinity},
      {"1e309", kInfinity},
      {"1e99999999999999999999", kInfinity},
      {manyDigits, kInfinity},
      {manyDigits + ".5e-1", kInfinity},
      {"0.001e999", kInfinity},
      {"0x1p9999", kInfinity},
      {"-0x1P99999999999999999999", -kInfinity},
      {"0x.01p1100", kInfinity},
      {"1e-999", 0.0},
      {"1e-99999999999999999999", 0.0},
      {"0." + manyZeros + "1", 0.0},
      {"0." + manyZeros + "1e-5", 0.0},
      {"100e-999", 0.0},
      {"0x1p-9999", 0.0},
      {"0x.01p-1100", 0.0},
      {"0e999", 0.0},
      {"0." + manyZeros + "1e401", 1.0},
  };
  for (const auto& row : rows) EXPECT_EQ(FloatNumber(row.text), row.number) << row.text;
  EXPECT_TRUE(std::signbit(FloatNumber("-1e-999")));
}

// Held at the ends of 64 bits, of which the low 32 are taken.
TEST(WholeNumber, BeyondItsBits) {
  struct {
    const char* text;
    int number;
  } constexpr kRows[] = {
      {"2147483647", 2147483647},
      {"2147483648", -2147483647 - 1},
      {"4294967297", 1},
      {"-4294967297", -1},
      {"9223372036854775807", -1},
      {"9223372036854775808", -1},
      {"9999999999999999999", -1},
      {"99999999999999999999", -1},
      {"-9223372036854775807", 1},
      {"-9223372036854775808", 0},
      {"-9999999999999999999", 0},
      {"-99999999999999999999", 0},
      {"00000000000000000000000000000012", 12},
  };
  for (const auto& row : kRows) EXPECT_EQ(WholeNumber(row.text), row.number) << row.text;
}

TEST(TruncateToI32, OfWhatNoI32Holds) {
  using qvslm::TruncateToI32;
  EXPECT_EQ(TruncateToI32(2147483647.0), 2147483647);
  EXPECT_EQ(TruncateToI32(2147483648.0), 2147483647);
  EXPECT_EQ(TruncateToI32(kInfinity), 2147483647);
  EXPECT_EQ(TruncateToI32(-2147483648.5), -2147483647 - 1);
  EXPECT_EQ(TruncateToI32(-1e300), -2147483647 - 1);
  EXPECT_EQ(TruncateToI32(-1.9), -1);
  EXPECT_EQ(TruncateToI32(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
