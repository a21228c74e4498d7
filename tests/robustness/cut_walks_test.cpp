// Walks of qvslm_walk.h over cut files: every sample, cut everywhere.
//
// A walk of a cut file delivers as whole what the file delivered before it was cut, up to the first
// record that rests on what is missing, and no further:
//
// - each record whose item, block or samples end within the cut file is delivered;
// - of these the first that rests on bytes behind the cut is not whole any more, nor is any behind
//   it. Three kinds do: a block of text lines that ends with the file, a band record whose owner
//   stands behind the cut, and the reference record of model 431, which looks ahead for the level
//   offset.
//
// Files that cannot be started deliver nothing: those that are shorter than the tail that the start
// looks at, and those of model 442 without their results block.
//
// The zone is UTC. Elsewhere the census of a cut file can find another daylight span.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iostream>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "qvslm_walk.h"
#include "robustness/every_sample.h"
#include "samples/sample_check.h"
#include "support/file_contents.h"
#include "support/guarded_buffer.h"
#include "support/memory_file.h"
#include "support/scoped_zone.h"

namespace test {
namespace {

constexpr std::size_t kCutEverywhere = 6000;  // samples of up to so many bytes
constexpr std::size_t kCutsOfLarge = 2000;

struct WholeRecord {
  int code;
  std::size_t begin;   // of the step that delivered it
  std::size_t behind;  // where the next step began
  std::size_t needed;  // the record is certain in a file that has so many bytes
  std::vector<std::uint8_t> bytes;
};

// Where the line of register 106 ends in the results block at the end of a file.
std::size_t LevelOffsetEnd(const std::string& bytes) {
  std::size_t const line = bytes.rfind("\nR106,");
  return line == std::string::npos ? bytes.size() : bytes.find('\n', line + 1) + 1;
}

// The family that owns a band record, by type code; 0 for other records.
int OwnersOf(int code) {
  if (code == QV_LEVEL_MARK_BANDS) return QV_LEVEL_MARK;
  if (code == QV_SUMMARY_BANDS) return QV_SUMMARY;
  return code == QV_INTERVAL_BANDS || code == QV_INTERVAL_BAND_SERIES ? QV_INTERVAL : 0;
}

std::uint32_t OwnerNumber(const WholeRecord& record) {
  std::size_t offset = offsetof(QvLevelMarkBands, OwnerNumber);
  if (record.code == QV_INTERVAL_BANDS) offset = offsetof(QvIntervalBands, OwnerNumber);
  std::uint32_t number;
  std::memcpy(&number, record.bytes.data() + offset, sizeof number);
  return number;
}
static_assert(offsetof(QvSummaryBands, OwnerNumber) == offsetof(QvLevelMarkBands, OwnerNumber) &&
              offsetof(QvIntervalBandSeries, OwnerNumber) ==
                  offsetof(QvLevelMarkBands, OwnerNumber));

bool IsTextBlock(int code) {
  return code == QV_SETTINGS || code == QV_RESULTS || code == QV_RESULTS_431 ||
         code == QV_RESULTS_442;
}

// How long a file must be for a record to rest on nothing behind its end. At the end of a file a
// block of lines may have been longer.
std::size_t Needed(const std::vector<WholeRecord>& records, std::size_t at,
                   const std::string& bytes) {
  const WholeRecord& record = records[at];
  if (IsTextBlock(record.code)) return record.behind + 1;
  if (record.code == QV_REFERENCE_431) return LevelOffsetEnd(bytes);
  int const owners = OwnersOf(record.code);
  if (owners == 0) return record.behind;
  std::uint32_t wanted = OwnerNumber(record);
  for (const WholeRecord& owner : records) {
    if (owner.code == owners && --wanted == 0) return std::max(record.behind, owner.behind);
  }
  ADD_FAILURE() << "a band record without an owner";
  return 0;
}

struct Totals {
  std::size_t cuts = 0;
  std::size_t whole = 0;       // records that were delivered as whole, and compared
  std::size_t uncertain = 0;   // delivered, but not as whole
  std::size_t notStarted = 0;  // walks
};

// One sample, and walks of it at any length.
class CutSample {
 public:
  CutSample(const std::string& name, bool census)
      : bytes_(Contents(SamplePath(name))), file_(bytes_), path_(file_.Path()), census_(census) {
    Open(false);
    dataBegin_ = static_cast<std::size_t>(QvFileOffset(context_.Data()));
    while (Step(bytes_.size())) {
      if (walk_.Code == QV_NO_RECORD) continue;
      records_.push_back({walk_.Code,
                          static_cast<std::size_t>(walk_.Offset),
                          Place(),
                          0,
                          {record_.Data(),
                           record_.Data() + QvRecordSize(static_cast<std::uint16_t>(walk_.Code))}});
      EXPECT_EQ(walk_.Whole, 1) << "record " << records_.size() - 1;
    }
    QvWalkClose(&walk_);
    EXPECT_TRUE(QvWalkWasWhole(&walk_)) << QvWalkWhy(&walk_);
    for (std::size_t at = 0; at < records_.size(); ++at) {
      records_[at].needed = Needed(records_, at, bytes_);
    }
  }

