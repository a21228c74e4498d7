// The 'S' items: type 36 of model 431, type 54 of every other model.
#include <gtest/gtest.h>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/steps.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr int kSiteItem = 'S';
constexpr std::size_t kSiteSize = 226;

struct RawTextRow {
  std::size_t Offset;
  int Position;
  int Width;
};

constexpr ByteRow kBytes431[] = {
    {12, 0},    {14, 1},    {16, 2},    {18, 3},    {20, 4},    {32, 18},   {130, 109},
    {134, 111}, {136, 112}, {138, 113}, {140, 114}, {142, 115}, {144, 116}, {146, 117},
    {148, 118}, {150, 119}, {152, 120}, {186, 151}, {230, 190}, {232, 191}, {234, 192},
    {236, 193}, {238, 194}, {240, 195}, {242, 196}, {244, 197}, {262, 208}, {264, 209},
};
constexpr RawTextRow kTexts431[] = {
    {22, 9, 5},     {28, 14, 4},    {34, 19, 30},  {66, 49, 30},  {98, 79, 30},
    {154, 121, 30}, {188, 152, 30}, {220, 182, 8}, {252, 200, 8},
};

constexpr ByteRow kBytes[] = {
    {12, 0},    {14, 1},    {16, 2},    {18, 3},    {20, 4},    {22, 7},    {24, 8},    {36, 18},
    {134, 109}, {138, 111}, {140, 112}, {142, 113}, {144, 114}, {146, 115}, {148, 116}, {150, 117},
    {152, 118}, {154, 119}, {156, 120}, {190, 151}, {234, 190}, {236, 191}, {238, 192}, {240, 193},
    {242, 194}, {244, 195}, {246, 196}, {248, 197}, {266, 208}, {268, 209},
};
constexpr RawTextRow kTexts[] = {
    {26, 9, 5},     {32, 14, 4},    {38, 19, 30},  {70, 49, 30},  {102, 79, 30},
    {158, 121, 30}, {192, 152, 30}, {224, 182, 8}, {256, 200, 8}, {280, 214, 4},
};

template <std::size_t Bytes, std::size_t Texts>
void Fill(RecordImage& image, const ByteRow (&bytes)[Bytes], const RawTextRow (&texts)[Texts]) {
  for (ByteRow const& row : bytes) {
    image.U16(static_cast<std::size_t>(row.Offset),
              CountedByte(static_cast<std::size_t>(row.Position)));
  }
  for (RawTextRow const& row : texts) {
    for (int i = 0; i < row.Width; ++i) {
      image.U8(row.Offset + static_cast<std::size_t>(i), row.Position + i);
    }
  }
}

Body LevelMark() {
  return Body().U8(0).Date(1, 6, 2024).Time(12, 0, 0).Level(60.5).U8(0);
}

TEST(Site431, EveryPositionHasItsField) {
  Translation const run(
      Model431("OBA ").Q(157, "7").Item(kSiteItem, CountingBody(kSiteSize)).EndOfData());
  RecordImage expected(272);
  expected.U16(0, 36).U16(2, 7).U16(10, 431);
  Fill(expected, kBytes431, kTexts431);
  expected.U8(132, 110).F32(248, -58 + 199 / 256.0f).Chars(266, "d2:d3");
  EXPECT_EQ(run.end, QV_END_OF_DATA);
  ASSERT_EQ(run.Records(36).size(), 1u);
  EXPECT_EQ(run.Records(36)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(36)[0]), "");
}

TEST(Site, EveryPositionHasItsField) {
  for (int const model : {442, 486}) {
    SCOPED_TRACE(model);
    DataFile file = model == 442 ? Model442("SSA") : General();
    Translation const run(file.Q(157, "7").Item(kSiteItem, CountingBody(kSiteSize)).EndOfData());
    RecordImage expected(288);
    expected.U16(0, 54).U16(2, 7).U16(10, model);
    Fill(expected, kBytes, kTexts);
    expected.U8(136, 110).F32(252, -58 + 199 / 256.0f).Chars(270, "d2:d3");
    expected.F32(276, -44 + 213 / 256.0f);
    EXPECT_EQ(run.end, QV_END_OF_DATA);
    ASSERT_EQ(run.Records(54).size(), 1u);
    EXPECT_EQ(run.Records(54)[0].status, 0);
    EXPECT_EQ(Difference(expected, run.Records(54)[0]), "");
  }
}

