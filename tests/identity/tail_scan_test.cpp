// The look at a file's tail before the walk: the last stop time, and on model 442 the level offset.
// An item 8 shows the one, a level mark the other.
#include <gtest/gtest.h>

#include <string>

#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Model431;
using test::Model442;
using test::Session;
using test::TempFile;

constexpr int kNoon = 1718971200;          // 21 June 2024, 12:00:00 UTC: the header's time
constexpr int kHeaderStop = kNoon - 1;     // what stands when the scan finds nothing
constexpr int kFoundStop = kNoon + 21599;  // 18:00:00 less one
constexpr std::size_t kScanned442 = 2100000;

// Lines of the general form have four columns for the number.
std::string Line6(std::string_view stamp = "21Jun2024,18:00:00") {
  return "R   6," + std::string(stamp) + "\r\n";
}
// Twenty bytes with a number above 6.
const std::string kLaterLine = "R   7,0123456789ab\r\n";

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  while (count-- > 0) repeated += text;
  return repeated;
}

// A file of which an item 8 and a level mark are the first items.
DataFile Begin(const DataFile& head) {
  return DataFile(head)
      .Item(8, Body().U8(0))
      .Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 0, 0).Level(60.5).U8(0));
}

// The file with the tail as its last bytes, filled up in between to the given size.
std::string WithTail(const DataFile& head, const std::string& tail, std::size_t size = 9000) {
  std::string bytes = Begin(head).Bytes();
  bytes.resize(size - tail.size() - 1, '\0');
  return bytes + '\n' + tail;
}

struct Scan {
  int status;
  int stop = 0;
  float levelOffset = 0;
};

Scan ScanOf(const std::string& bytes) {
  TempFile const file(bytes);
  Session session;
  Scan scan{session.Start(file.Path())};
  if (scan.status != QV_OK) return scan;
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Code(), QV_BLOCK_IMAGE);
  scan.stop = session.As<QvBlockImage>().RecordTime;
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Code(), QV_LEVEL_MARK);
  scan.levelOffset = session.As<QvLevelMark>().LevelOffset;
  return scan;
}

// What the scan finds in the tail of a general file.
int StopOf(const std::string& tail) {
  Scan const scan = ScanOf(WithTail(General(), tail));
  EXPECT_EQ(scan.status, QV_OK);
  return scan.stop;
}

TEST(TailScan, ShortFiles) {
  struct Row {
    DataFile head;
    std::size_t size;
    int status;
  };
  const Row kRows[] = {
      {General(), 1000, QV_TAIL_SEEK_FAILED},
      {General(), 2499, QV_TAIL_SEEK_FAILED},
      {General(), 2500, QV_OK},
      {DataFile().Header({.Model = 500}), 2499, QV_TAIL_SEEK_FAILED},
      {DataFile().Header({.Model = 500}), 2500, QV_OK},
      {Model431("OBA "), 999, QV_TAIL_SEEK_FAILED},
      {Model431("OBA "), 1000, QV_OK},
  };
  for (const Row& row : kRows) {
    Scan const scan = ScanOf(WithTail(row.head, "", row.size));
    EXPECT_EQ(scan.status, row.status) << row.size;
    EXPECT_EQ(scan.stop, row.status == QV_OK ? kHeaderStop : 0) << row.size;
  }
}

TEST(TailScan, FoundWithoutAJump) {
  EXPECT_EQ(StopOf(Line6()), kFoundStop);
  EXPECT_EQ(StopOf("R   1,Model 486\r\n" + Line6() + Repeat(kLaterLine, 20)), kFoundStop);
  EXPECT_EQ(ScanOf(WithTail(Model431("OBA "), Line6() + Repeat(kLaterLine, 20))).stop, kFoundStop);
}

TEST(TailScan, NoStopTimeIsNoFailure) {
  EXPECT_EQ(StopOf(""), kHeaderStop);
  EXPECT_EQ(StopOf("R   1,Model 486\r\nR   5,01:00:00\r\n"), kHeaderStop);
  EXPECT_EQ(StopOf("Q   6,21Jun2024,18:00:00\r\n"), kHeaderStop);
  EXPECT_EQ(StopOf(" R   6,21Jun2024,18:00:00\r\n"), kHeaderStop);
  EXPECT_EQ(StopOf("R   7,21Jun2024,18:00:00\r\n"), kHeaderStop);
  EXPECT_EQ(StopOf("R  60,21Jun2024,18:00:00\r\n"), kHeaderStop);
}

