// Item 2 of model 442 in mode 0: type 56.
#include <gtest/gtest.h>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/zone_times.h"

namespace test {
namespace {

using samples::Body;

// Sums of three equal levels lie this much above them.
constexpr double kThreefold = 4.7712125472;

// What the setup switches on, and behind what is cleared.
enum Section { kPercentiles = 1, kExtraBlock = 2, kDistribution = 4, kSecond = 8, kSpectra = 16 };
constexpr int kAllSections = 31;
constexpr std::size_t kCleared = 812;
constexpr std::size_t kWhole = 1652;

Body Setup442(int sections) {
  int const flagsA = (sections & kPercentiles ? 64 : 0) + (sections & kDistribution ? 1 : 0);
  return EmptySetup(0)
      .Set(42, {flagsA})
      .Set(49, {sections & kExtraBlock ? 64 : 0})
      .Set(103, {sections & kSecond ? 1 : 0, sections & kSpectra ? 2 : 0});
}

// Positions 0 to 26, byte i holding i but for the stamp.
Body Head(int month = 3, int day = 5) {
  return CountingBody(27).Set(0, {day, month, 0x24, 0x06, 0x07, 0x08});
}

// 33 levels of one value.
Body& Levels(Body& body, int hi, int lo, int count = 33) {
  while (count-- > 0) body.U8(hi).U8(lo);
  return body;
}

// Everything that stands in the first 812 bytes whatever the sections are, with a level offset of
// 1.5 dB and bands of 60.5 dB.
RecordImage HeadImage(int flags) {
  RecordImage image(kWhole);
  image.U16(0, 56).I32(4, kMarch).U16(16, flags);
  // Hours 6 * 256 + 7, minutes 8, seconds 9 and 10 / 256.
  image.F32(12, static_cast<float>(1543 * 3600 + 8 * 60 + 9 + 10 / 256.0));
  image.F32(20, 12.5f + 12 / 256.0f).F32(24, 18.5f + 18 / 256.0f).F32(28, 16.5f + 16 / 256.0f);
  image.U16(32, 442).U16(34, 26).F32(36, 20.5f + 20 / 256.0f).U16(40, 24).U16(42, 23).I32(44, 1);
  image.F32(48, 14.5f + 14 / 256.0f).F32(52, 22.5f + 22 / 256.0f).U16(56, 25);
  image.Floats(60, std::vector<float>(33, 62.0f));
  image.Floats(192, std::vector<float>(11, static_cast<float>(62 + kThreefold)));
  image.Floats(368, std::vector<float>(11, static_cast<float>(kThreefold)));
  return image;
}

// The body of an item with the given sections, in the order of the file, each with values of its
// own.
Body SectionedBody(int sections) {
  Body body = Head();
  if (sections & kPercentiles) {
    for (int i = 0; i < 6; ++i) body.U8(70 + i).U8(128);
    for (int i = 0; i < 6; ++i) body.U8(250 + i).U8(64);
  }
  if (sections & kExtraBlock) body.Raw({0x12, 0x34, 0x56, 0x78, 0x9A});
  if (sections & kDistribution) {
    for (int i = 0; i < 384; ++i) body.U8(i + 3);
  }
  Levels(body, 60, 128);
  if (sections & kSecond) Levels(body, 40, 128);
  if (sections & kSpectra) {
    for (int row = 5; row >= 0; --row) Levels(body, 80 + row, 64);
  }
  return body;
}

RecordImage SectionedImage(int sections) {
  int const flags = (sections & kPercentiles ? 512 : 0) + (sections & kExtraBlock ? 8 : 0) +
                    (sections & kDistribution ? 256 : 0);
  RecordImage image = HeadImage(flags);
  image.Untouched(kCleared, kWhole - kCleared);
  if (sections & kPercentiles) {
    image.Floats(412, {72, 73, 74, 75, 76, 77});
    image.Floats(436, {-5.75f, -4.75f, -3.75f, -2.75f, -1.75f, -0.75f});
  }
  if (sections & kExtraBlock) {
    image.F32(1640, 0x1234).F32(1648, 0x5678).U16(1644, 0x9A);
  }
  if (sections & kDistribution) {
    image.U8(460, 1);
    for (int i = 0; i < 384; ++i) image.U8(static_cast<std::size_t>(461 + i), i + 3);
  }
  if (sections & kSecond) {
    image.Floats(236, std::vector<float>(33, 42.0f));
    image.Floats(368, std::vector<float>(11, static_cast<float>(42 + kThreefold)));
  }
  if (sections & kSpectra) {
    for (int row = 0; row < 6; ++row) {
      image.Floats(static_cast<std::size_t>(848 + 132 * row),
                   std::vector<float>(33, 81.75f + static_cast<float>(row)));
    }
  }
  return image;
}

TEST(SpectrumSummary, EverySectionOnAndOff) {
  for (int sections = 0; sections <= kAllSections; ++sections) {
    SCOPED_TRACE(sections);
    Translation const run(Model442("SSA")
                              .Q(227, "1.5")
                              .Item(kSetupItem, Setup442(sections))
                              .Item(2, SectionedBody(sections))
                              .EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 51, 56, 15}));
    EXPECT_EQ(run.Records(56)[0].status, 0);
    EXPECT_EQ(Difference(SectionedImage(sections), run.Records(56)[0]), "");
  }
}

