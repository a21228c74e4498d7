// Floating-point numbers from text and back, against the standard library's over many texts: what
// the library reads and writes by its own arithmetic is what std::from_chars and std::to_chars do.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "fields/float_text.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  std::uint64_t Bits() { return engine_(); }
  int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
  double Number() {
    while (true) {
      auto const number = std::bit_cast<double>(Bits() & ~(std::uint64_t{1} << 63));
      if (number <= std::numeric_limits<double>::max()) return number;
    }
  }

 private:
  std::mt19937_64 engine_;
};

// Without an exponent's sense of what is too large or too small: the rows say it.
double Standard(const std::string& text, std::chars_format format, double beyond) {
  double value = 0.0;
  auto const result = std::from_chars(text.data(), text.data() + text.size(), value, format);
  return result.ec == std::errc::result_out_of_range ? beyond : value;
}

// Shows the bits of what differs.
void ExpectSame(const std::string& text, double expected) {
  auto const number = qvslm::UnsignedFloat(text);
  ASSERT_TRUE(number.has_value()) << text;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(*number), std::bit_cast<std::uint64_t>(expected))
      << text << ": " << *number << ", not " << expected;
}

std::string Written(double number, std::chars_format format) {
  char text[2000];
  return {text, std::to_chars(text, text + sizeof text, number, format).ptr};
}
std::string Written(double number, std::chars_format format, int digits) {
  char text[2000];
  return {text, std::to_chars(text, text + sizeof text, number, format, digits).ptr};
}

// The middle between a number and the next larger one, with all its digits.
std::string Middle(double number) {
  // As whole * 2^exponent; the middle is (2 * whole + 1) * 2^(exponent - 1).
  auto const bits = std::bit_cast<std::uint64_t>(number);
  int const stored = static_cast<int>(bits >> 52);
  std::uint64_t whole = bits & ((std::uint64_t{1} << 52) - 1);
  if (stored != 0) whole |= std::uint64_t{1} << 52;
  int exponent = (stored == 0 ? 1 : stored) - 1075;
  std::string digits = std::to_string(2 * whole + 1);
  std::size_t places = 0;
  for (--exponent; exponent != 0; exponent += exponent < 0 ? 1 : -1) {
    // Times 2, or times 5 with one more place behind the point.
    int const factor = exponent < 0 ? 5 : 2;
    int carry = 0;
    for (std::size_t at = digits.size(); at-- > 0;) {
      carry += (digits[at] - '0') * factor;
      digits[at] = static_cast<char>('0' + carry % 10);
      carry /= 10;
    }
    if (carry > 0) digits.insert(0, 1, static_cast<char>('0' + carry));
    places += exponent < 0 ? 1 : 0;
  }
  return digits + "e-" + std::to_string(places);
}

TEST(FloatAgreement, NumbersInAllTheirDigits) {
  Random random(1);
  for (int turn = 0; turn < 4000; ++turn) {
    double const number = random.Number();
    ExpectSame(Written(number, std::chars_format::scientific), number);
    ExpectSame(Written(number, std::chars_format::scientific, 760), number);
    ExpectSame(Written(number, std::chars_format::fixed), number);
    ExpectSame(std::string("0x").append(Written(number, std::chars_format::hex)), number);
  }
}

TEST(FloatAgreement, Subnormals) {
  Random random(2);
  for (int turn = 0; turn < 2000; ++turn) {
    auto const number = std::bit_cast<double>(random.Bits() >> (12 + random.Below(52)));
    ExpectSame(Written(number, std::chars_format::scientific), number);
    ExpectSame(Written(number, std::chars_format::fixed, 1080), number);
    ExpectSame(std::string("0x").append(Written(number, std::chars_format::hex)), number);
  }
}

// What instruments write: few digits, and a small exponent.
TEST(FloatAgreement, ShortNumbers) {
  Random random(3);
  for (int turn = 0; turn < 100000; ++turn) {
    std::string text = std::to_string(random.Bits() >> random.Below(64));
    text.insert(static_cast<std::size_t>(random.Below(static_cast<int>(text.size()) + 1)), 1, '.');
    if (random.Below(2) == 0) text.append("E").append(std::to_string(random.Below(60) - 30));
    ExpectSame(text, Standard(text, std::chars_format::general, kInfinity));
  }
}