TEST(TailScan, TheFirstStopTimeReadWins) {
  EXPECT_EQ(StopOf(Line6() + Line6("21Jun2024,19:00:00")), kFoundStop);
}

TEST(TailScan, LowerRegistersAndOtherLinesArePassed) {
  EXPECT_EQ(StopOf("R   1,Model 486\r\nE end\r\n\r\nR\r\nR  -7,x\r\nxR   9,\r\nR   5,01:00:00\r\n" +
                   Line6()),
            kFoundStop);
}

TEST(TailScan, ColumnsOfTheLine) {
  EXPECT_EQ(StopOf("R 6  ,21Jun2024,18:00:00\r\n"), kFoundStop);
  EXPECT_EQ(StopOf("R6xxxx21Jun2024x18:00:00\r\n"), kFoundStop);
  EXPECT_EQ(StopOf("R   6,21Jun2024,18:00:00"), kFoundStop);  // the last line needs no end
  EXPECT_EQ(StopOf("R   6,21jun 24 ,18:00:00\r\n"), kFoundStop);
  EXPECT_EQ(StopOf("R   6,21Jun2024918:00:00\r\n"), kFoundStop);  // nine characters of date
  EXPECT_EQ(StopOf("R   6,21Jun2024,18\r\n"), kFoundStop);
  EXPECT_EQ(StopOf("R   6,21Jun2024,18:00:07 and more\r\n"), kFoundStop + 7);
  EXPECT_EQ(StopOf("R   6,21Jun2024\r\n"), kNoon - 43201);  // midnight
  // One column less, as the lines of model 442 have it: the date begins at its second character.
  EXPECT_EQ(StopOf("R  6,21Jun2024,18:00:00\r\n"), 1704095999);  // 1 January, 8:00
}

TEST(TailScan, AStampThatIsNone) {
  EXPECT_EQ(StopOf("R   6,\r\n"), 949276799);  // no date is 31 January 2000
  // What cannot be converted is 0, and the header's time stands in for it.
  EXPECT_EQ(StopOf(Line6("01Jan2040,00:00:00")), kHeaderStop);
}

TEST(TailScan, LinesAreReadInStretchesOfEightyCharacters) {
  EXPECT_EQ(StopOf("\r\n" + std::string(80, 'x') + Line6()), kFoundStop);
  EXPECT_EQ(StopOf("\r\n" + std::string(79, 'x') + Line6()), kHeaderStop);
  EXPECT_EQ(StopOf("\r\n" + std::string(81, 'x') + Line6()), kHeaderStop);
}

// The walk begins at a fixed distance from the end, mostly within a line.
TEST(TailScan, WhereItBegins) {
  struct Row {
    DataFile head;
    std::size_t distance;
  };
  const Row kRows[] = {{General(), 2500}, {Model431("OBA "), 1000}};
  for (const Row& row : kRows) {
    std::string const line = Line6();
    std::string const at = line + std::string(row.distance - line.size(), 'x');
    EXPECT_EQ(ScanOf(WithTail(row.head, at)).stop, kFoundStop) << row.distance;
    EXPECT_EQ(ScanOf(WithTail(row.head, at + 'x')).stop, kHeaderStop) << row.distance;
  }
}

// A line above 6 sends the walk back by 50 bytes and the line's length, again and again, until the
// distance walked exceeds 4999. With lines of 20 bytes a jump gains 40: it lands in the middle of a
// line, whose rest is read and passed over. General files take up to 36 jumps from 2500 on, files
// of model 431 up to 58 from 1000 on.
TEST(TailScan, JumpsBackwards) {
  struct Row {
    DataFile head;
    int lines;
    int stop;
  };
  const Row kRows[] = {
      {General(), 123, kFoundStop},  // in reach of the first stretch
      {General(), 125, kFoundStop},  // one line before it
      {General(), 150, kFoundStop},         {General(), 194, kFoundStop},  // the last in reach
      {General(), 195, kHeaderStop},                                       // out of reach
      {General(), 300, kHeaderStop},        {Model431("OBA "), 49, kFoundStop},
      {Model431("OBA "), 100, kFoundStop},  {Model431("OBA "), 163, kFoundStop},
      {Model431("OBA "), 164, kHeaderStop}, {Model431("OBA "), 300, kHeaderStop},
  };
  for (const Row& row : kRows) {
    Scan const scan = ScanOf(WithTail(row.head, Line6() + Repeat(kLaterLine, row.lines)));
    EXPECT_EQ(scan.status, QV_OK) << row.lines;
    EXPECT_EQ(scan.stop, row.stop) << row.lines;
  }
}

