// The census: one walk over a whole file that counts what its translation will deliver. It decodes
// only what steers the framing and the counts of what follows, and the events that tell the
// daylight span.

#include <cstring>
#include <limits>

#include "api/context.h"
#include "api/file_path.h"
#include "api/framing.h"
#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/local_time.h"
#include "fields/record_time.h"
#include "fields/stream_levels.h"
#include "identity/text_header.h"
#include "models/models.h"
#include "settings/settings.h"

namespace qvslm {

namespace {

constexpr u16 kBlockBits[] = {0x40, 0x20, 0x10};

bool IsModel442InMode(i32 mode) {
  return CurrentContext->Model == kModel442 && CurrentContext->Mode == mode;
}

// Passes a framed item.
i32 Walk() {
  i32 const framed = ReadFramedBody();
  return framed < 0 ? framed : KeepFilePosition();
}

// Passes a framed item and those of its type that follow it, and counts them in the context and in
// the census.
i32 WalkFamily(u32 type, u32& countInContext, u32& countInCensus) {
  ++countInContext;
  ++countInCensus;
  i32 const status = Walk();
  if (status < 0) return status;
  u32 const more = PassItemsAhead(static_cast<u8>(type));
  countInContext += more;
  countInCensus += more;
  return KeepFilePosition();
}

void CountItem2(QvRecordCensus& census) {
  const TranslateContext& context = *CurrentContext;
  i32 const mode = context.Mode;
  if (!IsModel431Or442() || mode == 2 || mode == 3) {
    ++census.Summaries;
  } else if (context.Model == kModel431) {
    if (mode == 0) ++census.Bands431;
    if (mode == 1) ++census.Summaries431;
  } else {
    if (mode == 0) ++census.SpectrumSummaries;
    if (mode == 4) ++census.BandTables;
    if (mode == 5) ++census.NarrowTables;
    if (mode == 7) ++census.Tallies;
  }
}

u32& EventCount(QvRecordCensus& census) {
  if (IsModel442InMode(0)) return census.EventsMode0;
  return CurrentContext->Mode == 5 ? census.EventsMode5 : census.Events;
}

// Item 8 holds a block for each of three flags of the setup.
void CountBlocks(QvRecordCensus& census) {
  u32& count = IsModel442InMode(0) ? census.BlockImagesMode0 : census.BlockImages;
  for (u16 const bit : kBlockBits) {
    if ((CurrentContext->SetupFlags & bit) != 0) ++count;
  }
}

void CountSetup431(QvRecordCensus& census) {
  switch (CurrentContext->Mode) {
    case 0:
      ++census.SetupBands431;
      break;
    case 1:
      ++census.SetupShorts431;
      break;
    case 2:
    case 3:
      ++census.SetupLoggings431;
      break;
    default:
      break;
  }
}

void CountSetup(QvRecordCensus& census) {
  switch (CurrentContext->Mode) {
    case 0:
      ++census.SetupBands;
      break;
    case 1:
      ++census.SetupShorts;
      break;
    case 2:
    case 3:
      ++census.SetupLoggings;
      break;
    case 4:
      ++census.SetupSpectra;
      break;
    case 5:
      ++census.SetupNarrows;
      break;
    case 6:
      ++census.SetupsMode6;
      break;
    case 7:
      ++census.SetupTallies;
      break;
    case 8:
      ++census.SetupsMode8;
      break;
    default:
      break;
  }
}

u32& ListBlockCount(QvRecordCensus& census) {
  if (IsModel442InMode(7)) return census.ListBlocksMode7;
  if (IsModel442InMode(0)) return census.ListBlocksMode0;
  if (IsModel442InMode(4)) return census.ListBlocksMode4;
  return census.StreamEntries;
}

i32 CountEvent(QvRecordCensus& census) {
  ++CurrentContext->Count4;
  ++EventCount(census);
  i32 const framed = ReadFramedBody();
  if (framed < 0) return framed;
  i32 const status = ScanEventForDst();
  i32 const kept = KeepFilePosition();
  return kept < 0 ? kept : status;
}

// The setup is counted whatever its status; a negative one ends the walk.
i32 TakeSetup(QvRecordCensus& census) {
  i32 const framed = ReadFramedBody();
  if (framed < 0) return framed;
  i32 const status = DecodeRecM();
  if (CurrentContext->Model == kModel431) {
    CountSetup431(census);
  } else {
    CountSetup(census);
  }
  i32 const kept = KeepFilePosition();
  return kept < 0 ? kept : status;
}

i32 TakeSettings(QvRecordCensus& census) {
  TranslateContext& context = *CurrentContext;
  ++census.SettingsBlocks;
  i32 const back = StepBackOneByte();
  if (back < 0) return back;
  i32 const status = ParseQBlock();
  if (context.SettingQ209 != 0) {
    context.FirstOffset131 = context.FirstOffset129 = context.FirstOffset130 = context.FileOffset;
  }
  return status;
}

// Model 431: the general parser goes on behind the block, and looks for one of its own.
i32 TakeResults(QvRecordCensus& census) {
  const TranslateContext& context = *CurrentContext;
  ++(context.Mode == 0 ? census.ResultsBlocksMode0 : census.ResultsBlocks);
  i32 const back = StepBackOneByte();
  if (back < 0) return back;
  if (context.Model == kModel442) return ParseRBlock442();
  if (context.Model == kModel431) {
    i32 const status = ParseRBlock431();
    if (status < 0) return status;
  }
  return ParseRBlock();
}

i32 CountBands(i32& firstOffset, u32& count) {
  TranslateContext& context = *CurrentContext;
  if (firstOffset < 1) firstOffset = context.FileOffset;
  ++context.Count129to132;
  ++count;
  return Walk();
}

i32 CountStream(QvRecordCensus& census) {
  TranslateContext& context = *CurrentContext;
  if (context.FileOffset == std::numeric_limits<i32>::max()) return FailWith(QV_SEEK_FAILED);
  ++context.FileOffset;
  context.RecordLength = kStreamBlock;
  context.StreamInProgress = 1;
  context.AutoRefill = 1;
  ReadRecordBlock(kStreamBlock);
  u8 byte = 0;
  i32 status = 0;
  do {
    census.StreamEntries += PassSamples();
    byte = PassStreamEntry(status);
    if (byte >= 1 && status >= 0) ++census.StreamEntries;
  } while (byte != 0 && status >= 0);
  context.AutoRefill = 0;
  context.StreamInProgress = 0;
  // The file ended within the stream.
  if (status < 0) return QV_BAD_LENGTH;
  if (context.FileOffset > std::numeric_limits<i32>::max() - context.RecordPos) {
    return FailWith(QV_SEEK_FAILED);
  }
  context.FileOffset += context.RecordPos;
  return QV_OK;
}

i32 CountList(QvRecordCensus& census) {
  TranslateContext& context = *CurrentContext;
  i32 const length = ReadFileByte();
  if (length < 0) return QV_BAD_LENGTH;
  context.RecordLength = static_cast<u32>(length);
  i64 offset = i64{context.FileOffset} + 2;
  for (;;) {
    std::size_t const came = ReadRecordBlock(context.RecordLength);
    if (context.RecordBuffer[0] == 0) break;
    // No block at all: the file ended within the list, or its blocks have no length.
    if (came == 0) return QV_BAD_LENGTH;
    ++ListBlockCount(census);
    offset += length;
  }
  offset += 1;
  if (offset > std::numeric_limits<i32>::max()) return FailWith(QV_SEEK_FAILED);
  context.FileOffset = static_cast<i32>(offset);
  return QV_OK;
}

i32 EndCount() {
  i32 const kept = KeepFilePosition();
  return kept < 0 ? kept : QV_END_OF_DATA;
}

i32 CountOneItem(u32 type, QvRecordCensus& census) {
  TranslateContext& context = *CurrentContext;
  switch (type) {
    case kEndOfData:
      return EndCount();
    case 1:
      return WalkFamily(type, context.Count1,
                        context.Mode == 4 ? census.BandIntervals : census.Intervals);
    case 2: {
      ++context.Count2;
      i32 const framed = ReadFramedBody();
      if (framed < 0) return framed;
      CountItem2(census);
      return KeepFilePosition();
    }
    case 3:
      return WalkFamily(type, context.Count3, census.DaySummaries);
    case 4:
      return CountEvent(census);
    case 5:
      return WalkFamily(type, context.Count5, census.LevelMarks);
    case 6:
      // No walk gets past this item of models 431 and 442; their files do not hold it.
      return IsModel431Or442() ? i32{QV_BAD_LENGTH} : CountStream(census);
    case 7:
      if (IsModel431Or442()) return CountStream(census);
      census.BlockImages += 3;
      return Walk();
    case 8:
      CountBlocks(census);
      return Walk();
    case 21:
    case 27:
      return CountList(census);
    case kReferenceItem:
      ++census.References;
      return Walk();
    case kEndLinesItem:
      return PassEndLines();
    case kSetupItem:
      return TakeSetup(census);
    case kSettingsItem:
      return TakeSettings(census);
    case kResultsItem:
      return TakeResults(census);
    case kSiteItem:
      ++census.Sites;
      return Walk();
    case 129:
      return CountBands(context.FirstOffset129, census.IntervalBands);
    case 130:
      return CountBands(context.FirstOffset130, census.SummaryBands);
    case 131:
      return CountBands(context.FirstOffset131, census.LevelMarkBands);
    case 132:
      return CountBands(context.FirstOffset129, census.IntervalBandSeries);
    default:
      return Walk();
  }
}

}  // namespace

}  // namespace qvslm

