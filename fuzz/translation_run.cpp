#include "translation_run.h"

#include <cstring>
#include <utility>

#include "oracles.h"
#include "work_bound.h"

namespace fuzz {

namespace {

constexpr int kMostSteps = 1500;
constexpr int kMostIdleSteps = 200;
constexpr int kMostEnds = 4;  // what stands behind an end of data is read on, too

template <class Record>
Record RecordIn(const PatternBuffer& buffer) {
  Record record;
  std::memcpy(&record, buffer.Data(), sizeof record);
  return record;
}

class Run {
 public:
  Run(std::size_t fileSize, ContextUse use, std::size_t intervalSize)
      : fileSize_(fileSize), use_(use), intervalSize_(intervalSize) {
    context_->Fill(0);
  }

  Translation Whole(const char* path) {
    Start(path);
    bool const canGoOn = result_.startStatus == QV_OK || result_.startStatus == QV_NO_TEXT_HEADER;
    if (canGoOn) Walk();
    QV_StopTranslate();
    Expect(FilesOpen() == 0, "the stop closes the file");
    return std::move(result_);
  }

 private:
  void Start(const char* path) {
    result_.startStatus = Bounded(fileSize_, Reads::OverTheFile,
                                  [&] { return QV_StartTranslate(path, context_->Data()); });
    Expect(IsOneOf(result_.startStatus, {QV_OK, QV_NO_TEXT_HEADER, QV_SEEK_FAILED,
                                         QV_TAIL_SEEK_FAILED, QV_NOT_FOUND, QV_NO_MEMORY}),
           "a status of the start");
    Expect(FilesOpen() == 1, "a start leaves its file open");
  }

  void Walk() {
    Delivered& delivered = result_.delivered;
    delivered.outcome = Outcome::WasTooManySteps;
    int ends = 0;
    int idle = 0;
    for (int step = 0; step < kMostSteps && idle < kMostIdleSteps && ends < kMostEnds; ++step) {
      std::int32_t const status = Step();
      std::uint16_t const type = Type();
      Log(status);
      if (status == QV_END_OF_DATA) {
        ++ends;
        if (ends == 1) delivered.outcome = Outcome::ReachedEnd;
      } else if (ends == 0) {
        Note(type);
      }
      if (status < 0 && type == QV_NO_RECORD) {
        if (ends == 0) {
          delivered.outcome = status == QV_RECORD_TOO_SHORT ? Outcome::StoodStill : Outcome::Failed;
        }
        if (status == QV_BAD_LENGTH) ExpectSameFailureAgain();
        return;
      }
      idle = type == QV_NO_RECORD ? idle + 1 : 0;
    }
  }

  std::int32_t Step() {
    if (use_ == ContextUse::Moved) Move();
    record_->Refill();
    std::int32_t const status = Bounded(fileSize_, Reads::OverTheFile, [&] {
      return QV_TranslateNextRec(record_->Data(), context_->Data());
    });
    // A step opens the file anew behind the end of the data, and closes it there.
    Expect(FilesOpen() == (status == QV_END_OF_DATA ? 0 : 1), "a file is open up to its end");
    CheckStep(status);
    return status;
  }

  void CheckStep(std::int32_t status) const {
    std::uint16_t const type = Type();
    Expect(
        IsPublicStatus(status) && !IsOneOf(status, {QV_CANNOT_OPEN, QV_NO_ARGUMENT, QV_NO_MEMORY}),
        "a status of a step");
    Expect((status == QV_END_OF_DATA) == (type == QV_END), "the end record comes at the end");
    if (IsOneOf(status, {QV_BAD_LENGTH, QV_SEEK_FAILED})) {
      Expect(type == QV_NO_RECORD, "a step that failed has no record");
    }
    if (status == QV_BAD_LENGTH) {
      Expect(record_->IsUntouchedFrom(sizeof type), "a step that failed writes nothing else");
    }
    if (type == QV_NO_RECORD) {
      Expect(record_->IsUntouchedFrom(kUnfinishedSize), "a step without a record writes little");
      return;
    }
    std::size_t const size = type == QV_INTERVAL ? intervalSize_ : RecordSize(type);
    Expect(size != 0, "a type code of the table");
    Expect(record_->IsUntouchedFrom(size), "a step writes nothing behind its record");
  }

  void ExpectSameFailureAgain() {
    Expect(Step() == QV_BAD_LENGTH, "an item that cannot be read is met again");
  }

  void Note(std::uint16_t type) {
    Delivered& delivered = result_.delivered;
    ++delivered.records.at(type);
    if (type == QV_TIME_HISTORY) {
      auto const record = RecordIn<QvTimeHistory>(*record_);
      Expect(record.EntryCount >= 1 && record.EntryCount <= 60, "a sample record has 1 to 60");
      delivered.streamEntries += record.EntryCount;
    }
    if (type == QV_BLOCK_IMAGE) {
      auto const record = RecordIn<QvBlockImage>(*record_);
      for (int const bit : {64, 32, 16}) {
        if ((record.BlockFlags & bit) != 0) ++delivered.blockImages;
      }
    }
    if (type == QV_TIMED_SPECTRUM && RecordIn<QvTimedSpectrum>(*record_).BlockByte == 0) {
      ++delivered.emptyFirstBlocks;
    }
  }

  void Log(std::int32_t status) {
    std::uint16_t const type = Type();
    std::size_t const size = type == QV_NO_RECORD ? kUnfinishedSize : RecordSize(type);
    // A band record whose owner is not found has the present time.
    bool const clock = type >= QV_LEVEL_MARK_BANDS && type <= QV_INTERVAL_BAND_SERIES;
    if (clock) std::memset(record_->Data() + offsetof(QvLevelMarkBands, RecordTime), 0, 4);
    auto const* const statusBytes = reinterpret_cast<const std::uint8_t*>(&status);
    result_.log.insert(result_.log.end(), statusBytes, statusBytes + sizeof status);
    result_.log.insert(result_.log.end(), record_->Data(), record_->Data() + size);
  }

  void Move() {
    std::memcpy(other_->Data(), context_->Data(), context_->Size());
    context_->Fill(0xEE);
    std::swap(context_, other_);
  }

  std::int64_t FilesOpen() const { return WorkSoFar().filesOpen - openBefore_; }

  std::uint16_t Type() const { return RecordIn<std::uint16_t>(*record_); }

  static test::GuardedBuffer& ContextBuffer(int which) {
    static test::GuardedBuffer buffers[2]{test::GuardedBuffer(9984), test::GuardedBuffer(9984)};
    return buffers[which];
  }

  static PatternBuffer& Record() {
    static PatternBuffer buffer(QV_OUTPUT_RECORD_SIZE);
    return buffer;
  }

  std::int64_t openBefore_ = WorkSoFar().filesOpen;
  std::size_t fileSize_;
  ContextUse use_;
  std::size_t intervalSize_;
  test::GuardedBuffer* context_ = &ContextBuffer(0);
  test::GuardedBuffer* other_ = &ContextBuffer(1);
  PatternBuffer* record_ = &Record();
  Translation result_;
};

static_assert(offsetof(QvLevelMarkBands, RecordTime) == 4 &&
              offsetof(QvIntervalBands, RecordTime) == 4 &&
              offsetof(QvSummaryBands, RecordTime) == 4 &&
              offsetof(QvIntervalBandSeries, RecordTime) == 4);

}  // namespace

Translation Translate(const char* path, std::size_t fileSize, ContextUse use,
                      std::size_t intervalSize) {
  return Run(fileSize, use, intervalSize).Whole(path);
}

}  // namespace fuzz
