// What setups leave for the records that only model 442 has, or that need the flags of position 41.
#include <gtest/gtest.h>

#include "support/kept_settings.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::EmptySetup;
using test::FullSetup;
using test::kSetupItem;
using test::kSetupSize431;
using test::Model431;
using test::Model442;
using test::Translation;

constexpr int kEveryMode[] = {0, 1, 2, 3, 4, 5, 6, 7, 8};

float LevelBase(const DataFile& file) {
  Translation const run(DataFile(file).Item(8, Body().Fill(1)).EndOfData());
  return run.As<QvBlockImage>(0, QV_BLOCK_IMAGE).LevelBase;
}

TEST(SetupEffects442, LevelBaseIsKeptByTheStreamingForms) {
  for (int const mode : kEveryMode) {
    bool const streams = mode == 0 || mode == 2 || mode == 3 || mode == 7;
    DataFile file = Model442("LOG", "3.6");
    file.Item(kSetupItem, EmptySetup(2).Set(181, {9})).Item(kSetupItem, FullSetup(mode));
    EXPECT_EQ(LevelBase(file), streams ? 33.0F : 9.0F) << "mode " << mode;
  }
}

TEST(SetupEffects442, LevelBaseOfOldFirmwareComesFromForm53) {
  for (int const mode : {0, 2, 7}) {
    DataFile file = Model442("LOG", "2.01");
    file.Item(kSetupItem, EmptySetup(2).Set(181, {9})).Item(kSetupItem, FullSetup(mode));
    EXPECT_EQ(LevelBase(file), mode == 2 ? 33.0F : 9.0F) << "mode " << mode;
  }
}

TEST(SetupEffects442, LevelBaseIsAddedToStreamedLevels) {
  Translation const run(Model442("LOG", "3.6")
                            .Item(kSetupItem, EmptySetup(2).Set(181, {200}))
                            .List(27, 2, {Body().U8(60).U8(128)})
                            .EndOfData());
  EXPECT_EQ(run.As<QvFieldHistory>(0, QV_FIELD_HISTORY).Level, 260.5F);
}

// A summary of equal bytes: every level in it reads 60.234375.
QvSpectrumSummary SpectrumSummary(const DataFile& file) {
  Translation const run(DataFile(file).Item(2, Body().Fill(1500, 60)).EndOfData());
  return run.As<QvSpectrumSummary>(0, QV_SPECTRUM_SUMMARY);
}

constexpr float kSixties = 60.234375F;

TEST(SetupEffects442, SecondSpectrumFollowsPosition103) {
  struct Row {
    int Byte;
    float Band;
  };
  constexpr Row kRows[] = {{0, 0.0F}, {1, kSixties}, {2, kSixties}, {255, kSixties}};
  for (const Row& row : kRows) {
    auto const summary = SpectrumSummary(
        Model442("SSA", "3.6").Item(kSetupItem, EmptySetup(0).Set(103, {row.Byte})));
    EXPECT_EQ(summary.SecondBands[0], row.Band) << row.Byte;
    EXPECT_EQ(summary.SecondBands[32], row.Band) << row.Byte;
  }
}

TEST(SetupEffects442, SixSpectraNeedTheValue2AtPosition104) {
  for (int const kind : {0, 1, 2, 3, 255}) {
    auto const summary =
        SpectrumSummary(Model442("SSA", "3.6").Item(kSetupItem, EmptySetup(0).Set(104, {kind})));
    EXPECT_EQ(summary.Spectra[0][0] == kSixties, kind == 2) << kind;
    EXPECT_EQ(summary.Spectra[5][32] == kSixties, kind == 2) << kind;
  }
}

TEST(SetupEffects442, OtherFormsLeaveTheSpectraAlone) {
  for (int const mode : kEveryMode) {
    if (mode == 0) continue;
    DataFile file = Model442("SSA", "3.6");
    file.Item(kSetupItem, EmptySetup(0).Set(103, {1, 2})).Item(kSetupItem, EmptySetup(mode));
    auto const summary = SpectrumSummary(file);
    EXPECT_EQ(summary.SecondBands[0], kSixties) << "mode " << mode;
    EXPECT_EQ(summary.Spectra[0][0], kSixties) << "mode " << mode;
  }
}