std::int32_t QV_GetRecordCount(const char* path, void* contextBytes, QvRecordCensus* census,
                               void* record) {
  using namespace qvslm;
  ForgetDaylightSpan();
  if (contextBytes == nullptr || census == nullptr || record == nullptr) return QV_NO_ARGUMENT;
  ForgetLocalTime();
  CurrentContext = static_cast<TranslateContext*>(contextBytes);
  TranslateContext& context = *CurrentContext;
  context.Output = record;
  ResetContext();
  std::memset(census, 0, sizeof *census);
  KeepFilePath(path);

  if (!OpenDataFile(path)) return FailWith(QV_CANNOT_OPEN);
  context.ErrorCode = ReadTextHeader(nullptr);
  if (context.ErrorCode == QV_NO_TEXT_HEADER) {
    context.ErrorCode = SeekDataFile(context.FileOffset);
    if (context.ErrorCode != 0) return FailWith(QV_SEEK_FAILED);
  }
  while (context.ErrorCode >= 0) {
    if (SeekDataFile(context.FileOffset) != 0) return FailWith(QV_SEEK_FAILED);
    context.RecordLength = 0;
    auto const type = static_cast<u32>(ReadFileByte());
    context.RecordPos = 0;
    context.ErrorCode = CountOneItem(type, *census);
  }
  if (context.ErrorCode == QV_END_OF_DATA) context.ErrorCode = QV_OK;
  context.Output = nullptr;
  CloseDataFile();
  return context.ErrorCode;
}
