#include <gtest/gtest.h>

#include "support/setup_block.h"
#include "support/temp_file.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::EmptySetup;
using test::General;
using test::kSetupItem;
using test::kSetupSize;
using test::kSetupSize431;
using test::Model431;
using test::Model442;
using test::NumberedSetup;
using test::NumberedSetupImage;
using test::RecordImage;
using test::Translation;

constexpr std::size_t kFrameSize = 42;

DataFile AnyModel(int model) {
  if (model == 431) return Model431("OBA ", "3.600");
  if (model == 442) return Model442("SSA", "3.600");
  return DataFile().Header({.Model = model, .Firmware = "3.600"});
}

struct DispatchRow {
  int Mode;
  int Code;
};

constexpr DispatchRow kGeneralModes[] = {
    {0, 51}, {1, 52}, {2, 53}, {3, 53}, {4, 70},  {5, 63},
    {6, 0},  {7, 60}, {8, 0},  {9, 0},  {128, 0}, {255, 0},
};

constexpr DispatchRow k431Modes[] = {
    {0, 33}, {1, 34}, {2, 35}, {3, 35}, {4, 0}, {5, 0}, {6, 0}, {7, 0}, {8, 0}, {255, 0},
};

// The first step of a file whose first item is the block.
test::Step SetupStep(const DataFile& start, const Body& block) {
  Translation const run(DataFile(start).Item(kSetupItem, block).EndOfData());
  EXPECT_EQ(run.start, QV_OK);
  return run.steps.at(0);
}

TEST(SetupFrame, ModeByteChoosesTheForm) {
  for (int const model : {442, 486, 430, 432, 500, 100}) {
    for (const DispatchRow& row : kGeneralModes) {
      auto const step = SetupStep(AnyModel(model), EmptySetup(row.Mode));
      EXPECT_EQ(step.Code(), row.Code) << "model " << model << " mode " << row.Mode;
      EXPECT_EQ(step.status, 0) << "model " << model << " mode " << row.Mode;
    }
  }
}

TEST(SetupFrame, ModeByteChoosesTheFormOfModel431) {
  for (const DispatchRow& row : k431Modes) {
    auto const step = SetupStep(AnyModel(431), EmptySetup(row.Mode, kSetupSize431));
    EXPECT_EQ(step.Code(), row.Code) << "mode " << row.Mode;
    EXPECT_EQ(step.status, 0) << "mode " << row.Mode;
  }
}

// The mode of the file is that of its header; a setup does not bend to it.
TEST(SetupFrame, HeaderModeDoesNotMatter) {
  for (const char* const tag : {"SSA", "ISM", "LOG", "ENV", "RTA", "FFT", "AUD", "TAL", "VIB"}) {
    Translation const run(Model442(tag).Item(kSetupItem, EmptySetup(7)).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{60, 15})) << tag;
  }
}

TEST(SetupFrame, BlockWithoutAFormLeavesItsFrameInTheBuffer) {
  for (int const mode : {6, 8}) {
    Translation const run(General().Q(157, "7").Item(kSetupItem, NumberedSetup(mode)).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{7, 15}));
    EXPECT_EQ(run.steps.at(1).status, 0);
    EXPECT_EQ(Difference(NumberedSetupImage(0, 486, mode), run.steps.at(1)), "");
  }
  Translation const run(
      Model431("OBA ").Q(157, "7").Item(kSetupItem, NumberedSetup(4, kSetupSize431)).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_EQ(Difference(NumberedSetupImage(0, 431, 4), run.steps.at(1)), "");
}