TEST(SetupEffects442, OldFirmwareLeavesTheSpectraAlone) {
  auto const summary = SpectrumSummary(Model442("SSA", "2.01").Item(kSetupItem, FullSetup(0)));
  EXPECT_EQ(summary.SecondBands[0], 0.0F);
  EXPECT_NE(summary.Spectra[0][0], kSixties);
}

// These summaries ask whether a setting is not 0, so the 64 that form 51 keeps counts.
TEST(SetupEffects442, SectionsFollowTheBitsOfForm51) {
  struct Row {
    std::size_t Position;
    int Byte;
    int Flags;
  };
  constexpr Row kRows[] = {{42, 0, 0},     {42, 64, 512}, {42, 255 - 64, 256}, {42, 1, 256},
                           {42, 254, 512}, {42, 65, 768}, {49, 64, 8},         {49, 255 - 64, 0}};
  for (const Row& row : kRows) {
    auto const summary = SpectrumSummary(
        Model442("SSA", "3.6").Item(kSetupItem, EmptySetup(0).Set(row.Position, {row.Byte})));
    EXPECT_EQ(summary.SectionFlags, row.Flags) << row.Position << ": " << row.Byte;
  }
}

int BandFlag(const DataFile& file) {
  Translation const run(DataFile(file).Item(2, Body().Fill(84, 60)).EndOfData());
  return run.As<QvBandTable>(0, QV_BAND_TABLE).BandFlag;
}

TEST(SetupEffects442, BandFlagIsTheTopBitOfForm70) {
  struct Row {
    int Flags;
    int BandFlag;
  };
  constexpr Row kRows[] = {{0, 0}, {128, 128}, {127, 0}, {255, 128}};
  for (const Row& row : kRows) {
    EXPECT_EQ(BandFlag(Model442("RTA").Item(kSetupItem, EmptySetup(4).Set(41, {row.Flags}))),
              row.BandFlag)
        << row.Flags;
  }
}

TEST(SetupEffects442, OtherFormsLeaveTheBandFlagAlone) {
  for (int const mode : kEveryMode) {
    if (mode == 4) continue;
    DataFile file = Model442("RTA");
    file.Item(kSetupItem, EmptySetup(4).Set(41, {128})).Item(kSetupItem, EmptySetup(mode));
    EXPECT_EQ(BandFlag(file), 128) << "mode " << mode;
    EXPECT_EQ(BandFlag(Model442("RTA").Item(kSetupItem, EmptySetup(mode).Set(41, {128}))), 0)
        << "mode " << mode;
  }
}

TEST(SetupEffects442, TopFlagOfEveryFormGives33Bands) {
  Body const block = Body().U8(1).Duration3(1.5).Fill(68, 60);
  for (int const mode : kEveryMode) {
    for (int const flags : {0, 128, 127, 255}) {
      Translation const run(Model442("LOG")
                                .Item(kSetupItem, EmptySetup(mode).Set(41, {flags}))
                                .List(21, 72, {block})
                                .EndOfData());
      auto const spectrum = run.As<QvTimedSpectrum>(0, QV_TIMED_SPECTRUM);
      EXPECT_EQ(spectrum.Bands[10], kSixties);
      EXPECT_EQ(spectrum.Bands[11], flags >= 128 ? kSixties : 0.0F)
          << "mode " << mode << " flags " << flags;
      EXPECT_EQ(spectrum.Bands[32], flags >= 128 ? kSixties : 0.0F)
          << "mode " << mode << " flags " << flags;
    }
  }
}

TEST(SetupEffects442, Flag8OfModel431GivesThirds) {
  for (int const mode : {0, 1, 2, 3, 4}) {
    for (int const flags : {0, 8, 247, 255}) {
      Translation const run(Model431("OBA ")
                                .Item(kSetupItem, EmptySetup(mode, kSetupSize431).Set(41, {flags}))
                                .Item(2, Body().Fill(72, 60))
                                .EndOfData());
      bool const thirds = flags == 8 || flags == 255;
      auto const bands = run.As<QvBands431>(0, QV_BANDS_431);
      EXPECT_EQ(bands.Bands[0], thirds ? kSixties : 0.0F) << "mode " << mode << ", " << flags;
      EXPECT_EQ(bands.Bands[1], kSixties) << "mode " << mode << ", " << flags;
    }
  }
}

}  // namespace
