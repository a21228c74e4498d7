// Which statuses each call may return, as its manual tells.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "qvslmtranslate.h"

namespace test {

enum class Export {
  ReadFileHeader,
  ReadFileSN,
  ReadSiteNum,
  GetRecordCount,
  StartTranslate,
  TranslateNextRec
};

inline std::string_view NameOf(Export call) {
  constexpr std::string_view kNames[] = {"QV_ReadFileHeader", "QV_ReadFileSN",
                                         "QV_ReadSiteNum",    "QV_GetRecordCount",
                                         "QV_StartTranslate", "QV_TranslateNextRec"};
  return kNames[static_cast<int>(call)];
}

// With good arguments.
inline bool IsPromised(Export call, int status) {
  auto const isOneOf = [status](std::initializer_list<int> statuses) {
    return std::find(statuses.begin(), statuses.end(), status) != statuses.end();
  };
  switch (call) {
    case Export::ReadFileHeader:
      return isOneOf({QV_OK, QV_CANNOT_OPEN, QV_SEEK_FAILED, QV_NO_TEXT_HEADER});
    case Export::ReadFileSN:
      return isOneOf({QV_OK, QV_CANNOT_OPEN, QV_NOT_FOUND, QV_NO_TEXT_HEADER});
    case Export::ReadSiteNum:
      return isOneOf({QV_OK, QV_CANNOT_OPEN, QV_NO_TEXT_HEADER});
    case Export::GetRecordCount:
      return isOneOf({QV_OK, QV_CANNOT_OPEN, QV_SEEK_FAILED, QV_BAD_LENGTH, QV_RECORD_TOO_SHORT});
    case Export::StartTranslate:
      return isOneOf({QV_OK, QV_NO_TEXT_HEADER, QV_CANNOT_OPEN, QV_SEEK_FAILED, QV_TAIL_SEEK_FAILED,
                      QV_NOT_FOUND, QV_NO_MEMORY});
    case Export::TranslateNextRec:
      return isOneOf({QV_OK, QV_END_OF_DATA, QV_RECORD_TOO_SHORT, QV_BAD_LENGTH, QV_SEEK_FAILED,
                      QV_CANNOT_OPEN});
  }
  return false;
}

}  // namespace test
