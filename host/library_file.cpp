#include "library_file.h"

#include <cstdlib>
#include <string_view>

#include "record_table.h"

namespace host {

Translation::Translation(const InputFile& file)
    : file_(file), context_(QV_GetBufferSize()), record_(QV_OUTPUT_RECORD_SIZE) {}

Translation::~Translation() {
  QvWalkClose(&walk_);
}

int Translation::ReadHeader() {
  headerStatus_ = QV_ReadFileHeader(file_.Path(), context_.data(), &header_);
  return headerStatus_;
}

void Translation::LookUpSerial() {
  QV_ReadFileSN(file_.Path(), context_.data(), nullptr, serial_, nullptr);
}

void Translation::LookUpSites() {
  QV_ReadSiteNum(file_.Path(), context_.data(), &siteCount_);
}

void Translation::Open(bool census) {
  QvWalkOpen(&walk_, file_.Path(), context_.data(), record_.data(), census ? &census_ : nullptr);
}

int Translation::Model() const {
  constexpr int defaultModel = 486;
  if (headerStatus_ != QV_OK) return defaultModel;
  // QV_ReadFileSN knows the model of heads that open with 'L' alone. The numbers have 16 bits.
  return static_cast<std::int16_t>(std::strtol(header_.HeaderLine2, nullptr, 10));
}

const record_fields::RecordInfo* Translation::Info() const {
  // Code 1 stands for two structs.
  constexpr int bandAnalyser = 4;
  bool const hasBands = QvMode(context_.data()) == bandAnalyser;
  std::string_view const other = hasBands ? "QvInterval" : "QvBandInterval";
  for (const record_fields::RecordInfo& info : record_fields::kRecords) {
    if (info.code != 0 && info.code == walk_.Code && info.structName != other) return &info;
  }
  return nullptr;
}

}  // namespace host
