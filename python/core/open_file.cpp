#include "open_file.h"

#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace python {

namespace {

// The reader in hand, for as long as this stands.
class Hand {
 public:
  explicit Hand(QvReader* reader) : reader_(reader) { QvTakeReader(reader); }
  ~Hand() { QvLayDownReader(reader_); }
  Hand(const Hand&) = delete;
  Hand& operator=(const Hand&) = delete;

 private:
  QvReader* reader_;
};

constexpr std::size_t kCodes = 128;
constexpr std::size_t kNone = kRecordCount;

// The record of a type code, by its place; of code 1 the one that is not of mode 4.
constexpr std::array<std::size_t, kCodes> KindsByCode() {
  std::array<std::size_t, kCodes> kinds{};
  kinds.fill(kNone);
  for (std::size_t at = 0; at < kRecordCount; ++at) {
    const record_fields::RecordInfo& record = record_fields::kRecords[at];
    if (record.code > 0 && record.structName != "QvBandInterval") {
      kinds.at(static_cast<std::size_t>(record.code)) = at;
    }
  }
  return kinds;
}
constexpr std::array<std::size_t, kCodes> kKindsByCode = KindsByCode();

constexpr std::size_t PlaceOf(std::string_view structName) {
  for (std::size_t at = 0; at < kRecordCount; ++at) {
    if (record_fields::kRecords[at].structName == structName) return at;
  }
  return kNone;
}

template <class Record>
Record As(const QvWalk& walk) {
  Record record;
  std::memcpy(&record, walk.Record, sizeof record);
  return record;
}

// The header's date and time stand in columns of one line.
std::int32_t TimeOf(const QvFileHeaderInfo& header) {
  constexpr std::size_t dateColumn = 10;
  constexpr std::size_t timeColumn = 20;
  std::string const line(header.HeaderLine5,
                         strnlen(header.HeaderLine5, sizeof header.HeaderLine5));
  if (line.size() < timeColumn) return 0;
  return static_cast<std::int32_t>(
      TX_DateToSecs(line.substr(dateColumn, 9).c_str(), line.substr(timeColumn, 8).c_str(), 0));
}

}  // namespace

OpenFile::OpenFile(std::string path, std::vector<QvZoneChange> zone)
    : path_(std::move(path)),
      zone_(std::move(zone)),
      reader_(QvNewReader()),
      context_(QV_GetBufferSize() / sizeof(std::uint64_t)),
      record_(QV_OUTPUT_RECORD_SIZE / sizeof(std::uint32_t)) {
  if (reader_ == nullptr) throw std::bad_alloc();
  Hand const hand(reader_);
  QvUseZone(zone_.data(), zone_.size());
  headerStatus_ = QV_ReadFileHeader(path_.c_str(), context_.data(), &header_);
  headerTime_ = TimeOf(header_);
  QV_ReadFileSN(path_.c_str(), context_.data(), nullptr, serial_, nullptr);
  QV_ReadSiteNum(path_.c_str(), context_.data(), &siteCount_);
  QvWalkOpen(&walk_, path_.c_str(), context_.data(), record_.data(), &census_);
  open_ = true;
}

OpenFile::~OpenFile() {
  Close();
  QvFreeReader(reader_);
}

void OpenFile::Close() {
  std::lock_guard const lock(mutex_);
  if (!open_) return;
  Hand const hand(reader_);
  QvWalkClose(&walk_);
  open_ = false;
}

std::size_t OpenFile::KindInHand() const {
  constexpr int bandAnalyser = 4;
  constexpr std::size_t bandInterval = PlaceOf("QvBandInterval");
  if (walk_.Code == QV_INTERVAL && QvMode(walk_.Context) == bandAnalyser) return bandInterval;
  return walk_.Code < kCodes ? kKindsByCode[walk_.Code] : kNone;
}

void OpenFile::Note() {
  constexpr int runStart = 64;
  switch (walk_.Code) {
    case QV_SETTINGS:
      if (found_.firstBlockTime == 0) found_.firstBlockTime = As<QvSettings>(walk_).BlockTime;
      break;
    case QV_EVENT: {
      auto const event = As<QvEvent>(walk_);
      if (event.EventCode == runStart && found_.firstRunStart == 0) {
        found_.firstRunStart = event.RecordTime;
      }
      break;
    }
    case QV_END:
      found_.end = As<QvEnd>(walk_);
      break;
    default:
      break;
  }
}

void OpenFile::Decode(const Choice& choice, std::uint64_t most, RowsOfKinds& rows) {
  std::lock_guard const lock(mutex_);
  if (!open_) return;
  Hand const hand(reader_);
  std::uint64_t taken = 0;
  while (taken < most && QvWalkNext(&walk_) != 0) {
    if (walk_.Whole == 0) {
      ++leftOut_;
      continue;
    }
    if (walk_.Short != 0) ++shortItems_;
    Note();
    std::size_t const kind = KindInHand();
    if (kind == kNone || !choice[kind]) continue;
    rows[kind].Append(walk_.Record, record_fields::kRecords[kind].size);
    ++taken;
  }
}

}  // namespace python