// How far a jump goes back is the length of the line's text: what stands in it behind a NUL does
// not count. The walk begins at the line R 24. Fifty bytes before it stands a stop time, and behind
// it another, one hour later.
int StopAround(const std::string& line) {
  std::string const before = Line6() + std::string(22, 'x') + "\r\n";  // 26 and 24 bytes
  std::string tail = line + Line6("21Jun2024,19:00:00");
  tail += std::string(2500 - tail.size(), 'x');
  return StopOf(before + tail);
}

TEST(TailScan, JumpsByTheLengthOfTheText) {
  constexpr int kLaterStop = kFoundStop + 3600;
  std::string const nul(1, '\0');
  // 60 bytes: from their end 110 back, to the stop time before the line.
  EXPECT_EQ(StopAround("R  24,ab" + std::string(50, 'x') + "\r\n"), kFoundStop);
  // The same with a text of 8: 58 back, to the third byte of the line itself, whose rest is passed.
  EXPECT_EQ(StopAround("R  24,ab" + nul + std::string(49, 'x') + "\r\n"), kLaterStop);
  // A text of 6: 56 back, into the line. A text of 59 in 61 bytes: 109 back, to the third byte of
  // the stop time before the line, so that the walk comes to the line again and again, until it has
  // gone too far.
  EXPECT_EQ(StopAround("R  24," + nul + std::string(51, 'x') + "\r\n"), kLaterStop);
  EXPECT_EQ(StopAround("R  24,ab" + std::string(50, 'x') + "\r" + nul + "\n"), kHeaderStop);
  // Of a line of 92 bytes 80 are read. A NUL among them shortens the way back, a NUL behind them
  // does not: 130 back.
  EXPECT_EQ(StopAround("R  24,ab" + nul + std::string(81, 'x') + "\r\n"), kLaterStop);
  EXPECT_EQ(StopAround("R  24,ab" + std::string(72, 'x') + nul + std::string(9, 'x') + "\r\n"),
            kFoundStop);
}

// A jump beyond the beginning of the file is a failed seek.
TEST(TailScan, AJumpBeforeTheFile) {
  std::string const header = "L\r\n486\r\n1\r\n\r\n\r\n\r\n";  // 17 bytes
  std::string const line = "R  99,\r\n";                       // 8 bytes
  std::string bytes = header + line;
  bytes.resize(2500, '\0');
  // Behind the line the walk stands at 25; 58 bytes back there is nothing.
  EXPECT_EQ(ScanOf(bytes).status, QV_TAIL_SEEK_FAILED);

  // At 58 the way back leads to the very first byte, and from there on round and round.
  bytes = header + std::string(31, 'x') + "\r\n" + line;
  bytes.resize(2500, '\0');
  TempFile const file(bytes);
  Session session;
  EXPECT_EQ(session.Start(file.Path()), QV_OK);
}

// Model 442 --------------------------------------------------------------------------------------

const std::string kBlock442 = "R  1,Hedrom-Pulke Model 442\r\n";  // 29 bytes

Scan Scan442(const std::string& tail) {
  return ScanOf(Begin(Model442("SSA")).Raw(tail).Bytes());
}

TEST(TailScan442, StopTimeAndLevelOffset) {
  Scan const scan = Scan442(kBlock442 + "R  6,21Jun2024,18:00:00\r\nR  7,x\r\nR106,12.5\r\n");
  EXPECT_EQ(scan.status, QV_OK);
  EXPECT_EQ(scan.stop, kFoundStop);
  EXPECT_EQ(scan.levelOffset, 12.5f);
}

TEST(TailScan442, TheOrderOfTheLinesDoesNotMatter) {
  Scan const scan = Scan442(kBlock442 + "R106,-3.25\r\nR200,1\r\nR  6,21Jun2024,18:00:00\r\n");
  EXPECT_EQ(scan.status, QV_OK);
  EXPECT_EQ(scan.stop, kFoundStop);
  EXPECT_EQ(scan.levelOffset, -3.25f);
}

