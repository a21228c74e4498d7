// Settings and results blocks, written register by register: each call writes the line and puts the
// same value into the field of the record.
//
//   SettingsBlock(sample)
//       .Text(2, &QvSettings::Title2, "Mill Street")
//       .Number(69, &QvSettings::SettingQ69, 1)
//       .Done();
#pragma once

#include <cstdint>
#include <string>

#include "sample_builder.h"

namespace samples {

// A line of a register, "%3d" after the letter of its block.
template <class R, class Value>
struct Register {
  int number;
  Value R::*field;
  double value;
};

// A number as a settings line writes it: with two decimals.
std::string RealText(double value);

class SettingsBlock {
 public:
  explicit SettingsBlock(SampleBuilder& sample);

  SettingsBlock& Number(int number, std::uint16_t QvSettings::*field, int value);
  SettingsBlock& Real(int number, float QvSettings::*field, double value);
  template <std::size_t N>
  SettingsBlock& Text(int number, char (QvSettings::*field)[N], std::string_view text) {
    SetText(record_.*field, text);
    return Line(number, text);
  }
  // Registers 6, 7 and 8: time, date and day of the week.
  SettingsBlock& Stamp(Clock reading);
  // Registers 121 to 144: name, low and high end, units of the three auxiliary channels.
  SettingsBlock& Channels(const AuxChannel& first, const AuxChannel& second,
                          const AuxChannel& third);
  // Register 227, which stands in no record.
  SettingsBlock& LevelOffset(double decibels);
  // Every register that has no meaning to the layout of a file, with a plain value each.
  SettingsBlock& PlainRegisters();
  // Any other line.
  SettingsBlock& Line(int number, std::string_view value);
  void Done();

 private:
  void TakeEffect();

  SampleBuilder& sample_;
  QvSettings record_{};
};

}  // namespace samples
