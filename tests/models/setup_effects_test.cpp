// What each setup form leaves for the records behind it, and what it leaves alone.
#include <gtest/gtest.h>

#include <optional>

#include "support/kept_settings.h"
#include "support/temp_file.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::EmptySetup;
using test::FullSetup;
using test::General;
using test::KeptSettings;
using test::kSetupItem;
using test::kSetupSize431;
using test::Model431;
using test::SettingsBehind;

constexpr std::optional<double> kKept = std::nullopt;

// Settings of a file without any settings items.
struct FormEffects {
  const char* Name;
  double Before;
  std::optional<double> Form51;
  std::optional<double> Form53;
  std::optional<double> Form60;
  std::optional<double> Form52;
};

constexpr FormEffects kFullOnNothing[] = {
    {"WholeDbStream", 0, 1, 1, 1, kKept},
    {"SixFirst", 0, 16.5, 16.5, 16.5, kKept},
    {"SixLast", 0, 21.5, 21.5, 21.5, kKept},
    {"StreamSelector", 0, 5, 5, 5, kKept},
    {"StreamFlags", 0, kKept, kKept, kKept, kKept},
    {"StreamPeriod", 0, 60, 60, 60, kKept},
    {"MaskA", 0, 17, 17, 17, kKept},
    {"MaskB", 0, 19, 19, 19, kKept},
    {"MaskC", 0, 21, 21, 21, kKept},
    {"MaskD", 0, 18, 18, 18, kKept},
    {"MaskE", 0, 20, 20, 20, kKept},
    {"MaskF", 0, 22, 22, 22, kKept},
    {"SetupKeptA", 0, 0, 178, 0, kKept},
    {"SettingQ50", 0, 0, 179, 0, kKept},
    {"SetupKeptB", 0, 199, 175, 0, kKept},
    {"SettingQ47", 0, 0, 176, 0, kKept},
    {"SummaryLn", 0, 0, 1, kKept, kKept},  // form 51 keeps 64, which is not 1
    {"Distribution2", 0, 1, 1, kKept, 0},
    {"SummaryAux", 0, kKept, 0, kKept, kKept},
    {"ExtraBlock", 0, 1, 1, kKept, kKept},
    {"ModeFormFlag", 0, 0, 0, kKept, 1},
    {"Threshold", 0, kKept, 66.25, kKept, kKept},
    {"Samples", 0, kKept, 1, kKept, kKept},
    {"SampleSpacing", 0, kKept, 3, kKept, kKept},
    {"IntervalAux", 0, kKept, 0, kKept, kKept},
    {"SettingQ206", 0, kKept, 1, kKept, 0},
    {"Distribution", 0, kKept, 1, kKept, 0},
    {"LevelInRecord", 0, kKept, 0, kKept, 0},
    {"TimeIsEnd", 0, kKept, 1, kKept, 0},
    {"AboveLimit", 1, kKept, 0, kKept, kKept},
};

// A setup of zeros behind settings that are all on.
constexpr FormEffects kEmptyOnEverything[] = {
    {"WholeDbStream", 1, 0, 0, 0, kKept},
    {"SixFirst", 55, 0, 0, 0, kKept},
    {"SixLast", 60, 0, 0, 0, kKept},
    {"StreamSelector", 2, 0, 0, 0, kKept},
    {"StreamFlags", 0x0400, kKept, kKept, kKept, kKept},
    {"StreamPeriod", 7, 0, 0, 0, kKept},
    {"MaskA", 1, 0, 0, 0, kKept},
    {"MaskB", 3, 0, 0, 0, kKept},
    {"MaskC", 5, 0, 0, 0, kKept},
    {"MaskD", 2, 0, 0, 0, kKept},
    {"MaskE", 4, 0, 0, 0, kKept},
    {"MaskF", 6, 0, 0, 0, kKept},
    {"SetupKeptA", 491, 0, 0, 0, kKept},
    {"SettingQ50", 501, 0, 0, 0, kKept},
    {"SetupKeptB", 461, 0, 0, 0, kKept},
    {"SettingQ47", 471, 0, 0, 0, kKept},
    {"SummaryLn", 1, 0, 0, kKept, kKept},
    {"Distribution2", 1, 0, 0, kKept, 0},
    {"SummaryAux", 1, kKept, 0, kKept, kKept},
    {"ExtraBlock", 1, 0, 0, kKept, kKept},
    {"ModeFormFlag", 1, 0, 0, kKept, 1},
    {"Threshold", 62.5, kKept, 0, kKept, kKept},
    {"Samples", 1, kKept, 0, kKept, kKept},
    {"SampleSpacing", 2, kKept, 0, kKept, kKept},
    {"IntervalAux", 1, kKept, 0, kKept, kKept},
    {"SettingQ206", 1, kKept, 0, kKept, 0},
    {"Distribution", 1, kKept, 0, kKept, 0},
    {"LevelInRecord", 1, kKept, 0, kKept, 0},
    {"TimeIsEnd", 1, kKept, 0, kKept, 0},
    {"AboveLimit", 0, kKept, 1, kKept, kKept},
};