// Block images of models 431 and 442 show the flags 64, 32 and 16 of the latest setup.
TEST(SetupFrame, FlagsAreKeptInEveryModeAlsoWithoutAForm) {
  Body const image = Body().Fill(6144, 1);
  for (int mode = 0; mode <= 9; ++mode) {
    for (int const flags : {64, 32, 16, 112}) {
      Translation const run(Model442("SSA")
                                .Item(kSetupItem, EmptySetup(mode).Set(41, {flags}))
                                .Item(8, image)
                                .Item(kSetupItem, EmptySetup(mode).Set(41, {143}))
                                .Item(8, image)
                                .EndOfData());
      EXPECT_EQ(run.As<QvBlockImage>(0, QV_BLOCK_IMAGE).BlockFlags, flags) << "mode " << mode;
      EXPECT_EQ(run.As<QvBlockImage>(1, QV_BLOCK_IMAGE).BlockFlags, 0) << "mode " << mode;
    }
    Translation const run(Model431("OBA ")
                              .Item(kSetupItem, EmptySetup(mode, kSetupSize431).Set(41, {96}))
                              .Item(8, image)
                              .EndOfData());
    EXPECT_EQ(run.As<QvBlockImage>(0, QV_BLOCK_IMAGE).BlockFlags, 96) << "mode " << mode;
  }
}

TEST(SetupFrame, FullTagAndTitleHaveNoTerminator) {
  auto const step = SetupStep(
      AnyModel(486),
      Body().U8(1).Text("ABCDEFGH", 8).Text("abcdefghijklmnopqrstuvwxyzABCD", 30).U8(1).PadTo(219));
  auto const record = Translation::Copy<QvSetupShort>(step);
  EXPECT_EQ(std::string(record.SetupTag, 8), "ABCDEFGH");
  EXPECT_EQ(std::string(record.SetupTitle, 30), "abcdefghijklmnopqrstuvwxyzABCD");
}

TEST(SetupFrame, BytesAreNotSignExtended) {
  auto const step = SetupStep(AnyModel(486), EmptySetup(1).Set(0, {0xFF}).Set(40, {0xFE, 0xFD}));
  auto const record = Translation::Copy<QvSetupShort>(step);
  EXPECT_EQ(record.SetupHead, 0xFF);
  EXPECT_EQ(record.SetupByte40, 0xFE);
  EXPECT_EQ(record.SetupFlagsOut, 0xFD);
}

struct FormRow {
  int Model;
  int Mode;
  int Code;
  std::size_t Size;  // of a whole block
};

constexpr FormRow kForms[] = {
    {442, 0, 51, kSetupSize},    {442, 1, 52, kSetupSize},    {442, 2, 53, kSetupSize},
    {442, 4, 70, kSetupSize},    {442, 5, 63, kSetupSize},    {442, 7, 60, kSetupSize},
    {431, 0, 33, kSetupSize431}, {431, 1, 34, kSetupSize431}, {431, 2, 35, kSetupSize431},
};

// A level of which the block holds nothing reads as no value.
void ExpectNoLevel(RecordImage& image, int code) {
  if (code == 53) image.F32(152, 999.0F);
  if (code == 35) image.F32(156, 999.0F);
}

// Clocks of absent bytes, as they print.
void ExpectZeroTexts(RecordImage& image, int code) {
  struct Row {
    int Code;
    std::size_t Dates;   // two fields of 12, four of 6 and a clock
    std::size_t ClockB;  //
  };
  constexpr Row kRows[] = {{51, 68, 144}, {53, 74, 172}, {33, 66, 140}, {35, 76, 176}};
  for (const Row& row : kRows) {
    if (row.Code != code) continue;
    image.Chars(row.Dates, "00/00/00").Chars(row.Dates + 12, "00/00/00");
    for (std::size_t i = 0; i < 4; ++i) image.Chars(row.Dates + 24 + 6 * i, "00:00");
    image.Chars(row.Dates + 48, "00:00:00").Chars(row.ClockB, "00:00:00");
  }
  if (code == 53) image.Chars(286, "00:00");
  if (code == 35) image.Chars(290, "00:00");
  if (code == 60) image.Chars(62, "00:00:00").Chars(78, "00:00:00");
}

