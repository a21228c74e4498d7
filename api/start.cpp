// The start and the stop of a translation.

#include <cstring>
#include <string_view>

#include "api/context.h"
#include "api/file_path.h"
#include "fields/data_file.h"
#include "fields/local_time.h"
#include "fields/record_time.h"
#include "identity/tail_scan.h"
#include "identity/text_header.h"

std::int32_t QV_StartTranslate(const char* path, void* contextBytes) {
  using namespace qvslm;
  if (contextBytes == nullptr) return QV_NO_ARGUMENT;
  ForgetRunningTimes();
  ForgetLocalTime();
  CurrentContext = static_cast<TranslateContext*>(contextBytes);
  TranslateContext& context = *CurrentContext;
  ResetContext();
  context.BytesMissing = 0;
  context.EndRecord.EndRecordZero = 0;
  std::memset(context.EndRecord.Reserved10, 0, sizeof context.EndRecord.Reserved10);
  KeepFilePath(path);
  KeepFileName(path);

  if (!OpenDataFile(path)) return FailWith(QV_CANNOT_OPEN);
  context.ErrorCode = ScanFileTail();
  if (context.ErrorCode != 0) return context.ErrorCode;

  if (SeekDataFile(0) != 0) return FailWith(QV_SEEK_FAILED);
  context.FileOffset = 0;
  ClearFirstOffsets();
  context.ErrorCode = ReadTextHeader(nullptr);
  if (context.ErrorCode == QV_NO_TEXT_HEADER) {
    context.ErrorCode = SeekDataFile(context.FileOffset);
    if (context.ErrorCode != 0) return FailWith(QV_SEEK_FAILED);
  }
  if (context.KeepFileOpen == 0) CloseDataFile();
  return context.ErrorCode;
}

void QV_StopTranslate() {
  if (qvslm::CurrentContext != nullptr) qvslm::CloseDataFile();
}