TEST(TailScan442, TheStopTimeMayBeMissingTheLevelOffsetMayNot) {
  Scan const without6 = Scan442(kBlock442 + "R106,12.5\r\n");
  EXPECT_EQ(without6.status, QV_OK);
  EXPECT_EQ(without6.stop, kHeaderStop);
  EXPECT_EQ(without6.levelOffset, 12.5f);
  EXPECT_EQ(Scan442(kBlock442 + "R  6,21Jun2024,18:00:00\r\n").status, QV_NOT_FOUND);
  EXPECT_EQ(Scan442(kBlock442).status, QV_NOT_FOUND);
}

TEST(TailScan442, ThereMustBeABlock) {
  EXPECT_EQ(Scan442("").status, QV_NOT_FOUND);
  EXPECT_EQ(Scan442("R  6,21Jun2024,18:00:00\r\nR106,12.5\r\n").status, QV_NOT_FOUND);
  EXPECT_EQ(Scan442("R  1,Hedrom-Pulke Model 431\r\nR106,12.5\r\n").status, QV_NOT_FOUND);
  EXPECT_EQ(Scan442("R 1,Hedrom-Pulke Model 442\r\nR106,12.5\r\n").status, QV_NOT_FOUND);
  EXPECT_EQ(Scan442("R   1,Hedrom-Pulke Model 442\r\nR106,12.5\r\n").status, QV_NOT_FOUND);
}

TEST(TailScan442, NothingBehindTheHeader) {
  EXPECT_EQ(ScanOf(Model442("SSA").Bytes()).status, QV_NOT_FOUND);
  EXPECT_EQ(ScanOf(Model442("SSA").Raw(std::string(28, 'x')).Bytes()).status, QV_NOT_FOUND);
  EXPECT_EQ(ScanOf(Model442("SSA").Raw(std::string(29, 'x')).Bytes()).status, QV_NOT_FOUND);
}

// A block that begins with the very first byte behind the header does not count.
TEST(TailScan442, ABlockRightBehindTheHeader) {
  std::string const lines = kBlock442 + "R106,12.5\r\n";
  EXPECT_EQ(ScanOf(Model442("SSA").Raw(lines).Bytes()).status, QV_NOT_FOUND);
  TempFile const file(Model442("SSA").Raw("x" + lines).Bytes());
  Session session;
  EXPECT_EQ(session.Start(file.Path()), QV_OK);
}

TEST(TailScan442, TheLastBlockCounts) {
  Scan const scan =
      Scan442(kBlock442 + "R  6,21Jun2024,17:00:00\r\nR106,1.5\r\n" + std::string(500, '\0') +
              kBlock442 + "R  6,21Jun2024,18:00:00\r\nR106,2.5\r\n");
  EXPECT_EQ(scan.stop, kFoundStop);
  EXPECT_EQ(scan.levelOffset, 2.5f);
  // Even when it lacks what the first one has.
  EXPECT_EQ(Scan442(kBlock442 + "R106,1.5\r\n" + kBlock442 + "R  7,x\r\n").status, QV_NOT_FOUND);
}

// A block of which the file has the opening line alone, without its end, is none yet.
TEST(TailScan442, ABlockCutBehindItsOpeningLine) {
  std::string const whole = kBlock442 + "R  6,21Jun2024,18:00:00\r\nR106,1.5\r\n";
  Scan const cut = Scan442(whole + kBlock442.substr(0, 27));
  EXPECT_EQ(cut.status, QV_OK);
  EXPECT_EQ(cut.stop, kFoundStop);
  EXPECT_EQ(cut.levelOffset, 1.5f);
  // One byte more, and it is the last block, which has nothing of what is sought.
  EXPECT_EQ(Scan442(whole + kBlock442.substr(0, 28)).status, QV_NOT_FOUND);
}

TEST(TailScan442, LinesBeforeTheBlockDoNotCount) {
  Scan const scan = Scan442("R  6,21Jun2024,17:00:00\r\nR106,1.5\r\n" + kBlock442 + "R106,2.5\r\n");
  EXPECT_EQ(scan.stop, kHeaderStop);
  EXPECT_EQ(scan.levelOffset, 2.5f);
}

