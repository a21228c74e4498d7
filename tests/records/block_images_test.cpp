// Block images: item 8, and item 7 of models other than 431 and 442.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

// A block whose bytes tell where they stand: their index modulo 251, plus a start of its own.
Body Block(std::size_t size, int start) {
  Body body;
  for (std::size_t i = 0; i < size; ++i) body.U8(static_cast<int>(i % 251) + start);
  return body;
}

void ExpectBlock(RecordImage& image, std::size_t offset, std::size_t size, int start) {
  for (std::size_t i = 0; i < size; ++i) image.U8(offset + i, static_cast<int>(i % 251) + start);
}

// The head, behind which everything is as the host left it.
RecordImage Head(int flags, int model) {
  RecordImage image(QV_OUTPUT_RECORD_SIZE);
  image.Untouched(14, 2).Untouched(20, 6144);
  return image.U16(0, 9).I32(4, kNoon - 1).U16(10, flags).U16(12, model);
}

RecordImage GeneralImage(int model) {
  RecordImage image = Head(64 + 32 + 16, model);
  ExpectBlock(image, 20, 4096, 0);
  ExpectBlock(image, 5140, 512, 2);
  ExpectBlock(image, 5652, 512, 4);
  return image;
}

const Body& GeneralBody() {
  static const Body body =
      Body(Block(4096, 0)).Raw(Block(512, 2).Bytes()).Raw(Block(512, 4).Bytes());
  return body;
}

TEST(BlockImages, OfGeneralModelsHoldThreeBlocks) {
  for (int const item : {7, 8}) {
    for (int const model : {486, 480, 500}) {
      SCOPED_TRACE(std::to_string(item) + " of model " + std::to_string(model));
      Translation const run(test::LoggingFile(model, "1.1").Item(item, GeneralBody()).EndOfData());
      ASSERT_EQ(run.Codes(), (std::vector<int>{9, 15}));
      EXPECT_EQ(run.steps[0].status, QV_OK);
      EXPECT_EQ(Difference(GeneralImage(model), run.Records()[0]), "");
    }
  }
}

TEST(BlockImages, OfGeneralModelsHoldThemWhateverASetupSays) {
  for (int const flags : {0, 64, 255}) {
    SCOPED_TRACE(flags);
    DataFile file = test::General().Item(test::kSetupItem, test::FlagsOnlySetup(flags));
    Translation const run(file.Item(8, GeneralBody()).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{9, 15}));
    EXPECT_EQ(Difference(GeneralImage(486), run.Records()[0]), "");
  }
}

TEST(BlockImages, CarrySiteAndLevelOffset) {
  DataFile file = test::General().Q(157, "513").Q(227, "-2.5").Item(8, GeneralBody());
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 9, 15}));
  EXPECT_EQ(Difference(GeneralImage(486).U16(2, 513).F32(16, -2.5), run.Records()[1]), "");
}

TEST(BlockImages, StandAtTheLastStop) {
  DataFile file = test::General().R(6, "21Jun2024,13:00:00").Item(8, GeneralBody());
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{8, 9, 15}));
  EXPECT_EQ(run.As<QvBlockImage>(1).RecordTime, kNoon + 3600);
}

TEST(BlockImages, RaiseTheLatestTime) {
  Translation const run(test::General().Item(8, GeneralBody()).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{9, 15}));
  EXPECT_EQ(run.As<QvEnd>(1).LatestRecordTime, kNoon - 1);
}

TEST(BlockImages, ReadMissingBytesAsZeroAndDoNotTell) {
  DataFile file = test::General().Item(8, Block(100, 1)).Item(8, Body());
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{9, 9, 15}));
  EXPECT_EQ(run.steps[0].status, QV_OK);
  EXPECT_EQ(run.steps[1].status, QV_OK);

  RecordImage image = Head(64 + 32 + 16, 486);
  for (std::size_t i = 20; i < 20 + 4096; ++i) image.U8(i, 0);
  for (std::size_t i = 5140; i < 6164; ++i) image.U8(i, 0);
  EXPECT_EQ(Difference(image, run.Records()[1]), "");
  ExpectBlock(image, 20, 100, 1);
  EXPECT_EQ(Difference(image, run.Records()[0]), "");
}

TEST(BlockImages, OfModels431And442HoldTheBlocksOfTheSetup) {
  for (int const model : {431, 442}) {
    for (int const flags : {0, 15, 16, 32, 48, 64, 80, 96, 112, 143, 255}) {
      SCOPED_TRACE(std::to_string(model) + ", flags " + std::to_string(flags));
      DataFile file = test::LoggingFile(model, "2.0");
      file.Item(test::kSetupItem,
                model == 431 ? test::FlagsOnlySetup431(flags) : test::FlagsOnlySetup(flags));
      RecordImage image = Head(flags & (64 + 32 + 16), model);
      Body body;
      if (flags & 64) {
        body.Raw(Block(5120, 0).Bytes());
        ExpectBlock(image, 20, 5120, 0);
      }
      if (flags & 32) {
        body.Raw(Block(512, 2).Bytes());
        ExpectBlock(image, 5140, 512, 2);
      }
      if (flags & 16) {
        body.Raw(Block(512, 4).Bytes());
        ExpectBlock(image, 5652, 512, 4);
      }
      Translation const run(file.Item(8, body).EndOfData());
      ASSERT_EQ(run.Codes(), (std::vector<int>{9, 15}));
      EXPECT_EQ(run.steps[1].status, QV_OK);
      EXPECT_EQ(Difference(image, run.Records()[0]), "");
    }
  }
}

TEST(BlockImages, CarryTheLevelBaseOfModel442AndTheLevelOffsetOfModel431) {
  DataFile file442 = test::Model442("LOG", "2.0");
  file442.Item(test::kSetupItem, test::EmptySetup(2).Set(181, {40})).Q(227, "1.5").Item(8, Body());
  Translation const run442(file442.EndOfData());
  ASSERT_EQ(run442.Codes(), (std::vector<int>{53, 7, 9, 15}));
  EXPECT_EQ(run442.As<QvBlockImage>(2).LevelBase, 40.0F);

  Translation const run431(test::Model431("iSLM").Q(227, "1.5").Item(8, Body()).EndOfData());
  ASSERT_EQ(run431.Codes(), (std::vector<int>{7, 9, 15}));
  EXPECT_EQ(run431.As<QvBlockImage>(1).LevelBase, 1.5F);
}

TEST(BlockImages, AreNoItem7OfModels431And442) {
  for (int const model : {431, 442}) {
    SCOPED_TRACE(model);
    DataFile file = test::LoggingFile(model, "2.0").Q(81, "1");
    Translation const run(file.Stream(7, Body().Raw({60, 61})).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{7, 16, 15}));
  }
}

}  // namespace
