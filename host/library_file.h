// One file in the library: the buffers that a host owns, the lookups, and the walk.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "input_file.h"
#include "qvslm_walk.h"
#include "record_info.h"

namespace host {

class Translation {
 public:
  explicit Translation(const InputFile& file);
  ~Translation();
  Translation(const Translation&) = delete;
  Translation& operator=(const Translation&) = delete;

  // The lookups come before the walk.
  int ReadHeader();
  void LookUpSerial();
  void LookUpSites();
  // Opens the walk, with a census before it if asked for.
  void Open(bool census);
  // Goes on to the next record; false at the walk's end.
  bool Next() { return QvWalkNext(&walk_) != 0; }

  const QvFileHeaderInfo& Header() const { return header_; }
  const QvRecordCensus& Census() const { return census_; }
  const QvWalk& State() const { return walk_; }
  const char* Serial() const { return serial_; }
  int SiteCount() const { return siteCount_; }
  // The model number of the header's second line; 486 without a text header.
  int Model() const;
  // Where in the file the walk has come to.
  std::int32_t Offset() const { return QvFileOffset(context_.data()); }

  const std::uint8_t* Record() const { return record_.data(); }
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
  QvWalk walk_{};
  int headerStatus_ = QV_NO_TEXT_HEADER;
  QvFileHeaderInfo header_{};
  QvRecordCensus census_{};
  char serial_[81] = {};
  std::int16_t siteCount_ = 0;
};

}  // namespace host