TEST(SetupFrame, ShortBlockIsDeliveredWithZerosAndItsStatus) {
  for (const FormRow& row : kForms) {
    SCOPED_TRACE(row.Code);
    RecordImage image =
        NumberedSetupImage(row.Code, row.Model, row.Mode, row.Code == 53 ? 316 : 304);
    image.U16(2, 0);
    if (row.Code == 63) image.U16(60, 0);            // position 75 in this form
    if (row.Code == 70) image.U8(60, 41).U8(61, 0);  // two bytes in this form
    if (row.Code == 53) image.Untouched(304, 2).Untouched(313, 3);
    ExpectNoLevel(image, row.Code);
    ExpectZeroTexts(image, row.Code);
    auto const step = SetupStep(AnyModel(row.Model), NumberedSetup(row.Mode, kFrameSize));
    EXPECT_EQ(step.status, QV_RECORD_TOO_SHORT);
    EXPECT_EQ(Difference(image, step), "");
  }
}

TEST(SetupFrame, BlockShortByOneByteHasItsStatus) {
  for (const FormRow& row : kForms) {
    SCOPED_TRACE(row.Code);
    auto const whole = SetupStep(AnyModel(row.Model), NumberedSetup(row.Mode, row.Size));
    EXPECT_EQ(whole.status, 0);
    auto const step = SetupStep(AnyModel(row.Model), NumberedSetup(row.Mode, row.Size - 1));
    EXPECT_EQ(step.status, QV_RECORD_TOO_SHORT);
    EXPECT_EQ(step.Code(), row.Code);
  }
}

// A block that ends before its mode byte is one of mode 0.
TEST(SetupFrame, BlockWithoutAModeByteIsABandSetup) {
  for (std::size_t const size : {std::size_t{0}, std::size_t{1}, std::size_t{39}}) {
    auto const general = SetupStep(AnyModel(442), Body().Fill(size, 2));
    EXPECT_EQ(general.Code(), QV_SETUP_BAND);
    EXPECT_EQ(general.status, QV_RECORD_TOO_SHORT);
    auto const of431 = SetupStep(AnyModel(431), Body().Fill(size, 2));
    EXPECT_EQ(of431.Code(), QV_SETUP_BAND_431);
    EXPECT_EQ(of431.status, QV_RECORD_TOO_SHORT);
  }
}

TEST(SetupFrame, BlockWithoutAFormHasTheStatusOfItsFrame) {
  EXPECT_EQ(SetupStep(AnyModel(442), NumberedSetup(6, kFrameSize)).status, QV_OK);
  EXPECT_EQ(SetupStep(AnyModel(442), NumberedSetup(6, kFrameSize - 1)).status, QV_RECORD_TOO_SHORT);
  EXPECT_EQ(SetupStep(AnyModel(431), NumberedSetup(4, kFrameSize)).status, QV_OK);
  EXPECT_EQ(SetupStep(AnyModel(431), NumberedSetup(4, kFrameSize - 1)).status, QV_RECORD_TOO_SHORT);
}

TEST(SetupFrame, ShortBlockIsFollowedByTheNextItem) {
  test::TempFile const file(
      test::Startable(Model442("SSA").Item(kSetupItem, EmptySetup(2, 50)).Q(157, "3").EndOfData()));
  test::Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(session.Code(), QV_SETUP_LOGGING);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Code(), QV_SETTINGS);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
}

TEST(SetupFrame, BytesBehindTheBlockAreIgnored) {
  for (const FormRow& row : kForms) {
    SCOPED_TRACE(row.Code);
    DataFile const start = AnyModel(row.Model);
    auto const whole = SetupStep(start, NumberedSetup(row.Mode, row.Size));
    Translation const run(DataFile(start)
                              .Item(kSetupItem, NumberedSetup(row.Mode, row.Size).Fill(300, 0xAA))
                              .Q(157, "3")
                              .EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{row.Code, 7, 15}));
    EXPECT_EQ(run.steps.at(0).status, 0);
    EXPECT_EQ(run.steps.at(0).record, whole.record);
  }
}

}  // namespace