// Everything that settings lines and an earlier setup can switch on.
DataFile EverythingOn(const DataFile& start) {
  DataFile file = start;
  file.Item(kSetupItem, EmptySetup(2).Set(140, {2}).Set(182, {1, 2, 3, 4, 5, 6}));
  return test::EverySettingOn(file);
}

template <std::size_t Count>
KeptSettings Before(const FormEffects (&rows)[Count]) {
  KeptSettings settings;
  for (const FormEffects& row : rows) settings[row.Name] = row.Before;
  return settings;
}

template <std::size_t Count>
KeptSettings After(const FormEffects (&rows)[Count], std::optional<double> FormEffects::*form) {
  KeptSettings settings;
  for (const FormEffects& row : rows) settings[row.Name] = (row.*form).value_or(row.Before);
  return settings;
}

void ExpectSettings(const KeptSettings& found, const KeptSettings& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (const auto& [name, value] : expected) EXPECT_EQ(found.at(name), value) << name;
}

struct GeneralForm {
  int Mode;
  std::optional<double> FormEffects::*Column;
};

constexpr GeneralForm kGeneralForms[] = {{0, &FormEffects::Form51},
                                         {2, &FormEffects::Form53},
                                         {3, &FormEffects::Form53},
                                         {7, &FormEffects::Form60},
                                         {1, &FormEffects::Form52}};

TEST(SetupEffects, FullSetupOnNothing) {
  DataFile const start = General("3.600");
  ExpectSettings(SettingsBehind(start), Before(kFullOnNothing));
  for (const GeneralForm& form : kGeneralForms) {
    SCOPED_TRACE("mode " + std::to_string(form.Mode));
    ExpectSettings(SettingsBehind(DataFile(start).Item(kSetupItem, FullSetup(form.Mode))),
                   After(kFullOnNothing, form.Column));
  }
}

TEST(SetupEffects, EmptySetupOnEverything) {
  DataFile const start = EverythingOn(General("3.600"));
  ExpectSettings(SettingsBehind(start), Before(kEmptyOnEverything));
  for (const GeneralForm& form : kGeneralForms) {
    SCOPED_TRACE("mode " + std::to_string(form.Mode));
    ExpectSettings(SettingsBehind(DataFile(start).Item(kSetupItem, EmptySetup(form.Mode))),
                   After(kEmptyOnEverything, form.Column));
  }
}

TEST(SetupEffects, OtherModesLeaveEverythingAlone) {
  for (int const mode : {4, 5, 6, 8, 255}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectSettings(SettingsBehind(DataFile(General("3.600")).Item(kSetupItem, FullSetup(mode))),
                   Before(kFullOnNothing));
    ExpectSettings(
        SettingsBehind(EverythingOn(General("3.600")).Item(kSetupItem, EmptySetup(mode))),
        Before(kEmptyOnEverything));
  }
}

