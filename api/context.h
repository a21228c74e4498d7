// The state of one translation, and what all parts of the library find it by.
//
// The host owns the context as a flat buffer of kContextSize bytes; TranslateContext is its layout.
// All zero bytes are a valid context, and a copy of the bytes is a copy of the context. Each
// exported call sets CurrentContext from its argument; below the exports nothing takes a context as
// a parameter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <type_traits>

#include "api/module_state.h"
#include "qvslm_records.h"
#include "qvslmtranslate.h"

namespace qvslm {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;
using i8 = std::int8_t;
using i16 = std::int16_t;
using i32 = std::int32_t;
using i64 = std::int64_t;
using f32 = float;
using f64 = double;

inline constexpr std::size_t kContextSize = 9984;
inline constexpr i16 kDefaultModel = 486;
inline constexpr i16 kModel431 = 431;
inline constexpr i16 kModel442 = 442;
inline constexpr i32 kEventTimesKept = 299;
inline constexpr u32 kLongestRecord = 6200;
inline constexpr u32 kStreamBlock = 500;

struct AuxiliaryChannel {
  f32 High;
  f32 Low;
  char Name[10];
  char Units[6];
};

struct TranslateContext {
  // The head, which hosts read. FileOffset is where the next item starts, or the next byte of a
  // stream; BytesMissing is how many bytes the step used that the file does not have.
  i32 FileOffset;
  u32 BytesMissing;
  i32 Mode;

  // File.
  std::FILE* File;
  u16 KeepFileOpen;
  char LineBuffer[81];
  char FilePath[260];

  // Record in hand.
  void* Output;
  u8* RawRecordCopy;
  // Whether the last block read came whole. A short block is no error; streams and lists ask, to
  // count what they used of it behind the end of the file.
  u32 BytesRead;
  i32 RecordPos;
  u32 RecordLength;
  u32 StreamInProgress;
  u32 AutoRefill;
  i16 StreamType;
  u16 RecordFilter;
  u8 RecordBuffer[kLongestRecord];

  // Status.
  i32 ErrorCode;
  i32 LastError;
  char ErrorText[16];

  // Identity. Mode stands in the head, SerialText and FileName in EndRecord.
  i16 Model;
  f32 FirmwareVersion;
  u16 FirmwareAbove09;
  u32 FirstRunTime;
  i32 LastStopTime;
  i32 HeaderTime;
  f64 StreamTime;

  // Counters, first offsets of the record families, and how far their seekers have come.
  u32 Count1, Count2, Count3, Count4, Count5, Count129to132;
  u32 Count21;
  u32 SampleCount;
  i32 FirstOffset1, FirstOffset2, FirstOffset3, FirstOffset4, FirstOffset5, FirstOffset6;
  i32 FirstOffset129, FirstOffset130, FirstOffset131, FirstOffset132;
  i32 FetchIndex1, FetchIndex2, FetchIndex3, FetchIndex4, FetchIndex5, FetchIndex6;
  i32 Owner132;
  i32 OwnerTime132;
  u16 Sequence132;

  // Settings that 'Q', 'R', 'M', 'C' and 'S' items leave for the records behind them.
  u16 AuxEnabled1;
  AuxiliaryChannel AuxChannel[3];
  f32 LevelOffset;
  f32 ThresholdLevel;
  f32 StreamLevelBase;
  f32 ReferenceLevel;
  f32 StreamPeriod;
  f32 IntervalSamplePeriod;
  f32 SettingQ147;
  f32 KeptSixValues[6];
  u32 SettingZero332;
  i16 LimitLevel;
  i16 IntervalAuxOn;
  i16 IntervalSamplesOn;
  i16 SummaryAuxOn;
  u16 SettingQ47, SettingQ50, SettingQ53, SettingQ54;
  u16 SettingQ118, SettingQ120, SettingQ206, SettingQ209;
  u16 SetupKeptA, SetupKeptB;
  u16 ModeFormFlag;
  u16 ExtraBlockOn;
  u16 DistributionOn;
  u16 DistributionOn2;
  u16 LevelInRecordOn;
  u16 SummaryLnOn;
  u16 TimeIsEnd;
  u16 WholeDbStream;
  u16 SecondLevelKind;
  u16 StreamSelector;
  u16 StreamMaskA, StreamMaskB, StreamMaskC, StreamMaskD, StreamMaskE, StreamMaskF;
  u16 SpectraKind;
  u16 SecondSpectrumOn;
  u16 BandFlag;
  u16 SetupFlags;
  u16 SiteNumber;
  u16 SettingFormat;

  // The end record, built up on the way, and the times that pace the streams.
  QvEnd EndRecord;
  // The last register R175 of model 442. Written and never read by the library, and kept from file
  // to file: it shows to who looks into a context, or a copy of one.
  i32 StampR175;
  i16 SamplesPending;
  u16 RunEventWriteIndex, RunEventReadIndex;
  u16 OtherEventWriteIndex, OtherEventReadIndex;
  i32 RunEventTimes[kEventTimesKept];
  i32 OtherEventTimes[kEventTimesKept];
};

static_assert(offsetof(TranslateContext, FileOffset) == offsetof(QvContextHead, FileOffset) &&
              offsetof(TranslateContext, BytesMissing) == offsetof(QvContextHead, BytesMissing) &&
              offsetof(TranslateContext, Mode) == offsetof(QvContextHead, Mode));
static_assert(sizeof(TranslateContext) <= kContextSize);
static_assert(alignof(TranslateContext) <= 8);
static_assert(std::is_trivially_copyable_v<TranslateContext> &&
              std::is_standard_layout_v<TranslateContext>);

// The context of the call in progress, and of the last call after it has returned.
extern constinit QVSLM_OF_THREAD TranslateContext* CurrentContext;

// Gives every field that does not outlive a file its starting value.
void ResetContext();

// All FirstOffset... and FetchIndex... to 0; all FirstOffset... to one place in the file.
void ClearFirstOffsets();
void SetFirstOffsets(i32 offset);

// Copies ErrorCode to LastError and words it in ErrorText.
void RaiseError();

// Sets ErrorCode, raises it, and returns it.
i32 FailWith(i32 status);

// Counts bytes that the step used and the file does not have.
inline void NoteBytesMissing(std::size_t count) {
  CurrentContext->BytesMissing += static_cast<u32>(count);
}

inline bool IsModel431Or442() {
  return CurrentContext->Model == kModel431 || CurrentContext->Model == kModel442;
}

}  // namespace qvslm
