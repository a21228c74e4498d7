// Settings that several forms of the setup record leave in the context.
#pragma once

#include <algorithm>
#include <iterator>

#include "api/context.h"

namespace qvslm {

// A flag by the value of its bit.
constexpr u16 HasBit(u16 flags, u16 bit) {
  return (flags & bit) != 0 ? 1 : 0;
}

// Seconds between the samples of a stream; an unknown unit leaves them as they were.
void KeepStreamPeriod(u16 value, u16 unit);

// No kept bytes for the records of results.
void ClearKeptBytes();

template <class Record>
void KeepSixValues(const Record& record) {
  std::copy(std::begin(record.KeptSixValues), std::end(record.KeptSixValues),
            CurrentContext->KeptSixValues);
}

// What forms 51, 53 and 60 leave for the streams.
template <class Record>
void KeepStreamSettings(const Record& record) {
  TranslateContext& context = *CurrentContext;
  context.WholeDbStream = HasBit(record.FlagsB, 4);
  KeepSixValues(record);
  context.StreamSelector = record.StreamSelector;
  KeepStreamPeriod(record.PeriodValue, record.PeriodUnit);
  context.StreamMaskA = record.StreamMaskA;
  context.StreamMaskB = record.StreamMaskB;
  context.StreamMaskC = record.StreamMaskC;
  context.StreamMaskD = record.StreamMaskD;
  context.StreamMaskE = record.StreamMaskE;
  context.StreamMaskF = record.StreamMaskF;
  context.StreamLevelBase = record.StreamLevelBase;
}

// What forms 53 and 35 leave for intervals, summaries and days.
template <class Record>
void KeepLoggingSettings(const Record& record) {
  TranslateContext& context = *CurrentContext;
  context.SetupKeptA = record.SetupByte78;
  context.SettingQ50 = record.SetupByte79;
  context.SetupKeptB = record.SetupByte75;
  context.SettingQ47 = record.SetupByte76;
  context.ThresholdLevel = record.SetupValue122;
  context.LimitLevel = static_cast<i16>(record.SetupByte179);
  context.IntervalSamplesOn = static_cast<i16>(HasBit(record.FlagsC, 64));
  context.IntervalSamplePeriod = record.IntervalSamplePeriod;
  context.IntervalAuxOn = 0;
  context.SummaryLnOn = HasBit(record.FlagsA, 64);
  context.SummaryAuxOn = 0;
  context.ExtraBlockOn = HasBit(record.FlagsD, 64);
  context.LevelInRecordOn = 0;
  context.TimeIsEnd = HasBit(record.FlagsC, 32);
  context.SettingQ206 = HasBit(record.FlagsB, 128);
  context.DistributionOn2 = HasBit(record.FlagsA, 1);
  context.DistributionOn = HasBit(record.FlagsB, 32);
}

}  // namespace qvslm
