#include "models/list_blocks.h"

#include <limits>

#include "fields/byte_reader.h"

namespace qvslm {

bool PassBlock() {
  TranslateContext& context = *CurrentContext;
  auto const length = static_cast<i32>(context.RecordLength);
  if (context.FileOffset > std::numeric_limits<i32>::max() - length) return false;
  context.FileOffset += length;
  if (context.BytesRead == 0) [[unlikely]]
    CountBytesBehindFile();
  return true;
}

void LookAhead() {
  TranslateContext& context = *CurrentContext;
  ReadRecordBlock(context.RecordLength);
  if (context.RecordBuffer[0] != 0) return;
  context.StreamInProgress = 0;
  if (context.FileOffset < std::numeric_limits<i32>::max()) context.FileOffset += 1;
}

}  // namespace qvslm