TEST(SpectrumSummary, EachBandHasItsPlace) {
  // Byte i of the tables holds i, but for the first: 33 bands, 33 of the second spectrum, six
  // spectra from the last.
  Body body = Head().Raw(CountingBody(2 * 33 * 2 + 6 * 33 * 2).Bytes());
  Translation const run(Model442("SSA")
                            .Q(157, "7")
                            .Item(kSetupItem, Setup442(kSecond | kSpectra))
                            .Item(2, body)
                            .EndOfData());
  ASSERT_EQ(run.Records(56).size(), 1u);
  auto const record = run.As<QvSpectrumSummary>(0, 56);
  EXPECT_EQ(record.SiteNumber, 7);
  for (int i = 0; i < 33; ++i) {
    int const at = 2 * i;
    float const first = static_cast<float>(i == 0 ? 241 : at) + static_cast<float>(at + 1) / 256;
    float const second = static_cast<float>(66 + 2 * i) + static_cast<float>(67 + 2 * i) / 256;
    EXPECT_EQ(record.Bands[i], first);
    EXPECT_EQ(record.SecondBands[i], second);
  }
  // The spectra begin at byte 132: row 5 there, row 4 at 198, row 3 at 264 (8 in its low bits), row
  // 2 at 330 (74), row 1 at 396 (140), row 0 at 462 (206).
  constexpr float kFirsts[] = {206 + 207 / 256.0f, 140 + 141 / 256.0f, 74 + 75 / 256.0f,
                               8 + 9 / 256.0f,     198 + 199 / 256.0f, 132 + 133 / 256.0f};
  for (int row = 0; row < 6; ++row) EXPECT_EQ(record.Spectra[row][0], kFirsts[row]) << row;
  EXPECT_EQ(record.Spectra[5][32], 196 + 197 / 256.0f);
  EXPECT_EQ(record.Spectra[0][24], 254 + 255 / 256.0f);
}

struct Octave {
  double a, b, c;
  double sum;
};
constexpr Octave kOctaves[] = {
    {60.5, 60.5, 60.5, 65.2712125472},
    {60.5, 63.5, 70.5, 71.6378505035},
    {63.5, 70.5, 60.5, 71.6378505035},
    {70.5, 60.5, 63.5, 71.6378505035},
    {30.5, 60.5, 90.5, 90.5043451134},
    {50.5, 51.5, 52.5, 56.3476288445},
    {0, 60.5, 60.5, 999},
    {60.5, 0, 60.5, 999},
    {60.5, 60.5, 0, 999},
    {0, 0, 0, 999},
    {200.5, 200.5, 200.5, 205.2712125472},
};

TEST(SpectrumSummary, OctavesAreSumsOfThreeBands) {
  // A level of 0 is stored without a second byte: no value.
  Body bands;
  for (Octave const& octave : kOctaves) bands.Level(octave.a).Level(octave.b).Level(octave.c);
  Body body = Head();
  Levels(body, 60, 128).Raw(bands.Bytes());
  Translation const run(Model442("SSA")
                            .Item(2, Head().Raw(bands.Bytes()))
                            .Item(kSetupItem, Setup442(kSecond))
                            .Item(2, body)
                            .EndOfData());
  ASSERT_EQ(run.Records(56).size(), 2u);
  for (std::size_t i = 0; i < 11; ++i) {
    SCOPED_TRACE(i);
    EXPECT_FLOAT_EQ(run.As<QvSpectrumSummary>(0, 56).Octaves[i],
                    static_cast<float>(kOctaves[i].sum));
    EXPECT_FLOAT_EQ(run.As<QvSpectrumSummary>(1, 56).SecondOctaves[i],
                    static_cast<float>(kOctaves[i].sum));
    EXPECT_FLOAT_EQ(run.As<QvSpectrumSummary>(1, 56).Octaves[i], 65.2712125472f);
  }
  EXPECT_EQ(run.As<QvSpectrumSummary>(0, 56).Octaves[6], 999.0f);
}

