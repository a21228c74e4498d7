// The memory of ways: what it keeps of a search, and what it leaves behind for the next one.
// Internal: to the exports only its speed shows.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "fields/way_memory.h"

namespace {

using qvslm::i32;
using qvslm::Leaves;
using qvslm::Way;
using qvslm::WayPoint;

constexpr qvslm::u32 kKind = 5;

class WayMemory : public testing::Test {
 protected:
  WayMemory() {
    qvslm::CurrentContext = context_.get();
    qvslm::ForgetWays();
  }
  ~WayMemory() override {
    qvslm::ForgetWays();
    qvslm::CurrentContext = nullptr;
  }

  // A step that writes the letter to the head of the text, with its NUL.
  void Write(Way& way, i32 at, char letter, std::size_t length) {
    std::memset(text_, letter, length);
    text_[length] = '\0';
    way.Passed({at}, Leaves::Text, static_cast<qvslm::u32>(length) + 1);
  }
  // A step that fills the head of RecordBuffer.
  void Fill(Way& way, i32 at, int byte, qvslm::u32 length) {
    std::memset(context_->RecordBuffer, byte, length);
    context_->RecordLength = length;
    context_->RecordPos = 0;
    context_->BytesRead = 1;
    way.Passed({at}, Leaves::Record, length + 1);
  }

  // Where a search from the place is led; the place itself where nothing is known.
  i32 EndFrom(i32 at, qvslm::u32 kind = kKind) {
    Way way(kind, text_);
    WayPoint point{at};
    return way.Known(point) ? point.at : at;
  }
  std::string Text() const { return {text_, sizeof text_}; }
  void Clear() {
    std::memset(text_, '.', sizeof text_);
    std::memset(context_->RecordBuffer, 0, sizeof context_->RecordBuffer);
    context_->RecordLength = 0;
  }

  // Steps of 100 bytes from a place to an end, none of which leaves anything.
  void Go(Way& way, i32 from, i32 end) {
    for (i32 at = from; at < end; at += 100) {
      WayPoint point{at};
      if (way.Known(point)) return;
      way.Passed(point, Leaves::Nothing, 0);
    }
    way.Ended({end});
  }

  std::unique_ptr<qvslm::TranslateContext> context_ = std::make_unique<qvslm::TranslateContext>();
  char text_[12] = "";
};

TEST_F(WayMemory, LeadsToTheEndFromEachPointBehindTheHead) {
  Way way(kKind, text_);
  Go(way, 1000, 3000);
  EXPECT_EQ(EndFrom(1000), 3000);
  EXPECT_EQ(EndFrom(1300), 3000);
  EXPECT_EQ(EndFrom(2900), 3000);
  EXPECT_EQ(EndFrom(1100), 1100);  // within 256 bytes of the start none is kept
  EXPECT_EQ(EndFrom(1350), 1350);  // no point of the way
}

TEST_F(WayMemory, KeepsNothingOfShortWays) {
  Way way(kKind, text_);
  Go(way, 1000, 1200);
  EXPECT_EQ(EndFrom(1000), 1000);
}

TEST_F(WayMemory, TellsKindsAndEntriesApart) {
  Way way(kKind, text_);
  Go(way, 1000, 3000);
  EXPECT_EQ(EndFrom(1000, kKind + 1), 1000);
  Way other(kKind, text_);
  WayPoint entry{1300, 7};
  EXPECT_FALSE(other.Known(entry));
}

TEST_F(WayMemory, LeavesWhatStepsBehindThePointHaveLeft) {
  Clear();
  Way way(kKind, text_);
  WayPoint point{0};
  for (i32 const at : {0, 300, 600, 900}) {
    point.at = at;
    ASSERT_FALSE(way.Known(point));
    // At 0 "aaaaaaaaa", at 300 "bbbbbb", at 600 "ccc", at 900 "d".
    Write(way, at, static_cast<char>('a' + at / 300),
          static_cast<std::size_t>(9 - at / 300 * 3) + (at == 900));
  }
  way.Ended({1200});

  Clear();
  EXPECT_EQ(EndFrom(0), 1200);
  EXPECT_EQ(Text(), std::string("d\0c\0bb\0aa\0..", 12));
  Clear();
  EXPECT_EQ(EndFrom(300), 1200);
  EXPECT_EQ(Text(), std::string("d\0c\0bb\0.....", 12));
  Clear();
  EXPECT_EQ(EndFrom(900), 1200);
  EXPECT_EQ(Text(), std::string("d\0..........", 12));
}

TEST_F(WayMemory, LeavesRecordsWithTheLengthOfTheLast) {
  Clear();
  Way way(kKind, text_);
  for (i32 const at : {0, 400, 800}) {
    WayPoint point{at};
    ASSERT_FALSE(way.Known(point));
    if (at == 0) Fill(way, at, 0x11, 5);
    if (at == 400) Fill(way, at, 0x22, 2);
    if (at == 800) Write(way, at, 'x', 1);
  }
  way.Ended({1200});

  Clear();
  EXPECT_EQ(EndFrom(0), 1200);
  EXPECT_EQ(context_->RecordLength, 2U);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(context_->RecordBuffer), 6),
            std::string("\x22\x22\x11\x11\x11\0", 6));
  Clear();
  EXPECT_EQ(EndFrom(400), 1200);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(context_->RecordBuffer), 6),
            std::string("\x22\x22\0\0\0\0", 6));
  Clear();
  EXPECT_EQ(EndFrom(800), 1200);
  EXPECT_EQ(context_->RecordLength, 0U);
  EXPECT_EQ(context_->RecordBuffer[0], 0);
}

