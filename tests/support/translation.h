// Drives the exported calls over a file, with buffers that end where they promise to end.
//
//   Translation run(General().Item(5, ...).EndOfData());
//   ASSERT_EQ(run.Codes(), (std::vector<int>{5, 15}));
//   EXPECT_EQ(run.As<QvLevelMark>(0).StatusCode, 7);
//
// Small files are filled up behind their end of data, so that the look at the tail finds its 2500
// bytes.
#pragma once

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "data_file_writer.h"
#include "qvslmtranslate.h"
#include "support/guarded_buffer.h"

namespace test {

// A file of model 486 with a plain header: firmware 1.100, 21 June 2024, 12:00:00.
samples::DataFile General(std::string_view firmware = "1.100");
// A file of model 431 or 442 with the given mode tag ("OBA ", "SSA" and so on).
samples::DataFile Model431(std::string_view modeTag, std::string_view firmware = "1.100");
samples::DataFile Model442(std::string_view modeTag, std::string_view firmware = "3.600");

// The bytes of the file, with what the start of a translation looks for added behind the end of
// data: room for the tail, and for model 442 a results block with register 106 (the level offset).
std::string Startable(const samples::DataFile& file, std::string_view levelOffset442 = "0.0");

// The type code of a record: its first field.
inline int CodeOf(const std::uint8_t* record) {
  std::uint16_t code = 0;
  std::memcpy(&code, record, sizeof code);
  return code;
}

struct Step {
  int status;
  std::vector<std::uint8_t> record;  // all bytes of the host's buffer behind the step
  int Code() const { return CodeOf(record.data()); }
};

// A context and an output record, and the calls on them.
class Session {
 public:
  explicit Session(int recordFill = 0xEE);
  ~Session();
  int Start(const std::string& path);
  int Next();  // the output record is filled with recordFill first
  int Census(const std::string& path);
  void* Context() const { return context_.Data(); }
  std::uint8_t* Record() const { return record_.Data(); }
  int Code() const { return CodeOf(record_.Data()); }
  const QvRecordCensus& Counts() const { return census_; }
  template <class T>
  T As() const {
    T copy;
    std::memcpy(&copy, record_.Data(), sizeof copy);
    return copy;
  }

 private:
  GuardedBuffer context_;
  GuardedBuffer record_;
  QvRecordCensus census_{};
  int recordFill_;
};

struct Options {
  bool census = false;  // count first, as hosts do
  std::string_view levelOffset442 = "0.0";
  int recordFill = 0xEE;  // what the host's buffer holds before each step
  int mostSteps = 100000;
};

// A whole translation: the start, then steps until a negative status or mostSteps.
class Translation {
 public:
  explicit Translation(const samples::DataFile& file, const Options& options = {});
  explicit Translation(const std::string& path, const Options& options = {});

  int start = 0;   // result of QV_StartTranslate
  int census = 0;  // result of QV_GetRecordCount, if asked for
  int end = 0;     // result of the last step
  QvRecordCensus counts{};
  std::vector<Step> steps;  // every step, also those without a record

  // The records, steps of type code 0 left out; those of one code.
  std::vector<Step> Records() const;
  std::vector<Step> Records(int code) const;
  std::vector<int> Codes() const;
  // Record number index among all records, or among those of one code.
  template <class T>
  T As(std::size_t index) const {
    return Copy<T>(Records().at(index));
  }
  template <class T>
  T As(std::size_t index, int code) const {
    return Copy<T>(Records(code).at(index));
  }
  template <class T>
  static T Copy(const Step& step) {
    T copy;
    std::memcpy(&copy, step.record.data(), sizeof copy);
    return copy;
  }

 private:
  void Run(const std::string& path, const Options& options);
};

}  // namespace test