  // Longest first.
  std::vector<std::size_t> Lengths() const {
    std::set<std::size_t> lengths{bytes_.size()};
    for (const WholeRecord& record : records_) {
      for (std::size_t const place : {record.begin, record.behind}) {
        for (std::size_t at = place - 1; at <= place + 1; ++at) lengths.insert(at);
      }
    }
    std::size_t const stride = bytes_.size() <= kCutEverywhere
                                   ? 1
                                   : std::max(bytes_.size() / kCutsOfLarge, std::size_t{1});
    for (std::size_t at = 0; at < bytes_.size(); at += stride) lengths.insert(at);
    lengths.erase(lengths.upper_bound(bytes_.size()), lengths.end());
    return {lengths.rbegin(), lengths.rend()};
  }

  // Empty, or what is wrong.
  std::string Try(std::size_t length, Totals& totals) {
    file_.Resize(length);
    Open(census_);
    std::string const fault = Judge(length, totals);
    QvWalkClose(&walk_);
    ++totals.cuts;
    return fault;
  }

 private:
  std::size_t Place() const { return static_cast<std::size_t>(QvFileOffset(context_.Data())); }

  void Open(bool census) {
    context_.Fill(0xEE);
    record_.Fill(0xEE);
    steps_ = 0;
    QvWalkOpen(&walk_, path_.c_str(), context_.Data(), record_.Data(), census ? &counts_ : nullptr);
  }

  // What QvWalkNext does, but for passing over steps without a record. False when the walk has
  // ended with nothing in hand.
  bool Step(std::size_t size) {
    if (walk_.End != QV_WALK_GOES_ON) return false;
    std::size_t const before = Place();
    QvWalkStep(&walk_);
    if (++steps_ > size + 1) ADD_FAILURE() << steps_ << " steps over " << size << " bytes";
    if (Place() < before) ADD_FAILURE() << "back from " << before << " to " << Place();
    return steps_ <= size + 1 && (walk_.End == QV_WALK_GOES_ON || walk_.Code != QV_NO_RECORD);
  }

  // The bytes that a file must have for the start to find what it looks for.
  std::size_t Startable() const {
    bool const hasHeader = bytes_.find("Date/Time:") < dataBegin_;
    if (!hasHeader) return dataBegin_ + 1;
    if (bytes_.rfind("R  1,Hedrom-Pulke Model 442") != std::string::npos) {
      return LevelOffsetEnd(bytes_);
    }
    return QvMode(context_.Data()) != 0 || IsModel431() ? 1000 : 2500;
  }
  bool IsModel431() const { return bytes_.find("\n431 ") < dataBegin_; }

