#include "walk_run.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <string_view>

#include "oracles.h"

namespace fuzz {

namespace {

test::GuardedBuffer& Context() {
  static test::GuardedBuffer buffer(9984);
  return buffer;
}

test::GuardedBuffer& Record() {
  static test::GuardedBuffer buffer(QV_OUTPUT_RECORD_SIZE);
  return buffer;
}

bool IsBandRecord(std::uint16_t code) {
  return code >= QV_LEVEL_MARK_BANDS && code <= QV_INTERVAL_BAND_SERIES;
}

std::vector<std::uint8_t> BytesOf(std::uint16_t code) {
  return {Record().Data(), Record().Data() + RecordSize(code)};
}

// The fields of a record that may be times of the clock.
void DropClock(std::uint16_t code, std::vector<std::uint8_t>& bytes) {
  if (IsBandRecord(code)) {
    std::memset(bytes.data() + offsetof(QvIntervalBands, RecordTime), 0, sizeof(std::int32_t));
  }
}

// The same calls without the walk give the same records, step by step.
void ExpectSameCalls(const char* path, const WalkedFile& walked) {
  Context().Fill(0);
  std::int32_t const start = QV_StartTranslate(path, Context().Data());
  Expect(start == walked.startStatus, "a walk starts as the start does");
  auto next = walked.records.begin();
  for (std::uint64_t step = 0; step < walked.steps; ++step) {
    std::int32_t const offset = QvFileOffset(Context().Data());
    Record().Fill(0);
    QV_TranslateNextRec(Record().Data(), Context().Data());
    std::uint16_t code;
    std::memcpy(&code, Record().Data(), sizeof code);
    // What is all of bytes that the file does not have is not delivered.
    if (next == walked.records.end() || next->offset != offset) continue;
    Expect(code == next->code, "a walk delivers what its steps do");
    std::vector<std::uint8_t> raw = BytesOf(code);
    std::vector<std::uint8_t> delivered = next->bytes;
    DropClock(code, raw);
    DropClock(code, delivered);
    Expect(raw == delivered, "a walk leaves records as they are");
    ++next;
  }
  Expect(next == walked.records.end(), "all records of a walk come from its steps");
  QV_StopTranslate();
}

// What the look at the tail of a file can change in the records before a cut.

// The opening line of a results block of model 442, and a line of its level offset.
constexpr std::string_view kResultsBlock442 = "R  1,Hedrom-Pulke Model 442";

// The number behind the 'R' at a position, as the look reads it: behind white space and a sign.
int NumberBehind(std::string_view text, std::size_t at) {
  std::size_t next = text.find_first_not_of(" \t\n\v\f\r", at + 1);
  if (next != std::string_view::npos && (text[next] == '+' || text[next] == '-')) ++next;
  int number = 0;
  for (; next < text.size() && text[next] >= '0' && text[next] <= '9'; ++next) {
    number = std::min(number * 10 + (text[next] - '0'), 1000);
  }
  return number;
}

// Whether a file of model 442 has one level offset in whatever cut has one at all: one results
// block, and one line 106 behind its opening, with no line feed before the last character of its
// value.
bool HasOneLevelOffset(std::string_view text) {
  std::size_t const block = text.find(kResultsBlock442);
  if (block == std::string_view::npos) return true;
  if (text.find(kResultsBlock442, block + 1) != std::string_view::npos) return false;
  int offsets = 0;
  for (std::size_t at = text.find('R', block + 1); at != std::string_view::npos;
       at = text.find('R', at + 1)) {
    if (NumberBehind(text, at) != 106) continue;
    ++offsets;
    std::string_view const line = text.substr(at, text.find('\n', at) - at);
    // Characters 5 and on are the value: here it begins on the line itself.
    if (line.find_first_not_of(" \t\v\f\r", 5) == std::string_view::npos) return false;
  }
  return offsets <= 1;
}

bool OpensLikeModel442(std::string_view text) {
  return text.find("442") != std::string_view::npos;
}

// A settings line of less than five characters has as value what stood in the line's buffer before:
// at first a line of the tail.
bool HasShortLine(std::string_view block) {
  for (std::size_t at = 0; at < block.size();) {
    std::size_t const end = std::min(block.find('\n', at), block.size());
    if (end - at < 4) return true;
    at = end + 1;
  }
  return false;
}

// A band table is converted where it stands in the buffer, also what lies behind a body that is too
// short for it. Those bytes are of items read before, and of what was read ahead of them: the next
// block of a list, the 500 bytes of a stream. How far that reaches is a matter of the file's end.
std::size_t BandBodyNeeded(std::uint16_t code, std::size_t length) {
  switch (code) {
    case QV_INTERVAL_BANDS:
      return length < 200 ? 138 : 211;
    case QV_SUMMARY_BANDS:
      return 211;
    default:
      return 71;
  }
}

class Comparison {
 public:
  Comparison(const WalkedFile& input, std::string_view text, const WalkedFile& cut)
      : input_(input), text_(text), cut_(cut) {}