// Any byte 'R' counts, also within another line; the number behind it decides.
TEST(TailScan442, RegistersWithinOtherLines) {
  Scan const scan =
      Scan442(kBlock442 + "R  3,a title with R106,7.5\r\nxR  6,21Jun2024,18:00:00\r\n");
  EXPECT_EQ(scan.status, QV_OK);
  EXPECT_EQ(scan.levelOffset, 7.5f);
  EXPECT_EQ(scan.stop, kFoundStop);
}

TEST(TailScan442, TheSearchEndsWithBothFound) {
  Scan const first = Scan442(kBlock442 +
                             "R106,1.5\r\nR  6,21Jun2024,18:00:00\r\n"
                             "R106,2.5\r\nR  6,21Jun2024,19:00:00\r\n");
  EXPECT_EQ(first.levelOffset, 1.5f);
  EXPECT_EQ(first.stop, kFoundStop);
  // Until then a later line takes the place of an earlier one.
  Scan const later = Scan442(kBlock442 + "R106,1.5\r\nR106,2.5\r\nR  6,21Jun2024,18:00:00\r\n");
  EXPECT_EQ(later.levelOffset, 2.5f);
}

TEST(TailScan442, Values) {
  struct Row {
    const char* line;
    float offset;
  };
  constexpr Row kRows[] = {
      {"R106,0\r\n", 0.0f},
      {"R106,-12.75\r\n", -12.75f},
      {"R106, 3.5 dB\r\n", 3.5f},
      {"R106,1e1\r\n", 10.0f},
      {"R106,x\r\n", 0.0f},
      {"R106,200.5\r\n", 200.5f},
      {"R106x4.5\r\n", 4.5f},
      {"R106,5.5", 5.5f},
      {"R106,5", 5.0f},
      {"R106,", 0.0f},
      {"R106", 0.0f},
      {"R 106,5.5", 0.0f},
      {"R106,\r\n6.5\r\n", 6.5f},  // columns run on across the line end
  };
  for (const Row& row : kRows) {
    Scan const scan = Scan442(kBlock442 + row.line);
    EXPECT_EQ(scan.status, QV_OK) << row.line;
    EXPECT_EQ(scan.levelOffset, row.offset) << row.line;
  }
}

TEST(TailScan442, StopTimesAtTheEndOfTheFile) {
  struct Row {
    const char* line;
    int stop;
  };
  constexpr Row kRows[] = {
      {"R  6,21Jun2024,18:00:00", kFoundStop},
      {"R  6,21Jun2024,18", kFoundStop},
      {"R  6,21Jun2024,", kNoon - 43201},
      {"R  6,21Jun2024", kNoon - 43201},
      {"R  6,21Jun2024918:00:009\r\n", kFoundStop},  // nine and eight characters
      {"R  6,", 949276799},
      {"R  6", 949276799},
  };
  for (const Row& row : kRows) {
    Scan const scan = Scan442(kBlock442 + "R106,5.5\r\n" + row.line);
    EXPECT_EQ(scan.status, QV_OK) << row.line;
    EXPECT_EQ(scan.stop, row.stop) << row.line;
  }
}

// Only the first 2,100,000 bytes behind the header are searched.
TEST(TailScan442, TheStretchThatIsSearched) {
  DataFile const head = Model442("SSA");
  std::string const lines = kBlock442 + "R106,5.5";  // 37 bytes
  DataFile const items = Begin(head);
  std::size_t const taken = items.Size() - head.Size();
  struct Row {
    std::size_t begin;  // of the block, from the end of the header
    int status;
    float offset;
  };
  const Row kRows[] = {
      {kScanned442 - 37, QV_OK, 5.5f},
      {kScanned442 - 36, QV_OK, 5.0f},  // the last digit lies outside
      {kScanned442 - 33, QV_OK, 0.0f},  // the value does
      {kScanned442 - 29, QV_NOT_FOUND, 0.0f},
      {kScanned442, QV_NOT_FOUND, 0.0f},
  };
  for (const Row& row : kRows) {
    std::string const fill(row.begin - taken, '\0');
    Scan const scan = ScanOf(DataFile(items).Raw(fill).Raw(lines).Raw("\r\n").Bytes());
    EXPECT_EQ(scan.status, row.status) << row.begin;
    EXPECT_EQ(scan.levelOffset, row.offset) << row.begin;
  }
}

}  // namespace