// Up to firmware 2.01 the forms 51 and 60 clear four settings and touch nothing else.
TEST(SetupEffects, OldFirmwareClearsFourSettings) {
  DataFile const start = EverythingOn(General("2.01"));
  KeptSettings expected = Before(kEmptyOnEverything);
  expected["MaskB"] = 2;  // form 53 takes its masks from the positions one before
  expected["MaskC"] = 3;
  expected["MaskD"] = 0;  // not shown at this firmware
  expected["MaskF"] = 0;
  ExpectSettings(SettingsBehind(start), expected);
  for (const char* const name : {"SetupKeptA", "SettingQ50", "SetupKeptB", "SettingQ47"}) {
    expected[name] = 0;
  }
  for (int const mode : {0, 7}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectSettings(SettingsBehind(DataFile(start).Item(kSetupItem, FullSetup(mode))), expected);
    ExpectSettings(SettingsBehind(DataFile(start).Item(kSetupItem, EmptySetup(mode))), expected);
  }
}

TEST(SetupEffects, NextFirmwareKeepsTheSettings) {
  auto const kept = SettingsBehind(General("2.0100002").Item(kSetupItem, FullSetup(0)));
  EXPECT_EQ(kept.at("StreamPeriod"), 60.0);
  EXPECT_EQ(kept.at("SetupKeptB"), 199.0);
}

TEST(SetupEffects, OldFirmwareTakesTheMasksOfForm53OneBefore) {
  KeptSettings expected = After(kFullOnNothing, &FormEffects::Form53);
  expected["MaskB"] = 18;
  expected["MaskC"] = 19;
  expected["MaskD"] = 0;  // not shown at this firmware
  expected["MaskF"] = 0;
  ExpectSettings(SettingsBehind(General("2.01").Item(kSetupItem, FullSetup(2))), expected);
}

// Form 51 reads position 49 from firmware 3.6 on; below it the extra block is off.
TEST(SetupEffects, ExtraBlockOfForm51NeedsFirmware36) {
  struct Row {
    const char* Firmware;
    double ExtraBlock;
  };
  constexpr Row kRows[] = {{"2.01", 1}, {"2.02", 0}, {"3.599", 0}, {"3.6", 1}};
  for (const Row& row : kRows) {
    DataFile file = General(row.Firmware);
    file.Q(145, "1").Item(kSetupItem, EmptySetup(0).Set(49, {64}));
    EXPECT_EQ(SettingsBehind(file).at("ExtraBlock"), row.ExtraBlock) << row.Firmware;
  }
}

struct BitRow {
  int Mode;
  std::size_t Position;
  int Bit;
  const char* Name;
};

constexpr BitRow kBits[] = {
    {0, 47, 4, "WholeDbStream"}, {0, 42, 1, "Distribution2"}, {0, 49, 64, "ExtraBlock"},
    {2, 47, 4, "WholeDbStream"}, {2, 42, 64, "SummaryLn"},    {2, 42, 1, "Distribution2"},
    {2, 49, 64, "ExtraBlock"},   {2, 48, 64, "Samples"},      {2, 47, 128, "SettingQ206"},
    {2, 47, 32, "Distribution"}, {2, 48, 32, "TimeIsEnd"},    {7, 47, 4, "WholeDbStream"},
};

TEST(SetupEffects, EachSwitchIsOneBit) {
  for (const BitRow& row : kBits) {
    SCOPED_TRACE(std::string(row.Name) + " in mode " + std::to_string(row.Mode));
    auto const only = EmptySetup(row.Mode).Set(row.Position, {row.Bit});
    EXPECT_EQ(SettingsBehind(General("3.6").Item(kSetupItem, only)).at(row.Name), 1.0);
    auto const others = EmptySetup(row.Mode).Set(row.Position, {255 - row.Bit});
    EXPECT_EQ(SettingsBehind(General("3.6").Item(kSetupItem, others)).at(row.Name), 0.0);
  }
}

struct PeriodRow {
  int Unit;
  double Seconds;
};

// Of the value 8, where 7 seconds were set before.
constexpr PeriodRow kPeriods[] = {{0, 0.25}, {1, 8}, {2, 80}, {3, 480}, {4, 7}, {255, 7}};

