// One file in the library: the buffers that a host owns, and the calls on them.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "input_file.h"
#include "qvslmtranslate.h"
#include "record_info.h"

namespace host {

class Translation {
 public:
  explicit Translation(const InputFile& file);
  ~Translation();
  Translation(const Translation&) = delete;
  Translation& operator=(const Translation&) = delete;

  // The calls of the library, with their status; the lookups come before the start.
  int ReadHeader();
  int LookUpSerial();
  int LookUpSites();
  int Count();
  int Start();
  // The record is cleared first: two kinds of record leave bytes as they find them.
  int Next();

  const QvFileHeaderInfo& Header() const { return header_; }
  const QvRecordCensus& Census() const { return census_; }
  const char* Serial() const { return serial_; }
  int SiteCount() const { return siteCount_; }
  // The model number of the header's second line; 486 without a text header.
  int Model() const;

  const std::uint8_t* Record() const { return record_.data(); }
  int Code() const { return record_[0] + 256 * record_[1]; }
  template <class T>
  T As() const {
    T copy;
    std::memcpy(&copy, record_.data(), sizeof copy);
    return copy;
  }
  // What the table tells of the record in hand; null for a code that is none.
  const record_fields::RecordInfo* Info() const;

 private:
  const InputFile& file_;
  std::vector<std::uint8_t> context_;
  std::vector<std::uint8_t> record_;
  QvFileHeaderInfo header_{};
  QvRecordCensus census_{};
  char serial_[81] = {};
  std::int16_t siteCount_ = 0;
};

}  // namespace host