  void Run() {
    for (std::size_t at = 0; at < cut_.records.size() && cut_.records[at].whole; ++at) {
      Expect(at < input_.records.size(), "a cut file has no whole record that the file has not");
      const WalkedRecord& expected = input_.records[at];
      const WalkedRecord& found = cut_.records[at];
      Expect(expected.code == found.code && expected.offset == found.offset,
             "the whole records of a cut file are the first ones of the file");
      Expect(expected.whole, "what is whole in a cut file is whole in the file");
      std::string_view const item =
          text_.substr(static_cast<std::size_t>(found.offset),
                       static_cast<std::size_t>(found.behind - found.offset));
      // From here on anything may be read otherwise.
      if (found.code == QV_SETTINGS && HasShortLine(item)) return;
      Expect(IsSame(expected, found, item),
             "the whole records of a cut file are as those of the file");
    }
  }

 private:
  bool IsSame(WalkedRecord expected, WalkedRecord found, std::string_view item) const {
    if (IsBandRecord(found.code)) {
      if (!IsSameTime(expected, found)) return false;
      DropClock(found.code, expected.bytes);
      DropClock(found.code, found.bytes);
      std::size_t const length = item.size() - 3;
      if (length < BandBodyNeeded(found.code, length)) return true;
    } else if (found.code == QV_BLOCK_IMAGE) {
      // The last stop time, of the tail.
      Drop(offsetof(QvBlockImage, RecordTime), expected, found);
    } else if (found.code == QV_END) {
      // The latest time of all records, those of block images among them.
      Drop(offsetof(QvEnd, LatestRecordTime), expected, found);
    }
    return expected.bytes == found.bytes;
  }

  // A band record whose owner is not found has the time of the clock.
  bool IsSameTime(const WalkedRecord& expected, const WalkedRecord& found) const {
    std::int32_t const one = TimeOf(expected);
    std::int32_t const other = TimeOf(found);
    return one == other || (one >= input_.began && one <= input_.ended && other >= cut_.began &&
                            other <= cut_.ended);
  }

  static std::int32_t TimeOf(const WalkedRecord& record) {
    std::int32_t time;
    std::memcpy(&time, record.bytes.data() + offsetof(QvIntervalBands, RecordTime), sizeof time);
    return time;
  }

  static void Drop(std::size_t offset, WalkedRecord& one, WalkedRecord& other) {
    std::memset(one.bytes.data() + offset, 0, sizeof(std::int32_t));
    std::memset(other.bytes.data() + offset, 0, sizeof(std::int32_t));
  }

  const WalkedFile& input_;
  std::string_view text_;
  const WalkedFile& cut_;
};

}  // namespace

WalkedFile WalkToEnd(const char* path, std::size_t fileSize, Counting counting) {
  WalkedFile walked;
  walked.began = std::time(nullptr);
  QvWalk walk;
  QvRecordCensus census;
  bool const counts = counting == Counting::CensusFirst;
  Context().Fill(0xEE);
  Record().Fill(0xEE);
  walked.startStatus =
      QvWalkOpen(&walk, path, Context().Data(), Record().Data(), counts ? &census : nullptr);
  bool whole = walk.Whole != 0;
  std::int32_t offset = 0;
  while (walk.End == QV_WALK_GOES_ON) {
    QvWalkStep(&walk);
    ++walked.steps;
    Expect(walked.steps <= fileSize + 1,
           "a walk takes no more steps than there are bytes, and one");
    Expect(walk.Offset >= offset && QvFileOffset(Context().Data()) >= walk.Offset,
           "a walk does not go back");
    Expect(whole || walk.Whole == 0, "what is cut stays cut");
    Expect((walk.Missing == 0) || walk.Whole == 0, "bytes that are missing are missing");
    whole = walk.Whole != 0;
    offset = walk.Offset;
    if (walk.Code == QV_NO_RECORD) continue;
    walked.records.push_back(
        {walk.Code, whole, offset, QvFileOffset(Context().Data()), BytesOf(walk.Code)});
  }
  QvWalkClose(&walk);
  walked.end = walk.End;
  walked.ended = std::time(nullptr);
  Expect((walk.End == QV_WALK_AT_END) ==
             (!walked.records.empty() && walked.records.back().code == QV_END),
         "the end record is the last of a walk that came to the end");
  Expect(QvWalkWhy(&walk)[0] != '\0', "a walk tells why it ended");
  ExpectSameCalls(path, walked);
  return walked;
}

void ExpectPrefix(const WalkedFile& input, std::span<const std::uint8_t> bytes,
                  const WalkedFile& cut, std::size_t cutSize) {
  std::string_view const text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  Expect(cutSize <= text.size(), "a cut file is no longer");
  // The look at the tail of the input fails, as it can in files of a few kilobytes whose lines lead
  // it back behind their start.
  if (input.end == QV_WALK_NOT_STARTED) return;
  if (OpensLikeModel442(text) && !HasOneLevelOffset(text)) return;
  Comparison(input, text, cut).Run();
}

std::size_t CutOf(std::span<const std::uint8_t> bytes) {
  std::uint64_t sum = 14695981039346656037U;
  for (std::uint8_t const byte : bytes) sum = (sum ^ byte) * 1099511628211U;
  return bytes.empty() ? 0 : static_cast<std::size_t>(sum >> 16) % bytes.size();
}

}  // namespace fuzz
