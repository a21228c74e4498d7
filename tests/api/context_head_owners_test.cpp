// The head of the context behind records that look for something else in the file: band records for
// the item that owns them, the reference record of model 431 for the level offset.
#include <gtest/gtest.h>

#include <string>

#include "support/context_heads.h"
#include "support/stamped_items.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

// A band record, and the item that owns it.
struct BandForm {
  int type;
  int code;
  int owners;  // type of the owner; its code is the same
  int number;  // that names the owner in the body
  std::size_t body;
  Body owner;
};

class BandHeads : public testing::TestWithParam<BandForm> {
 protected:
  Body Bands() const { return Body().U16(GetParam().number).PadTo(GetParam().body); }
  int BandSize() const { return static_cast<int>(GetParam().body) + 3; }
  int OwnerSize() const { return static_cast<int>(GetParam().owner.Size()) + 3; }
  // The band record at 8, the owner behind it.
  DataFile OwnerBehind() const {
    return SettingsForm().Item(GetParam().type, Bands()).Item(GetParam().owners, GetParam().owner);
  }
  Head Band(int offset, unsigned missing) const {
    return {QV_OK, GetParam().code, offset, missing};
  }
};

INSTANTIATE_TEST_SUITE_P(
    Types, BandHeads,
    testing::Values(BandForm{129, QV_INTERVAL_BANDS, 1, 1, 211, IntervalAt({2024, 6, 21})},
                    BandForm{130, QV_SUMMARY_BANDS, 2, 1, 211, SummaryAt({2024, 6, 21})},
                    BandForm{131, QV_LEVEL_MARK_BANDS, 5, 1, 71, MarkAt({2024, 6, 21})},
                    BandForm{132, QV_INTERVAL_BAND_SERIES, 1, 0, 71, IntervalAt({2024, 6, 21})}),
    [](const auto& form) { return "Item" + std::to_string(form.param.type); });

TEST_P(BandHeads, OwnerBefore) {
  DataFile const file =
      SettingsForm().Item(GetParam().owners, GetParam().owner).Item(GetParam().type, Bands());
  int const owner = 8 + OwnerSize();
  int const end = owner + BandSize();
  EXPECT_EQ(LastHeads(file.Bytes(), 2, 3),
            (Heads{{QV_OK, GetParam().owners, owner, 0}, Band(end, 0)}));
  // Its own body cut: the owner is there all the same.
  EXPECT_EQ(HeadBehind(CutTo(file, file.Size() - 7), 3), Band(end - 7, 7));
}

TEST_P(BandHeads, OwnerBehind) {
  int const band = 8 + BandSize();
  EXPECT_EQ(LastHeads(OwnerBehind().Bytes(), 2, 3),
            (Heads{Band(band, 0), {QV_OK, GetParam().owners, band + OwnerSize(), 0}}));
}

TEST_P(BandHeads, OwnerCut) {
  DataFile const file = OwnerBehind();
  int const band = 8 + BandSize();
  for (std::size_t size = static_cast<std::size_t>(band); size < file.Size(); ++size) {
    EXPECT_EQ(HeadBehind(CutTo(file, size), 2), Band(band, 1)) << size;
  }
  // Its own body cut, and so what is behind it.
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) - 7), 2), Band(band - 7, 8));
}

// Another item of 100 bytes between the two, cut too.
TEST_P(BandHeads, CutBeforeTheOwner) {
  DataFile const file = SettingsForm()
                            .Item(GetParam().type, Bands())
                            .Item(3, Body().Fill(100))
                            .Item(GetParam().owners, GetParam().owner);
  int const band = 8 + BandSize();
  EXPECT_EQ(HeadBehind(file.Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 103), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 50), 2), Band(band, 1));
}

// A stream between the two, cut: 40 samples behind its type.
TEST_P(BandHeads, CutInAStreamBeforeTheOwner) {
  DataFile const file = SettingsForm()
                            .Item(GetParam().type, Bands())
                            .Stream(6, Body().Fill(40, 60))
                            .Item(GetParam().owners, GetParam().owner);
  int const band = 8 + BandSize();
  EXPECT_EQ(HeadBehind(file.Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 42), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 41), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 20), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 1), 2), Band(band, 1));
}

// The end of the file is met once: a later band record of the family does not look again.
TEST_P(BandHeads, CountOnce) {
  BandForm const form = GetParam();
  Body const later = Body().U16(form.number + 3).PadTo(form.body);
  DataFile const file = SettingsForm().Item(form.type, Bands()).Item(form.type, later);
  int const band = 8 + BandSize();
  EXPECT_EQ(LastHeads(file.Bytes(), 2, 3), (Heads{Band(band, 1), Band(band + BandSize(), 0)}));
}

// Where the data ends, or a block of settings, no owner is missing: there is none.
TEST_P(BandHeads, NoOwner) {
  DataFile const file = SettingsForm().Item(GetParam().type, Bands());
  int const band = 8 + BandSize();
  EXPECT_EQ(HeadBehind(DataFile(file).EndOfData().Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(DataFile(file).EndLines("nd", "").Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(DataFile(file).Q(5, "x").Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(file.Bytes(), 2), Band(band, 1));
}

// Model 431: a header of 118 bytes, an item that makes the file long enough (to 1021), and the
// reference record (to 1153), which looks ahead for register 106.
class ReferenceHeads : public testing::Test {
 protected:
  static Head Behind(const std::string& ahead) {
    return HeadBehind(Reference().Bytes() + ahead, 2);
  }
  static DataFile Reference() {
    return Model431("iSLM").Item(kSkipped, Body().Fill(900)).Item('C', Body().Fill(129, 1));
  }
  static constexpr Head kCertain{QV_OK, QV_REFERENCE_431, 1153, 0};
  static constexpr Head kUncertain{QV_OK, QV_REFERENCE_431, 1153, 1};
};

TEST_F(ReferenceHeads, LevelOffsetAhead) {
  EXPECT_EQ(HeadsOf(Reference().R(106, "1.5").EndOfData().Bytes(), 2),
            (Heads{{QV_OK, 0, 118, 0}, {QV_OK, QV_NO_RECORD, 1021, 0}, kCertain}));
  EXPECT_EQ(Behind("R106,1.5\r\n"), kCertain);
  EXPECT_EQ(Behind("some text\nR  3,x\r\nR106,1.5\r\n"), kCertain);
}

TEST_F(ReferenceHeads, LevelOffsetCut) {
  EXPECT_EQ(Behind("R106,1.5\r"), kUncertain);
  EXPECT_EQ(Behind("R106,1."), kUncertain);
  EXPECT_EQ(Behind("R10"), kUncertain);
  EXPECT_EQ(Behind("R  3,x\r\n"), kUncertain);
  EXPECT_EQ(Behind(""), kUncertain);
  EXPECT_EQ(Behind(DataFile().Item(5, MarkAt({2024, 6, 21})).Bytes()), kUncertain);
}

// Another line ends the block: register 106 is not missing, the block has none.
TEST_F(ReferenceHeads, WholeBlockWithoutLevelOffset) {
  EXPECT_EQ(Behind(std::string("R  3,x\r\n\0", 9)), kCertain);
  EXPECT_EQ(Behind("R  3,x\r\nQ  5,y\r\n"), kCertain);
}

TEST_F(ReferenceHeads, OwnBodyCut) {
  EXPECT_EQ(HeadBehind(CutTo(Reference(), 1150), 2), (Head{QV_OK, QV_REFERENCE_431, 1150, 4}));
}

}  // namespace
}  // namespace test
