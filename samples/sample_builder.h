// Builds a sample: writes items into a file, and beside it the records that they stand for.
//
// SampleBuilder holds the file, the census and the state of the instrument that "writes" it:
// settings that decide how later items look, and counts. The items themselves are added by the
// functions of the ..._items.h and ..._block.h headers, which put a value into the body and the
// same value into the record, field by field in file order.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "clock.h"
#include "data_file_writer.h"
#include "sample.h"

namespace samples {

struct AuxChannel {
  std::string name;
  std::string units;
  float low = 0;
  float high = 0;
};

// What the settings, setups and items written so far mean for the items to come.
struct Instrument {
  int model = 486;
  int mode = 0;
  double firmware = 0;  // as the files hold it: a single-precision number
  bool above09 = false;
  int site = 0;
  Clock header = 0;
  Clock lastStop = 0;  // of the results block at the end of the file, less one second

  float levelOffset = 0;
  int streamLevelBase = 0;
  float referenceLevel = 0;
  float thresholdLevel = 0;
  int limitLevel = 0;
  int setupFlags = 0;
  int bandFlag = 0;

  bool levelInRecord = false;
  bool timeIsEnd = false;
  bool intervalAux = false;
  bool intervalSamples = false;
  float intervalSamplePeriod = 0;
  bool extraBlock = false;
  bool distribution = false;   // in intervals and day summaries
  bool distribution2 = false;  // in summaries
  bool summaryLn = false;
  bool summaryAux = false;
  bool dayLn = false;
  int settingQ118 = 0;
  int settingQ120 = 0;
  int auxEnabled1 = 0;
  AuxChannel aux[3];
  bool secondSpectrum = false;
  int spectraKind = 0;

  bool wholeDb = false;
  int secondLevelKind = 0;
  float streamPeriod = 0;
  int streamSelector = 0;
  int streamMasks[6] = {};  // of the groups 1 to 6

  // Passed on to the results.
  std::array<float, 6> sixValues{};
  std::uint16_t keptA = 0;
  std::uint16_t keptB = 0;
  std::uint16_t settingQ47 = 0;
  std::uint16_t settingQ50 = 0;
  std::uint16_t settingQ53 = 0;
  std::uint16_t settingQ54 = 0;
  std::uint16_t settingQ209 = 0;
  std::uint16_t modeFormFlag = 0;
  float settingQ147 = 0;

  // Running state of the time histories.
  Clock historyTime = 0;  // of the first entry of the next time history record
  double streamTime = 0;  // of the next sample
  std::uint32_t entries = 0;
  std::uint32_t spectra = 0;
  std::vector<Clock> runEvents;  // codes 64 and 80
  std::vector<Clock> otherEvents;
  std::size_t runEventsUsed = 0;
  std::size_t otherEventsUsed = 0;

  // Start of each interval, summary and level mark, which band items refer to by number.
  std::vector<Clock> intervals;
  std::vector<Clock> summaries;
  std::vector<Clock> marks;
  std::uint32_t dayCount = 0;
  std::uint32_t eventCount = 0;
  std::uint32_t bandCount = 0;
  int seriesOwner = -1;
  int seriesNumber = 0;
};

class SampleBuilder {
 public:
  // A builder for large files keeps neither records nor the numbers of those written.
  enum class Keep { kRecords, kNothing };
  explicit SampleBuilder(Keep keep = Keep::kRecords) : keep_(keep) {}

  // The text header, or the titles before it or before a settings block.
  SampleBuilder& Header(const TextHeader& header);
  SampleBuilder& Titles(std::string_view first, std::string_view second, std::string_view third);
  // Two lines of text, then the 0 that ends the data.
  SampleBuilder& End(const std::string& fileName);

  // A record of which the fields that all records share are filled.
  template <class R>
  R Begin(int code, int fill = 0) const;
  // The record that the item just written yields.
  template <class R>
  void Deliver(const R& record);
  // As Deliver; the end record names the latest of these records.
  template <class R>
  void DeliverTimed(const R& record, Clock time);

  // A level as measured: writes it less the level offset. Its second byte is never 0, which would
  // stand for no value.
  float Level(Body& body, double measured);
  float NoLevel(Body& body);

  Instrument& State() { return state_; }
  const Instrument& State() const { return state_; }
  QvRecordCensus& Census() { return sample_.census; }
  QvEnd& EndRecord() { return end_; }
  DataFile& File() { return sample_.file; }
  bool KeepsRecords() const { return keep_ == Keep::kRecords; }
  // The bytes written since the last call, for files that do not fit into memory.
  std::string TakeBytes();
  Sample Finish() { return std::move(sample_); }

 private:
  Keep keep_;
  Instrument state_;
  Sample sample_;
  QvEnd end_{};
};

// Copies a text into a field of a record; what is behind it stays zero.
template <std::size_t N>
void SetText(char (&field)[N], std::string_view text) {
  std::memcpy(field, text.data(), text.size() < N ? text.size() : N);
}

template <class R>
R SampleBuilder::Begin(int code, int fill) const {
  R record;
  std::memset(&record, fill, sizeof record);
  record.RecordType = static_cast<std::uint16_t>(code);
  if constexpr (requires { record.SiteNumber; }) {
    record.SiteNumber = static_cast<std::uint16_t>(state_.site);
  }
  if constexpr (requires { record.SettingFormat; }) record.SettingFormat = 0;
  if constexpr (requires { record.Model; }) {
    record.Model = static_cast<std::uint16_t>(state_.model);
  }
  return record;
}

template <class R>
void SampleBuilder::Deliver(const R& record) {
  if (keep_ == Keep::kNothing) return;
  sample_.records.push_back(
      {record.RecordType, std::string(reinterpret_cast<const char*>(&record), sizeof record)});
}

template <class R>
void SampleBuilder::DeliverTimed(const R& record, Clock time) {
  if (time > end_.LatestRecordTime) end_.LatestRecordTime = time;
  Deliver(record);
}

}  // namespace samples
