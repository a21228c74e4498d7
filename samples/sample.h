// A sample file, and what its writer knows of it: every record that a translation delivers, and the
// census.
//
// The records are worked out from what the writer put in, never from what a translation gave back.
// They hold for a host whose zone is UTC.
#pragma once

#include <string>
#include <vector>

#include "data_file_writer.h"
#include "qvslmtranslate.h"

namespace samples {

// What the host's buffer holds before each step. Some records leave bytes of theirs unwritten.
inline constexpr int kUnwritten = 0xEE;

struct ExpectedRecord {
  int code;
  std::string bytes;  // of the record's size
};

struct Sample {
  DataFile file;
  int start = QV_OK;  // status of QV_StartTranslate
  int model = 486;
  std::string serial;  // as QV_ReadFileSN gives it; empty when the file does not tell
  std::vector<ExpectedRecord> records;  // in the order of delivery, the end record last
  QvRecordCensus census{};

  int Count(int code) const;  // number of records of one type code
};

struct SampleEntry {
  const char* name;  // file name
  const char* about;
  Sample (*build)(const std::string& name);
};

// All samples, in the order of README.md.
const std::vector<SampleEntry>& AllSamples();

}  // namespace samples
