// The measurement items that all families share: events, level marks, intervals, summaries, day
// summaries and block images.
#pragma once

#include <array>
#include <vector>

#include "sample_builder.h"

namespace samples {

struct Event {
  Clock time;
  int code;  // 0, 16, 32 to 112; 64 begins a run, 0 ends it
  int detail = 0;
  int value16 = 0;
  int value24 = 0;
};
void Add(SampleBuilder& sample, const Event& event);

struct LevelMark {
  Clock time;
  double level;
  int status = 0;
};
void Add(SampleBuilder& sample, const LevelMark& mark);

// The blocks behind `percent` are written where the settings ask for them.
struct Interval {
  Clock time;  // as stamped: the start, or the end where the settings say so
  double duration = 60;
  std::array<double, 5> levels;  // A to E
  int byte1 = 0;
  int byte2 = 0;
  double percent = 100;
  double levelInRecord = 65.5;
  std::array<int, 3> aux{};  // channels, as bytes over their scale
  int span1 = 0;
  int span2 = 0;
  int byte3 = 0;
  std::array<int, 16> table16{};
  std::vector<int> samples{};  // whole decibels as measured; flagged ones negative
};
void Add(SampleBuilder& sample, const Interval& interval);

// The six percentiles of summaries and days.
struct Percentiles {
  std::array<double, 6> levels{};
  std::array<int, 6> numbers{1, 5, 10, 50, 90, 95};
};

struct Summary {
  Clock time;
  double duration;
  std::array<double, 6> levels;  // A to F
  std::array<int, 4> bytes{};
  Percentiles percentiles{};
  std::array<std::array<int, 3>, 3> aux{};  // three values of each channel
  int span1 = 0;
  int span2 = 0;
  int byte5 = 0;
  std::vector<int> distribution{};  // 127 counts
};
void Add(SampleBuilder& sample, const Summary& summary);

struct DaySummary {
  Clock date;
  std::array<double, 7> levels;  // A to G
  double duration;
  // By hour; the hours of the first table may be negative (marked) or 0 (none).
  std::array<double, 24> hours{};
  std::array<double, 24> hoursB{};
  std::array<double, 24> hoursC{};
  int span1 = 0;
  int span2 = 0;
  int byte1 = 0;
  int timeOfDay = 0;
  int value1 = 0;
  int byte2 = 0;
  std::array<int, 8> bytes8{};
  int value2 = 0;
  int value3 = 0;
  std::array<int, 24> counts{};
  std::array<int, 24> values{};
  std::array<int, 24> digits{};  // 0 to 99
  Percentiles percentiles{};
  std::vector<int> distribution{};  // 127 counts
};
void Add(SampleBuilder& sample, const DaySummary& day);

// Item 8, or item 7 of general models. Blocks that the model or the setup leave out are not
// written.
struct BlockImage {
  int type;
  std::string block1{};  // 4096 bytes; 5120 on models 431 and 442
  std::string block2{};  // 512 bytes
  std::string block3{};
};
void Add(SampleBuilder& sample, const BlockImage& image);

// Forms shared with the items of other headers.
float PutSpan(const SampleBuilder& sample, Body& body, int value);
float PutDuration5(Body& body, double seconds);
std::uint16_t PutByte(Body& body, int value);
// A level distribution of 384 bytes; the record shows the digits of the level offset in its first
// three bytes, on model 442 what the file holds.
void PutDistribution(const SampleBuilder& sample, Body& body, const std::vector<int>& counts,
                     std::uint8_t* table);

}  // namespace samples
