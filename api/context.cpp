#include "api/context.h"

#include <cstdio>

#include "api/path_letters.h"

namespace qvslm {

TranslateContext* CurrentContext = nullptr;

void ResetContext() {
  TranslateContext& context = *CurrentContext;

  context.FileOffset = 0;
  context.KeepFileOpen = 1;

  context.BytesRead = 0;
  context.RecordPos = 0;
  context.RecordLength = 0;
  context.StreamInProgress = 0;
  context.AutoRefill = 0;
  context.RecordFilter = 0;
  context.RecordBuffer[0] = 0;

  context.ErrorCode = 0;
  context.LastError = 0;
  context.ErrorText[0] = '\0';

  context.Mode = 0;
  context.Model = kDefaultModel;
  context.FirmwareVersion = 0;
  context.FirmwareAbove09 = 0;
  context.FirstRunTime = 0;
  context.LastStopTime = 0;
  context.HeaderTime = 0;
  context.StreamTime = 0;

  context.Count1 = context.Count2 = context.Count3 = context.Count4 = context.Count5 = 0;
  context.Count129to132 = 0;
  context.SampleCount = 0;
  ClearFirstOffsets();
  context.Owner132 = -1;
  context.Sequence132 = 65535;

  context.AuxEnabled1 = 0;
  for (AuxiliaryChannel& channel : context.AuxChannel) {
    channel.High = 0;
    channel.Low = 0;
    channel.Name[0] = '\0';
    channel.Units[0] = '\0';
  }
  context.LevelOffset = 0;
  context.ThresholdLevel = 0;
  context.StreamPeriod = 0;
  context.IntervalSamplePeriod = 0;
  for (f32& value : context.KeptSixValues) value = 0;
  context.SettingZero332 = 0;
  context.LimitLevel = 0;
  context.IntervalAuxOn = 0;
  context.IntervalSamplesOn = 0;
  context.SummaryAuxOn = 0;
  context.SettingQ47 = context.SettingQ50 = 0;
  context.SettingQ118 = context.SettingQ120 = context.SettingQ206 = context.SettingQ209 = 0;
  context.SetupKeptA = context.SetupKeptB = 0;
  context.ModeFormFlag = 0;
  context.ExtraBlockOn = 0;
  context.DistributionOn = 0;
  context.DistributionOn2 = 0;
  context.LevelInRecordOn = 0;
  context.SummaryLnOn = 0;
  context.TimeIsEnd = 0;
  context.WholeDbStream = 0;
  context.SecondLevelKind = 0;
  context.SpectraKind = 0;
  context.SiteNumber = 0;
  context.SettingFormat = 0;

  context.EndRecord.RecordType = QV_END;
  context.SamplesPending = 0;
  context.RunEventWriteIndex = context.RunEventReadIndex = 0;
  context.OtherEventWriteIndex = context.OtherEventReadIndex = 0;
}

void ClearFirstOffsets() {
  SetFirstOffsets(0);
  TranslateContext& context = *CurrentContext;
  context.FetchIndex1 = context.FetchIndex2 = context.FetchIndex3 = 0;
  context.FetchIndex4 = context.FetchIndex5 = context.FetchIndex6 = 0;
}

void SetFirstOffsets(i32 offset) {
  TranslateContext& context = *CurrentContext;
  context.FirstOffset1 = context.FirstOffset2 = context.FirstOffset3 = offset;
  context.FirstOffset4 = context.FirstOffset5 = context.FirstOffset6 = offset;
  context.FirstOffset129 = context.FirstOffset130 = offset;
  context.FirstOffset131 = context.FirstOffset132 = offset;
}

void RaiseError() {
  TranslateContext& context = *CurrentContext;
  context.LastError = context.ErrorCode;
  std::snprintf(context.ErrorText, sizeof context.ErrorText, "Error <%3d>",
                static_cast<int>(context.ErrorCode));
}

i32 FailWith(i32 status) {
  CurrentContext->ErrorCode = status;
  RaiseError();
  return status;
}

}  // namespace qvslm