TEST(SpectrumSummary, OctavesHoldTheLevelOffset) {
  Body body = Head();
  Translation const run(Model442("SSA").Item(2, Levels(body, 60, 128)).EndOfData(),
                        {.levelOffset442 = "-20.5"});
  ASSERT_EQ(run.Records(56).size(), 1u);
  EXPECT_EQ(run.As<QvSpectrumSummary>(0, 56).Bands[0], 40.0f);
  EXPECT_FLOAT_EQ(run.As<QvSpectrumSummary>(0, 56).Octaves[0], 44.7712125472f);
}

TEST(SpectrumSummary, SpectraAreMarkedByTwoZeroBytes) {
  Body body = Head();
  Levels(body, 60, 128).Raw({75, 0, 0, 0, 0, 64});
  Translation const run(Model442("SSA")
                            .Q(227, "1.5")
                            .Item(kSetupItem, Setup442(kSpectra))
                            .Item(2, body.PadTo(489))
                            .EndOfData());
  ASSERT_EQ(run.Records(56).size(), 1u);
  auto const record = run.As<QvSpectrumSummary>(0, 56);
  EXPECT_EQ(record.Spectra[5][0], 76.5f);
  EXPECT_EQ(record.Spectra[5][1], 999.0f);
  EXPECT_EQ(record.Spectra[5][2], 1.75f);
}

TEST(SpectrumSummary, SpectraComeWithKind2Only) {
  for (int const kind : {0, 1, 3, 255}) {
    SCOPED_TRACE(kind);
    Translation const run(Model442("SSA")
                              .Q(227, "1.5")
                              .Item(kSetupItem, EmptySetup(0).Set(104, {kind}))
                              .Item(2, SectionedBody(0))
                              .EndOfData());
    ASSERT_EQ(run.Records(56).size(), 1u);
    EXPECT_EQ(Difference(SectionedImage(0), run.Records(56)[0]), "");
  }
}

TEST(SpectrumSummary, TheSecondSpectrumComesWithAnyNumber) {
  for (int const on : {1, 2, 255}) {
    SCOPED_TRACE(on);
    Translation const run(Model442("SSA")
                              .Q(227, "1.5")
                              .Item(kSetupItem, EmptySetup(0).Set(103, {on}))
                              .Item(2, SectionedBody(kSecond))
                              .EndOfData());
    ASSERT_EQ(run.Records(56).size(), 1u);
    EXPECT_EQ(Difference(SectionedImage(kSecond), run.Records(56)[0]), "");
  }
}

TEST(SpectrumSummary, RegistersSwitchSectionsOnToo) {
  struct {
    int number;
    const char* value;
    int section;
  } constexpr kRegisters[] = {
      {77, "1", kPercentiles},
      {77, "2", kPercentiles},
      {145, "1", kExtraBlock},
      {145, "7", kExtraBlock},
      {210, "1", kDistribution},
      {210, "2", 0},
      {77, "0", 0},
  };
  for (auto const& row : kRegisters) {
    SCOPED_TRACE(testing::Message() << row.number << " " << row.value);
    Translation const run(Model442("SSA")
                              .Q(227, "1.5")
                              .Q(row.number, row.value)
                              .Item(2, SectionedBody(row.section))
                              .EndOfData());
    ASSERT_EQ(run.Records(56).size(), 1u);
    EXPECT_EQ(Difference(SectionedImage(row.section), run.Records(56)[0]), "");
  }
}

TEST(SpectrumSummary, OldFirmwareTakesNoSectionsFromTheSetup) {
  Translation const run(Model442("SSA", "2.01")
                            .Q(227, "1.5")
                            .Item(kSetupItem, Setup442(kAllSections))
                            .Item(2, SectionedBody(0))
                            .EndOfData());
  ASSERT_EQ(run.Records(56).size(), 1u);
  EXPECT_EQ(Difference(SectionedImage(0), run.Records(56)[0]), "");
}

