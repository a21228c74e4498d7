// The times of records: one daylight setting for a run that crosses the autumn clock change.
//
// The daylight span is worked out by the census and stays until the next one in the process. The
// running times, one for each record family, start anew with each translation.
#pragma once

#include "fields/local_time.h"

namespace qvslm {

struct DaylightSpan {
  i16 Hint = 0;   // the daylight flag at the file's first run start; -1 until one was seen
  i32 Start = 0;  // the span in which the hint rules
  i32 End = 0;
};
extern ModuleState<DaylightSpan> Dst;

struct RunningTimes {
  i32 LastTimeRec1;
  i32 LastTimeRec1Mode4;
  i32 LastTimeRec2;
  i32 LastTimeRec2Mode0;
  i32 LastTimeRec2Mode4;
  i32 LastTimeRec2Mode5;
  i32 LastTimeRec2Mode7;
  i32 LastTimeRec3;
  i32 LastTimeRec4;
  i32 LastTimeRec5;
  i32 LastTimeRec129;
  i32 LastTimeRec130;
  i32 LastTimeRec131;
  i32 LastTimeRec132;
};
extern ModuleState<RunningTimes> LastTimes;

void ForgetDaylightSpan();
void ForgetRunningTimes();

// Seconds of a record's stamp. Inside the daylight span the stamp is read with the hint, else by
// its own flag. The slot follows the hinted reading; null for records without one.
i32 NormalizeTime(Calendar& calendar, i32* slot);

// Learns the daylight span from a run event, in the census: 64 starts a stretch of measuring, 0
// ends it.
void NoteDstEvent(const Calendar& calendar, i16 event);

// Reads an event record for NoteDstEvent, without delivering it. Returns its status.
i32 ScanEventForDst();

// Raises LatestRecordTime.
inline void NoteRecordTime(i32 seconds) {
  i32& latest = CurrentContext->EndRecord.LatestRecordTime;
  if (seconds > latest) latest = seconds;
}

}  // namespace qvslm