TEST(SetupEffects, SamplePeriodHasFourUnits) {
  for (const PeriodRow& row : kPeriods) {
    for (int const mode : {0, 2, 7}) {
      DataFile file = General("3.6");
      file.Q(83, "7").Item(kSetupItem, EmptySetup(mode).Set(141, {8, row.Unit}));
      EXPECT_EQ(SettingsBehind(file).at("StreamPeriod"), row.Seconds)
          << "unit " << row.Unit << " in mode " << mode;
    }
    DataFile file = Model431("iSLM");
    file.Q(83, "7").Item(kSetupItem, EmptySetup(2, kSetupSize431).Set(141, {8, row.Unit}));
    EXPECT_EQ(SettingsBehind(file, 7).at("StreamPeriod"), row.Seconds) << "unit " << row.Unit;
  }
}

TEST(SetupEffects, LimitIsComparedAsAWholeNumber) {
  struct Row {
    int Limit;
    double Above;  // of 80.5 dB
  };
  constexpr Row kRows[] = {{80, 1}, {81, 0}, {255, 0}};
  for (const Row& row : kRows) {
    EXPECT_EQ(SettingsBehind(General().Item(kSetupItem, EmptySetup(2).Set(179, {row.Limit})))
                  .at("AboveLimit"),
              row.Above)
        << row.Limit;
    EXPECT_EQ(SettingsBehind(Model431("iSLM").Item(
                                 kSetupItem, EmptySetup(2, kSetupSize431).Set(179, {row.Limit})),
                             7)
                  .at("AboveLimit"),
              row.Above)
        << row.Limit;
  }
}

TEST(SetupEffects, ThresholdIsSignedInForm35Only) {
  auto const general = General().Item(kSetupItem, EmptySetup(2).Set(122, {255, 128}));
  EXPECT_EQ(SettingsBehind(general).at("Threshold"), 255.5);
  auto const of431 =
      Model431("iSLM").Item(kSetupItem, EmptySetup(2, kSetupSize431).Set(122, {255, 128}));
  EXPECT_EQ(SettingsBehind(of431, 7).at("Threshold"), -0.5);
}

struct FormEffects431 {
  const char* Name;
  double Before;
  std::optional<double> Form35;
  std::optional<double> Form34;
};

constexpr FormEffects431 kFullOnNothing431[] = {
    {"WholeDbStream", 0, 1, kKept},    {"SixFirst", 0, 16.5, kKept},
    {"SixLast", 0, 21.5, kKept},       {"StreamSelector", 0, kKept, kKept},
    {"StreamFlags", 0, 0x1000, kKept}, {"StreamPeriod", 0, 60, kKept},
    {"MaskA", 0, kKept, kKept},        {"MaskB", 0, kKept, kKept},
    {"MaskC", 0, kKept, kKept},        {"MaskD", 0, kKept, kKept},
    {"MaskE", 0, kKept, kKept},        {"MaskF", 0, kKept, kKept},
    {"SetupKeptA", 0, 178, 175},       {"SettingQ50", 0, 179, 176},
    {"SetupKeptB", 0, 175, 175},       {"SettingQ47", 0, 176, 176},
    {"SummaryLn", 0, 1, kKept},        {"Distribution2", 0, 1, kKept},
    {"SummaryAux", 0, 0, kKept},       {"ExtraBlock", 0, 1, kKept},
    {"ModeFormFlag", 0, 1, kKept},     {"Threshold", 0, 66.25, kKept},
    {"Samples", 0, 1, kKept},          {"SampleSpacing", 0, 3, kKept},
    {"IntervalAux", 0, 0, kKept},      {"SettingQ206", 0, 1, kKept},
    {"Distribution", 0, 1, kKept},     {"LevelInRecord", 0, 0, kKept},
    {"TimeIsEnd", 0, 1, kKept},        {"AboveLimit", 1, 0, kKept},
};