TEST(Site, ValuesTakeNoLevelOffsetAndNoMarker) {
  Body const body = Body().PadTo(kSiteSize).Set(198, {5, 128}).Set(212, {0xFF, 0x80});
  Translation const run(General().Q(227, "1.5").Item(kSiteItem, body).EndOfData());
  ASSERT_EQ(run.Records(54).size(), 1u);
  EXPECT_EQ(run.As<QvSite>(0, 54).SiteValue198, 5.5f);
  EXPECT_EQ(run.As<QvSite>(0, 54).SiteValue212, -0.5f);
  Translation const run431(Model431("OBA ").Q(227, "1.5").Item(kSiteItem, body).EndOfData());
  ASSERT_EQ(run431.Records(36).size(), 1u);
  EXPECT_EQ(run431.As<QvSite431>(0, 36).SiteValue198, 5.5f);
}

TEST(Site, ClockShowsTheDigitsOfTheBytes) {
  Body const body = Body().PadTo(kSiteSize).Set(210, {0x23, 0x59});
  Translation const run(General().Item(kSiteItem, body).EndOfData());
  ASSERT_EQ(run.Records(54).size(), 1u);
  EXPECT_STREQ(run.As<QvSite>(0, 54).SiteClock210, "23:59");
  Translation const run431(Model431("OBA ").Item(kSiteItem, body).EndOfData());
  ASSERT_EQ(run431.Records(36).size(), 1u);
  EXPECT_STREQ(run431.As<QvSite431>(0, 36).SiteClock210, "23:59");
}

TEST(Site, TheRecordsBehindCarryTheNewNumber) {
  struct {
    DataFile file;
    int code;
  } const cases[] = {{Model431("OBA "), 36}, {Model442("SSA"), 54}, {General(), 54}};
  for (auto const& [head, code] : cases) {
    SCOPED_TRACE(code);
    DataFile file = head;
    Translation const run(file.Q(157, "7")
                              .Item(kSiteItem, Body().PadTo(kSiteSize).Set(151, {33}))
                              .Item(5, LevelMark())
                              .Item(kSiteItem, Body().PadTo(kSiteSize).Set(151, {250}))
                              .Item(5, LevelMark())
                              .EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, code, 5, code, 5, 15}));
    // The number stands at offset 2 of every record.
    auto const site = [&](std::size_t index) { return run.As<QvLevelMark>(index).SiteNumber; };
    EXPECT_EQ(site(1), 7);
    EXPECT_EQ(site(2), 33);
    EXPECT_EQ(site(3), 33);
    EXPECT_EQ(site(4), 250);
    // The end record keeps the number of the settings.
    EXPECT_EQ(site(5), 7);
  }
}

TEST(Site, ShortBodyEndsWithItsStatusAndClearsTheNumber) {
  RecordImage of54(288);
  of54.U16(0, 54).U16(2, 7).U16(10, 486).Chars(270, "00:00");
  RecordImage of36(272);
  of36.U16(0, 36).U16(2, 7).U16(10, 431).Chars(266, "00:00");
  struct {
    DataFile head;
    const RecordImage& expected;
  } const forms[] = {{General(), of54}, {Model431("OBA "), of36}};
  for (auto const& [head, expected] : forms) {
    for (std::size_t const size : {0u, 151u}) {
      SCOPED_TRACE(testing::Message() << expected.Bytes().size() << " of " << size);
      DataFile file = head;
      file.Q(157, "7").Item(kSiteItem, Body().Fill(size)).Item(5, LevelMark());
      auto const steps = TakeSteps(file, 3);
      ASSERT_EQ(steps.size(), 3u);
      EXPECT_EQ(steps[1].status, QV_RECORD_TOO_SHORT);
      EXPECT_EQ(Difference(expected, steps[1]), "");
      ASSERT_EQ(steps[2].Code(), QV_LEVEL_MARK);
      EXPECT_EQ(Translation::Copy<QvLevelMark>(steps[2]).SiteNumber, 0);
    }
  }
}

TEST(Site, TheWholeBodyHas226Bytes) {
  struct {
    std::size_t size;
    int status;
  } constexpr kCases[] = {
      {218, QV_RECORD_TOO_SHORT}, {225, QV_RECORD_TOO_SHORT}, {226, 0}, {300, 0}};
  for (auto const& [size, status] : kCases) {
    SCOPED_TRACE(size);
    Body const body = Body().PadTo(size).Set(151, {9});
    auto const steps = TakeSteps(General().Item(kSiteItem, body).Item(5, LevelMark()), 2);
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].status, status);
    ASSERT_EQ(steps[1].Code(), QV_LEVEL_MARK);
    EXPECT_EQ(Translation::Copy<QvLevelMark>(steps[1]).SiteNumber, 9);
    auto const steps431 = TakeSteps(Model431("OBA ").Item(kSiteItem, body), 1);
    ASSERT_EQ(steps431.size(), 1u);
    EXPECT_EQ(steps431[0].status, status);
  }
}

}  // namespace
}  // namespace test
