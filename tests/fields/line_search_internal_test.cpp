// Searches for a line: where they end, what they leave in the text, and that a search which follows
// the way of an earlier one leaves the same as one that goes it anew. Internal: records show the
// values of lines, not what stands behind a line's end.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fields/data_file.h"
#include "fields/line_pieces.h"
#include "fields/line_search.h"
#include "fields/way_memory.h"
#include "support/temp_file.h"

namespace {

using qvslm::CurrentContext;
using qvslm::i64;
using qvslm::LineRead;
using test::TempFile;

// A search as it ends: the whole text, and where the file is read on.
struct Found {
  LineRead line;
  std::string text;
  i64 position = 0;

  bool operator==(const Found& other) const {
    return line.length == other.line.length && line.complete == other.line.complete &&
           text == other.text && position == other.position;
  }
};

class LineSearch : public testing::Test {
 protected:
  LineSearch() { CurrentContext = &context_; }
  ~LineSearch() override {
    qvslm::CloseDataFile();
    CurrentContext = nullptr;
  }

  void Open(std::string_view bytes) {
    qvslm::CloseDataFile();
    file_.Rewrite(bytes);
    ASSERT_TRUE(qvslm::OpenDataFile(file_.CPath()));
  }

  // The text holds dots before the search.
  template <std::size_t Size>
  Found LineThatOpens(char letter, i64 from) {
    char text[Size];
    std::memset(text, '.', Size);
    qvslm::SeekDataFile(from);
    LineRead const line = qvslm::ReadLineThatOpens(letter, text, Size);
    return {line, std::string(text, Size), qvslm::FilePosition()};
  }

  // Behind the line at the place. Of the text only the line that was found counts.
  template <std::size_t Size>
  Found PastRegisters(qvslm::i32 number, i64 from) {
    char text[Size];
    qvslm::SeekDataFile(from);
    LineRead const first = qvslm::ReadLine(text, Size);
    LineRead const line = qvslm::ReadPastRegisters('R', number, first, text, Size);
    return {line, std::string(text, line.length), qvslm::FilePosition()};
  }

 private:
  qvslm::TranslateContext context_{};
  TempFile file_{""};
};

void Forget() {
  qvslm::ForgetWays();
  qvslm::ForgetPieces();
}

TEST_F(LineSearch, LeavesEachLineOnItsWayInTheText) {
  Open("abcdefgh\nxyz\n1\nR7\nlast\n");
  Found const found = LineThatOpens<12>('R', 0);
  EXPECT_EQ(found.line.length, 3U);
  EXPECT_TRUE(found.line.complete);
  EXPECT_EQ(found.position, 18);
  // "abcdefgh\n", then "xyz\n", "1\n" and "R7\n" over it, each with its NUL.
  EXPECT_EQ(found.text, std::string("R7\n\0\0fgh\n\0..", 12));
}

TEST_F(LineSearch, CutsLinesWhereTheTextIsFull) {
  Open("abcdefR\nR\n");
  // "abc", "def", "R\n"; from the second byte on "bcd", "efR", "\n", "R\n".
  EXPECT_EQ(LineThatOpens<4>('R', 0).position, 8);
  EXPECT_EQ(LineThatOpens<4>('R', 1).position, 10);
}

TEST_F(LineSearch, FindsNoneBehindTheLast) {
  Open("a\nb\nc");
  Found const found = LineThatOpens<8>('R', 0);
  EXPECT_FALSE(found.line);
  EXPECT_EQ(found.position, 5);
  EXPECT_EQ(found.text, std::string("c\0\0.....", 8));
}

TEST_F(LineSearch, RegistersEndAtTheirNumberOrTheBlock) {
  Open("R   1,a\nR   2,b\nR 106,c\nR   3,d\nX\nR 106,e\n");
  EXPECT_EQ(PastRegisters<20>(106, 0).position, 24);
  EXPECT_EQ(PastRegisters<20>(3, 0).position, 32);
  EXPECT_EQ(PastRegisters<20>(9, 0).position, 34);  // behind "X\n"
  EXPECT_EQ(PastRegisters<20>(9, 0).text, "X\n");
}

// Stretches of many kinds, in which searches from near and far meet, pass one another in lines that
// are cut, and lead to the line, to another one, or to the end of the file.
std::string Stretches(std::mt19937& chance, std::size_t size) {
  auto const below = [&](std::size_t end) { return chance() % end; };
  std::string bytes;
  while (bytes.size() < size) {
    std::size_t const length = below(900);
    switch (below(7)) {
      case 0:
        bytes.append(length, '\n');
        break;
      case 1:
        bytes.append(length, static_cast<char>('a' + below(5)));
        break;
      case 2:  // ever shorter lines
        for (std::size_t left = 30 + below(20); left > 0; left -= 1 + below(3) % left) {
          bytes.append(left, static_cast<char>('A' + left % 9)) += '\n';
        }
        break;
      case 3:
        for (std::size_t count = below(60); count > 0; --count) bytes += "R   7,1\r\n";
        break;
      case 4:
        for (std::size_t at = 0; at < length; ++at) bytes += static_cast<char>(below(256));
        break;
      case 5:
        bytes.append(below(4), 'R') += below(2) == 0 ? "106,5\n" : "x";
        break;
      default:
        for (std::size_t count = below(200); count > 0; --count) bytes += "1234567\n";
        break;
    }
  }
  return bytes;
}

// Places of searches as a walk makes them, on and on, and now and then from an earlier one again.
std::vector<i64> Places(std::mt19937& chance, std::size_t size) {
  std::vector<i64> places;
  std::size_t at = 0;
  while (at < size) {
    places.push_back(static_cast<i64>(at));
    at += 1 + chance() % 60;
    if (chance() % 64 == 0) at -= std::min<std::size_t>(at, chance() % 2000);
  }
  return places;
}

TEST_F(LineSearch, RememberedOnesEndAsNewOnesDo) {
  std::mt19937 chance(17);
  for (int round = 0; round < 10; ++round) {
    SCOPED_TRACE(round);
    std::string const bytes = Stretches(chance, 6'000);
    Open(bytes);
    std::vector<Found> remembered;
    std::vector<i64> const places = Places(chance, bytes.size());
    for (i64 const place : places) {
      remembered.push_back(LineThatOpens<21>('Q', place));
      remembered.push_back(LineThatOpens<50>('R', place));
      remembered.push_back(PastRegisters<50>(106, place));
    }
    std::size_t at = 0;
    for (i64 const place : places) {
      SCOPED_TRACE(place);
      Forget();
      ASSERT_EQ(remembered[at++], LineThatOpens<21>('Q', place));
      Forget();
      ASSERT_EQ(remembered[at++], LineThatOpens<50>('R', place));
      Forget();
      ASSERT_EQ(remembered[at++], PastRegisters<50>(106, place));
    }
  }
}

}  // namespace