  std::string Judge(std::size_t length, Totals& totals) {
    if (walk_.End == QV_WALK_NOT_STARTED) ++totals.notStarted;
    std::size_t at = 0;
    bool certain = true;
    while (Step(length)) {
      if (walk_.Code == QV_NO_RECORD) continue;
      if (at < records_.size() && records_[at].behind <= length) {
        certain = certain && records_[at].needed <= length;
        if (certain != (walk_.Whole != 0)) return Named(at) + " is whole or not, and should not be";
      } else if (walk_.Whole != 0) {
        return Named(at) + " is whole and not all there";
      }
      if (walk_.Whole != 0 && !IsAsWhole(records_[at])) return Named(at) + " is another";
      ++(walk_.Whole != 0 ? totals.whole : totals.uncertain);
      ++at;
    }
    bool const all = length == bytes_.size();
    if (all != QvWalkWasWhole(&walk_)) return std::string("it ended so: ") + QvWalkWhy(&walk_);
    if (length < Startable()) return "";
    if (at < records_.size() && records_[at].behind <= length) return Named(at) + " is lost";
    return "";
  }

  static std::string Named(std::size_t at) { return "record " + std::to_string(at); }

  // But for the times that come from the look at the file's tail.
  bool IsAsWhole(const WholeRecord& whole) const {
    if (walk_.Code != whole.code || static_cast<std::size_t>(walk_.Offset) != whole.begin) {
      return false;
    }
    std::size_t tail = whole.bytes.size();
    if (whole.code == QV_BLOCK_IMAGE) tail = offsetof(QvBlockImage, RecordTime);
    if (whole.code == QV_END) tail = offsetof(QvEnd, LatestRecordTime);
    std::size_t const behind = std::min(tail + sizeof(std::int32_t), whole.bytes.size());
    return IsSame(whole, 0, tail) && IsSame(whole, behind, whole.bytes.size());
  }
  bool IsSame(const WholeRecord& whole, std::size_t from, std::size_t to) const {
    return std::memcmp(record_.Data() + from, whole.bytes.data() + from, to - from) == 0;
  }

  std::string bytes_;
  MemoryFile file_;
  std::string path_;
  bool census_;
  GuardedBuffer context_{QV_GetBufferSize()};
  GuardedBuffer record_{QV_OUTPUT_RECORD_SIZE};
  QvWalk walk_{};
  QvRecordCensus counts_{};
  std::size_t steps_ = 0;
  std::size_t dataBegin_ = 0;
  std::vector<WholeRecord> records_;
};

class CutWalks : public testing::TestWithParam<std::tuple<std::string, bool>> {
 protected:
  static void TearDownTestSuite() {
    std::cout << "cut walks: " << totals.cuts << " cuts, of which " << totals.notStarted
              << " cannot be started; " << totals.whole << " records compared, " << totals.uncertain
              << " not whole\n";
  }
  static inline Totals totals;
};

TEST_P(CutWalks, DeliverTheFirstRecordsOfTheFile) {
  ScopedZone const zone("UTC");
  const auto& [name, census] = GetParam();
  CutSample sample(name, census);
  Totals found;
  for (std::size_t const length : sample.Lengths()) {
    ASSERT_EQ(sample.Try(length, found), "") << "cut to " << length << " bytes";
  }
  EXPECT_GT(found.whole, 0U);
  EXPECT_GT(found.uncertain, 0U);
  RecordProperty("cuts", static_cast<int>(found.cuts));
  totals.cuts += found.cuts;
  totals.whole += found.whole;
  totals.uncertain += found.uncertain;
  totals.notStarted += found.notStarted;
}

INSTANTIATE_TEST_SUITE_P(Samples, CutWalks,
                         testing::Combine(testing::ValuesIn(SampleNames()), testing::Bool()),
                         [](const auto& param) {
                           const std::string& name = std::get<0>(param.param);
                           return name.substr(0, name.find('.')) +
                                  (std::get<1>(param.param) ? "Counted" : "");
                         });

}  // namespace
}  // namespace test
