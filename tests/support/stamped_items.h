// Bodies of the items that carry a time, as short as they may be.
#pragma once

#include "data_file_writer.h"

namespace test {

// What an instrument's clock shows.
struct Clock {
  int year;
  int month;
  int day;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

inline samples::Body& Stamp(samples::Body& body, const Clock& clock) {
  return body.Date(clock.day, clock.month, clock.year).Time(clock.hour, clock.minute, clock.second);
}

// Item 5.
inline samples::Body MarkAt(const Clock& clock, double level = 65.5, int status = 0) {
  samples::Body body;
  body.U8(0);
  return Stamp(body, clock).Level(level).U8(status);
}

// Item 4. Code 64 starts a run, code 0 ends it.
inline samples::Body EventAt(const Clock& clock, int eventByte) {
  samples::Body body;
  body.U8(0);
  return Stamp(body, clock).U8(eventByte).U16(0).U24(0);
}

// Item 1 without optional parts: 25 bytes.
inline samples::Body IntervalAt(const Clock& clock, double duration = 60.0,
                                double durationPercent = 100.0) {
  samples::Body body;
  Stamp(body, clock).Duration5(duration);
  for (int i = 0; i < 5; ++i) body.Level(60.5);
  return body.U8(0).U8(0).Fixed16(durationPercent);
}

// Item 2 of the general form without optional parts: 27 bytes.
inline samples::Body SummaryAt(const Clock& clock, double duration = 60.0) {
  samples::Body body;
  Stamp(body, clock).Duration5(duration);
  for (int i = 0; i < 6; ++i) body.Level(60.5);
  return body.Fill(4);
}

}  // namespace test
