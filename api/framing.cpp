#include "api/framing.h"

#include <limits>

#include "fields/byte_reader.h"
#include "fields/data_file.h"

namespace qvslm {

i32 ReadFramedBody() {
  ReadItem();
  if (CurrentContext->RecordLength > kLongestRecord) return QV_BAD_LENGTH;
  if (FilePosition() > std::numeric_limits<i32>::max()) return FailWith(QV_SEEK_FAILED);
  return QV_OK;
}

i32 StepBackOneByte() {
  return SeekDataFile(FilePosition() - 1) == 0 ? QV_OK : FailWith(QV_SEEK_FAILED);
}

i32 PassEndLines() {
  TranslateContext& context = *CurrentContext;
  i32 const back = StepBackOneByte();
  if (back < 0) return back;
  ReadLine(context.LineBuffer, sizeof context.LineBuffer);
  LineRead const last = ReadLine(context.LineBuffer, sizeof context.LineBuffer);
  if (!last.complete) NoteBytesMissing(1);
  return KeepFilePosition();
}

}  // namespace qvslm
