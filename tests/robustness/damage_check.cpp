#include "robustness/damage_check.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <set>
#include <stdexcept>

#include "robustness/promised_statuses.h"
#include "support/file_contents.h"

namespace test {

namespace {

constexpr int kUntouched = 0xEE;
constexpr int kIdleSteps = 3;
constexpr std::size_t kSmall = 6000;  // bytes of a sample that is tried at every position

std::string SampleBytes(const std::string& path) {
  std::string bytes = Contents(path);
  if (bytes.empty()) throw std::runtime_error("cannot read " + path);
  return bytes;
}

// The files are always there, and so is memory.
std::string Unpromised(Export call, int status) {
  bool const lacking = status == QV_CANNOT_OPEN || status == QV_NO_MEMORY;
  if (IsPromised(call, status) && !lacking) return "";
  return std::string(NameOf(call)) + " returned " + std::to_string(status);
}

bool IsBandRecord(int code) {
  return code == QV_LEVEL_MARK_BANDS || code == QV_INTERVAL_BANDS || code == QV_SUMMARY_BANDS ||
         code == QV_INTERVAL_BAND_SERIES;
}

bool IsListBlock(int code) {
  return code == QV_TIMED_SPECTRUM || code == QV_FIELD_HISTORY;
}

bool Starts(int status) {
  return status == QV_OK || status == QV_NO_TEXT_HEADER;
}

}  // namespace

DamageCheck::DamageCheck(const std::string& path)
    : bytes_(SampleBytes(path)), file_(bytes_), path_(file_.Path()) {
  std::time_t const now = std::time(nullptr);
  start_ = Start();
  if (!Starts(start_)) throw std::runtime_error("cannot start");
  lastStopTime_ = State().LastStopTime;
  levelOffset_ = State().LevelOffset;
  dataBegin_ = static_cast<std::size_t>(State().FileOffset);
  Walked walked{};
  do {
    walked = Step();
    whole_.push_back(walked);
    records_.emplace_back(session_.Record(), session_.Record() + QV_OUTPUT_RECORD_SIZE);
    if (IsBandRecord(walked.code) && session_.As<QvIntervalBands>().RecordTime >= now) {
      throw std::runtime_error("a band record without its owner");
    }
  } while (walked.status >= 0);
  if (walked.status != QV_END_OF_DATA) throw std::runtime_error("the sample is not whole");
  QV_StopTranslate();
  tailBegin_ = std::min(bytes_.rfind("R  1,Hedrom-Pulke Model"), bytes_.size());
}

std::vector<std::size_t> DamageCheck::Positions(std::size_t most) const {
  constexpr std::size_t kStride = 97;
  std::set<std::size_t> positions;
  auto const addAround = [&](std::size_t position) {
    for (std::size_t at = position < 2 ? 0 : position - 2; at <= position + 2; ++at) {
      if (at < bytes_.size()) positions.insert(at);
    }
  };
  std::size_t const stride = bytes_.size() < kSmall ? 1 : kStride;
  for (std::size_t at = 0; at < bytes_.size(); at += stride) positions.insert(at);
  for (const Walked& step : whole_) addAround(static_cast<std::size_t>(step.end));
  for (std::size_t at = bytes_.find('\n'); at < dataBegin_; at = bytes_.find('\n', at + 1)) {
    addAround(at);
  }
  std::vector<std::size_t> chosen;
  std::size_t const every = bytes_.size() < kSmall ? 1 : positions.size() / most + 1;
  std::size_t number = 0;
  for (std::size_t const position : positions) {
    if (number++ % every == 0) chosen.push_back(position);
  }
  return chosen;
}

int DamageCheck::Start() {
  std::memset(session_.Context(), 0, QV_GetBufferSize());
  return session_.Start(path_);
}

DamageCheck::Walked DamageCheck::Step() {
  std::memset(session_.Record(), kUntouched, QV_OUTPUT_RECORD_SIZE);
  int const status = QV_TranslateNextRec(session_.Record(), session_.Context());
  const qvslm::TranslateContext& state = State();
  std::int32_t const fetched =
      std::max({state.FirstOffset1, state.FirstOffset2, state.FirstOffset5});
  return {status, session_.Code(), state.FileOffset, fetched, state.LevelOffset};
}

std::string DamageCheck::TryLookups() {
  void* const context = session_.Context();
  std::uint16_t model = 0;
  float firmware = 0;
  std::int16_t count = 0;
  auto* const info = reinterpret_cast<QvFileHeaderInfo*>(info_.Data());
  auto* const serial = reinterpret_cast<char*>(serial_.Data());
  int const header = QV_ReadFileHeader(path_.c_str(), context, info);
  int const identity = QV_ReadFileSN(path_.c_str(), context, &model, serial, &firmware);
  int const sites = QV_ReadSiteNum(path_.c_str(), context, &count);
  return Unpromised(Export::ReadFileHeader, header) + Unpromised(Export::ReadFileSN, identity) +
         Unpromised(Export::ReadSiteNum, sites);
}

std::string DamageCheck::TryCensus() {
  std::memset(session_.Context(), 0, QV_GetBufferSize());
  int const status = session_.Census(path_);
  QV_StopTranslate();
  return Unpromised(Export::GetRecordCount, status);
}

// Whether a step did what it may do, whatever the file holds.
std::string DamageCheck::Judge(const Walked& walked) const {
  static const std::vector<std::uint8_t> untouched(QV_OUTPUT_RECORD_SIZE, kUntouched);
  std::string fault = Unpromised(Export::TranslateNextRec, walked.status);
  if (walked.code == QV_NO_RECORD) return fault;
  std::size_t const size = QvRecordSize(static_cast<std::uint16_t>(walked.code));
  if (size == 0) return fault + "a record of code " + std::to_string(walked.code);
  if (std::memcmp(session_.Record() + size, untouched.data() + size, untouched.size() - size) !=
      0) {
    fault += "bytes behind a record of code " + std::to_string(walked.code) + " are written";
  }
  return fault;
}

bool DamageCheck::FoundTheSameTail() const {
  return State().LastStopTime == lastStopTime_ && State().LevelOffset == levelOffset_;
}

bool DamageCheck::IsAsWhole(std::size_t step, const Walked& walked, std::size_t damagedFrom,
                            bool ownersAreThere) const {
  const Walked& whole = whole_[step];
  bool const closesList = IsListBlock(whole.code) && walked.end == whole.end + 1 &&
                          damagedFrom == static_cast<std::size_t>(whole.end);
  if (walked.status != whole.status || (walked.end != whole.end && !closesList)) return false;
  constexpr std::size_t kTime = offsetof(QvIntervalBands, RecordTime);
  constexpr std::size_t kBehindTime = kTime + sizeof(std::int32_t);
  const std::uint8_t* const found = session_.Record();
  const std::uint8_t* const expected = records_[step].data();
  if (ownersAreThere || !IsBandRecord(whole.code)) {
    return std::memcmp(found, expected, QV_OUTPUT_RECORD_SIZE) == 0;
  }
  return std::memcmp(found, expected, kTime) == 0 &&
         std::memcmp(found + kBehindTime, expected + kBehindTime,
                     QV_OUTPUT_RECORD_SIZE - kBehindTime) == 0;
}

std::string DamageCheck::TryTranslation(std::size_t damagedFrom) {
  int const start = Start();
  std::string fault = Unpromised(Export::StartTranslate, start);
  bool const sameStart = start == start_ && FoundTheSameTail();
  bool const headIsThere = damagedFrom >= std::max<std::size_t>(dataBegin_, 1);
  if (!sameStart && headIsThere && tailIsThere_) fault += "the start found another tail";
  if (!Starts(start)) return fault;

  auto const size = static_cast<std::int64_t>(bytes_.size());
  bool comparable = sameStart;
  bool ownersAreThere = true;
  int idle = 0;
  for (std::size_t at = 0; idle < kIdleSteps && fault.empty(); ++at) {
    std::int32_t const before = State().FileOffset;
    Walked const walked = Step();
    fault = Judge(walked);
    if (walked.end < before) fault += "the walk goes back";
    idle = walked.end == before || walked.end > size ? idle + 1 : 0;

    comparable =
        comparable && at < whole_.size() && static_cast<std::size_t>(whole_[at].end) <= damagedFrom;
    if (!comparable) continue;
    ++compared_;
    const Walked& whole = whole_[at];
    if (static_cast<std::size_t>(whole.fetched) > damagedFrom) ownersAreThere = false;
    if (!IsAsWhole(at, walked, damagedFrom, ownersAreThere)) {
      fault += "step " + std::to_string(at) + ", code " + std::to_string(whole.code) +
               ", ends before the damage and is another";
    }
    bool const lookedAhead = walked.levelOffset != whole.levelOffset;
    if (lookedAhead && walked.code != QV_REFERENCE_431) fault += "another level offset";
    comparable = !lookedAhead;
  }
  return fault;
}

std::string DamageCheck::Try(std::size_t damagedFrom, bool tailIsThere) {
  tailIsThere_ = tailIsThere;
  std::string fault = TryLookups();
  fault += TryCensus();
  fault += TryTranslation(damagedFrom);
  QV_StopTranslate();
  return fault;
}

}  // namespace test