TEST(SpectrumSummary, TheSecondSpectrumOutlivesAFileInItsContext) {
  TempFile const first(
      Startable(Model442("SSA").Item(kSetupItem, Setup442(kAllSections)).EndOfData()));
  TempFile const second(Startable(Model442("SSA", "2.01")
                                      .Q(227, "1.5")
                                      .Item(kSetupItem, Setup442(0))
                                      .Item(2, SectionedBody(kSecond))
                                      .EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(first.Path()), 0);
  while (session.Next() == 0) {
  }
  ASSERT_EQ(session.Start(second.Path()), 0);
  ASSERT_EQ(session.Next(), 0);
  ASSERT_EQ(session.Next(), 0);
  ASSERT_EQ(session.Next(), 0);
  Step const step = {0, {session.Record(), session.Record() + QV_OUTPUT_RECORD_SIZE}};
  EXPECT_EQ(Difference(SectionedImage(kSecond), step), "");
}

TEST(SpectrumSummary, FormsOfHighBytes) {
  Translation const run(Model442("SSA")
                            .Q(227, "1.5")
                            .Item(kSetupItem, Setup442(kAllSections))
                            .Item(2, HighBody(968))
                            .EndOfData());
  ASSERT_EQ(run.Records(56).size(), 1u);
  auto const record = run.As<QvSpectrumSummary>(0, 56);
  EXPECT_EQ(record.RecordTime, kFirstOfJanuary2000);
  for (float const level : {record.Level11, record.Level13, record.Level15, record.Level17,
                            record.Level19, record.Level21, record.PercentileLevels[5],
                            record.Bands[32], record.SecondBands[32], record.Spectra[0][32]}) {
    EXPECT_EQ(level, 202.28125f);
  }
  EXPECT_EQ(record.PercentileNumbers[0], -55.21875f);
  EXPECT_EQ(record.Span1, 51400.0f);
}

TEST(SpectrumSummary, ShortBodyReadsAsZerosWithStatusZero) {
  Translation const run(Model442("SSA")
                            .Q(227, "1.5")
                            .Item(kSetupItem, Setup442(kAllSections))
                            .Item(2, Body())
                            .EndOfData());
  RecordImage expected(kWhole);
  expected.Untouched(kCleared, kWhole - kCleared);
  expected.U16(0, 56).I32(4, kFirstOfJanuary2000).U16(16, 776).U16(32, 442).I32(44, 1);
  for (std::size_t const offset : {20u, 24u, 28u, 36u, 48u, 52u}) expected.F32(offset, 999);
  expected.Floats(60, std::vector<float>(88, 999.0f));  // bands, octaves, and the second of both
  expected.Floats(412, std::vector<float>(6, 999.0f)).U8(460, 1);
  for (std::size_t i = 812; i < 845; ++i) expected.U8(i, 0);
  expected.Floats(848, std::vector<float>(198, 999.0f));
  expected.F32(1640, 0).U16(1644, 0).F32(1648, 0);
  ASSERT_EQ(run.Records(56).size(), 1u);
  EXPECT_EQ(run.Records(56)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(56)[0]), "");
}

TEST(SpectrumSummary, TheModeOfTheSetupIsOfNoRegard) {
  Translation const run(Model442("SSA")
                            .Item(kSetupItem, EmptySetup(5))
                            .Item(2, SectionedBody(0))
                            .Item(2, SectionedBody(0))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{63, 56, 56, 15}));
  EXPECT_EQ(run.As<QvSpectrumSummary>(1).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvSpectrumSummary>(2).RecordIndex, 2u);
}

// Modes of model 442 without a form of item 2: the record type stays 0 and the item comes again.
TEST(SpectrumSummary, ModesWithoutAForm) {
  for (char const* const tag : {"ISM", "AUD", "VIB"}) {
    SCOPED_TRACE(tag);
    Translation const run(Model442(tag).Item(2, SectionedBody(0)).EndOfData(), {.mostSteps = 5});
    ASSERT_EQ(run.steps.size(), 5u);
    EXPECT_EQ(run.end, 0);
    EXPECT_EQ(run.Codes(), (std::vector<int>{}));
  }
}

}  // namespace
}  // namespace test