constexpr FormEffects431 kEmptyOnEverything431[] = {
    {"WholeDbStream", 1, 0, kKept},    {"SixFirst", 55, 0, kKept},
    {"SixLast", 60, 0, kKept},         {"StreamSelector", 0, kKept, kKept},
    {"StreamFlags", 0x0400, 0, kKept}, {"StreamPeriod", 7, 0, kKept},
    {"MaskA", 0, kKept, kKept},        {"MaskB", 0, kKept, kKept},
    {"MaskC", 0, kKept, kKept},        {"MaskD", 0, kKept, kKept},
    {"MaskE", 0, kKept, kKept},        {"MaskF", 0, kKept, kKept},
    {"SetupKeptA", 491, 0, 0},         {"SettingQ50", 501, 0, 0},
    {"SetupKeptB", 461, 0, 0},         {"SettingQ47", 471, 0, 0},
    {"SummaryLn", 1, 0, kKept},        {"Distribution2", 1, 0, kKept},
    {"SummaryAux", 1, 0, kKept},       {"ExtraBlock", 1, 0, kKept},
    {"ModeFormFlag", 1, 1, kKept},     {"Threshold", 62.5, 0, kKept},
    {"Samples", 1, 0, kKept},          {"SampleSpacing", 2, 0, kKept},
    {"IntervalAux", 1, 0, kKept},      {"SettingQ206", 1, 0, kKept},
    {"Distribution", 1, 0, kKept},     {"LevelInRecord", 1, 0, kKept},
    {"TimeIsEnd", 1, 0, kKept},        {"AboveLimit", 0, 1, kKept},
};

template <std::size_t Count>
KeptSettings After431(const FormEffects431 (&rows)[Count], int mode) {
  KeptSettings settings;
  for (const FormEffects431& row : rows) {
    std::optional<double> const value = mode == 2 || mode == 3 ? row.Form35
                                        : mode == 1            ? row.Form34
                                                               : kKept;
    settings[row.Name] = value.value_or(row.Before);
  }
  return settings;
}

TEST(SetupEffects, FormsOfModel431OnNothing) {
  DataFile const start = Model431("iSLM", "3.600");
  for (int const mode : {0, 1, 2, 3, 4, 7}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectSettings(
        SettingsBehind(DataFile(start).Item(kSetupItem, FullSetup(mode, kSetupSize431)), 7),
        After431(kFullOnNothing431, mode));
  }
}

TEST(SetupEffects, FormsOfModel431OnEverything) {
  DataFile start = Model431("iSLM", "3.600");
  test::EverySettingOn(start);
  for (int const mode : {0, 1, 2, 3, 4, 7}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectSettings(
        SettingsBehind(DataFile(start).Item(kSetupItem, EmptySetup(mode, kSetupSize431)), 7),
        After431(kEmptyOnEverything431, mode));
  }
}

TEST(SetupEffects, EachSwitchOfForm35IsOneBit) {
  for (const BitRow& row : kBits) {
    if (row.Mode != 2) continue;
    SCOPED_TRACE(row.Name);
    auto const only = EmptySetup(2, kSetupSize431).Set(row.Position, {row.Bit});
    EXPECT_EQ(SettingsBehind(Model431("iSLM").Item(kSetupItem, only), 7).at(row.Name), 1.0);
    auto const others = EmptySetup(2, kSetupSize431).Set(row.Position, {255 - row.Bit});
    EXPECT_EQ(SettingsBehind(Model431("iSLM").Item(kSetupItem, others), 7).at(row.Name), 0.0);
  }
}

// The zeros of what is missing are kept like any others.
TEST(SetupEffects, ShortBlockSetsZeros) {
  DataFile file = General("3.6");
  file.Q(83, "7").Item(kSetupItem, EmptySetup(2, 100)).List(27, 2, {Body().U8(60).U8(128)});
  test::TempFile const stored(test::Startable(file.EndOfData()));
  test::Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(session.Next(), QV_OK);
  ASSERT_EQ(session.Code(), QV_FIELD_HISTORY);
  EXPECT_EQ(session.As<QvFieldHistory>().StreamPeriod, 0.0F);
}

}  // namespace