// A way that meets another one has what it left before, and behind it what that one leaves.
TEST_F(WayMemory, JoinsWaysThatMeet) {
  Clear();
  Way first(kKind, text_);
  for (i32 const at : {0, 1000, 2000}) {
    WayPoint point{at};
    ASSERT_FALSE(first.Known(point));
    Write(first, at, static_cast<char>('a' + at / 1000), at == 0 ? 9 : 3);
  }
  first.Ended({3000});

  Clear();
  Way second(kKind, text_);
  for (i32 const at : {500, 900}) {
    WayPoint point{at};
    ASSERT_FALSE(second.Known(point));
    Write(second, at, 'z', 6);
  }
  WayPoint meeting{2000};
  EXPECT_TRUE(second.Known(meeting));
  EXPECT_EQ(meeting.at, 3000);
  EXPECT_EQ(Text(), std::string("ccc\0zz\0.....", 12));

  Clear();
  EXPECT_EQ(EndFrom(500), 3000);
  EXPECT_EQ(Text(), std::string("ccc\0zz\0.....", 12));
  Clear();
  EXPECT_EQ(EndFrom(0), 3000);
  EXPECT_EQ(Text(), std::string("ccc\0aaaaa\0..", 12));
}

// 3000 ways with ends of their own: the last 2048 ends are known, and those that are asked for stay.
TEST_F(WayMemory, GivesUpEndsThatNoSearchMeets) {
  constexpr i32 kApart = 10'000;
  for (i32 number = 0; number < 3000; ++number) {
    Way way(kKind, text_);
    Go(way, number * kApart, number * kApart + 1000);
    if (number == 0) continue;
    EXPECT_EQ(EndFrom(kApart), kApart + 1000) << number;
  }
  EXPECT_EQ(EndFrom(0), 0);
  EXPECT_EQ(EndFrom(2 * kApart), 2 * kApart);
  EXPECT_EQ(EndFrom(1500 * kApart), 1500 * kApart + 1000);
  EXPECT_EQ(EndFrom(2999 * kApart), 2999 * kApart + 1000);
}

// One point in each 64 bytes at first, fewer where there are more than the memory takes.
TEST_F(WayMemory, KeepsLessOfWhatItCannotHold) {
  constexpr i32 kLong = 80'000'000;
  Way way(kKind, text_);
  for (i32 at = 0; at < kLong; at += 50) {
    WayPoint point{at};
    ASSERT_FALSE(way.Known(point)) << at;
    way.Passed(point, Leaves::Nothing, 0);
  }
  way.Ended({kLong});
  // Forgotten are the first 786,432 stretches; behind them one point in 128 bytes is kept.
  EXPECT_EQ(EndFrom(1'000'000), 1'000'000);
  int known = 0;
  for (i32 at = 70'000'000; at < 70'128'000; at += 50) known += EndFrom(at) == kLong ? 1 : 0;
  EXPECT_EQ(known, 1000);
}

TEST_F(WayMemory, ForgetsAll) {
  Way way(kKind, text_);
  Go(way, 1000, 3000);
  qvslm::ForgetWays();
  EXPECT_EQ(EndFrom(1000), 1000);
}

}  // namespace
