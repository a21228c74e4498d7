#include "library_file.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "record_table.h"

namespace host {

Translation::Translation(const InputFile& file)
    : file_(file), context_(QV_GetBufferSize()), record_(QV_OUTPUT_RECORD_SIZE) {}

Translation::~Translation() {
  QV_StopTranslate();
}

int Translation::ReadHeader() {
  return QV_ReadFileHeader(file_.Path(), context_.data(), &header_);
}

int Translation::LookUpSerial() {
  return QV_ReadFileSN(file_.Path(), context_.data(), nullptr, serial_, nullptr);
}

int Translation::LookUpSites() {
  return QV_ReadSiteNum(file_.Path(), context_.data(), &siteCount_);
}

int Translation::Count() {
  return QV_GetRecordCount(file_.Path(), context_.data(), &census_, record_.data());
}

int Translation::Start() {
  return QV_StartTranslate(file_.Path(), context_.data());
}

int Translation::Next() {
  std::fill(record_.begin(), record_.end(), std::uint8_t{0});
  return QV_TranslateNextRec(record_.data(), context_.data());
}

int Translation::Model() const {
  constexpr int defaultModel = 486;
  return header_.HeaderLine2[0] == '\0' ? defaultModel : std::atoi(header_.HeaderLine2);
}

const record_fields::RecordInfo* Translation::Info() const {
  // Code 1 stands for two structs; band analysers, mode 4 of model 442, have the second.
  bool const bandAnalyser =
      Model() == 442 && std::string_view(header_.HeaderLine6).starts_with("RTA");
  std::string_view const other = bandAnalyser ? "QvInterval" : "QvBandInterval";
  for (const record_fields::RecordInfo& info : record_fields::kRecords) {
    if (info.code != 0 && info.code == Code() && info.structName != other) return &info;
  }
  return nullptr;
}

}  // namespace host
