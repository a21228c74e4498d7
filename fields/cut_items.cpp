// Items that the end of the file may cut. Apart from the byte reader, so that compilers do not put
// in place there what hardly ever runs.

#include "fields/byte_reader.h"
#include "fields/data_file.h"

namespace qvslm {

void CountBytesBehindFile() {
  i64 const behind = CurrentContext->FileOffset - FilePosition();
  if (behind > 0) NoteBytesMissing(static_cast<std::size_t>(behind));
}

void ReadItemAcrossWindows() {
  TranslateContext& context = *CurrentContext;
  context.RecordLength = ReadLengthU16();
  if (context.RecordLength > kLongestRecord) return;
  NoteBytesMissing(context.RecordLength - ReadRecordBlock(context.RecordLength));
}

}  // namespace qvslm