TEST(FloatAgreement, LongNumbers) {
  Random random(4);
  for (int turn = 0; turn < 1000; ++turn) {
    std::string text;
    for (int digits = random.Below(1500) + 1; digits > 0; --digits) {
      text += static_cast<char>('0' + random.Below(10));
    }
    auto const length = static_cast<int>(text.size());
    text.insert(static_cast<std::size_t>(random.Below(length + 1)), 1, '.');
    // Up to the largest numbers, and well below the least ones.
    text.append("e").append(std::to_string(random.Below(640) - 325 - random.Below(length)));
    bool const huge = qvslm::UnsignedFloat(text) > 1.0;
    ExpectSame(text, Standard(text, std::chars_format::general, huge ? kInfinity : 0.0));
  }
}

// The middle goes to the even neighbour; the least bit more goes up, the least bit less down.
TEST(FloatAgreement, TheMiddleOfTwoNumbers) {
  Random random(5);
  for (int turn = 0; turn < 900; ++turn) {
    double const lower = turn < 300   ? std::bit_cast<double>(random.Bits() >> (12 + turn % 52))
                         : turn < 600 ? static_cast<double>(random.Bits() >> 11)
                                      : random.Number();
    auto const bits = std::bit_cast<std::uint64_t>(lower);
    auto const upper = std::bit_cast<double>(bits + 1);
    std::string const middle = Middle(lower);
    std::size_t const mark = middle.find('e');
    std::string const exponent = middle.substr(mark + 1);
    ExpectSame(middle, bits % 2 == 0 ? lower : upper);
    std::string const zeros(static_cast<std::size_t>(random.Below(900)), '0');
    ExpectSame(middle.substr(0, mark) + "." + zeros + "1e" + exponent, upper);
    std::string less = middle.substr(0, mark);
    std::size_t last = less.size() - 1;
    for (; less[last] == '0'; --last) less[last] = '9';
    --less[last];
    ExpectSame(less + "." + std::string(zeros.size(), '9') + "e" + exponent, lower);
  }
}

// Hexadecimal digits beyond the bits of a number, around its least and its largest exponent too.
TEST(FloatAgreement, HexadecimalDigitsToBeRounded) {
  Random random(6);
  constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
  for (int turn = 0; turn < 50000; ++turn) {
    std::string text = std::to_string(1 + random.Below(9));
    for (int digits = random.Below(20); digits > 0; --digits) {
      // Zeros often, so that middles occur.
      text += random.Below(2) == 0 ? '0' : kDigits[static_cast<std::size_t>(random.Below(22))];
    }
    auto const length = static_cast<int>(text.size());
    text.insert(static_cast<std::size_t>(random.Below(length + 1)), 1, '.');
    int const exponent = turn % 2 == 0 ? random.Below(200) - 100 : random.Below(2300) - 1150;
    text.append(1, turn % 3 == 0 ? 'P' : 'p').append(std::to_string(exponent));
    double const beyond = exponent > 0 ? kInfinity : 0.0;
    ExpectSame("0x" + text, Standard(text, std::chars_format::hex, beyond));
  }
}

// The standard library's text of numbers around whole tenths, of any size, and of middles.
TEST(FloatAgreement, OneDecimal) {
  Random random(7);
  for (int turn = 0; turn < 100000; ++turn) {
    double number = turn % 3 == 0   ? random.Number()
                    : turn % 3 == 1 ? static_cast<double>(random.Bits() >> random.Below(64)) / 20.0
                                    : static_cast<double>(random.Bits() >> random.Below(64)) / 8.0;
    if (random.Below(2) == 0) number = -number;
    char text[qvslm::kOneDecimalRoom];
    std::string const written(text, qvslm::WriteOneDecimal(number, text));
    ASSERT_EQ(written, Written(number, std::chars_format::fixed, 1));
  }
}

TEST(FloatAgreement, OneDecimalOfWhatIsNoNumber) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kLeast = std::numeric_limits<double>::denorm_min();
  constexpr double kMost = std::numeric_limits<double>::max();
  for (double const number :
       {0.0, -0.0, kInfinity, -kInfinity, kNone, -kNone, kLeast, -kLeast, kMost, -kMost}) {
    char text[qvslm::kOneDecimalRoom];
    std::string const written(text, qvslm::WriteOneDecimal(number, text));
    EXPECT_EQ(written, Written(number, std::chars_format::fixed, 1));
  }
}

}  // namespace
