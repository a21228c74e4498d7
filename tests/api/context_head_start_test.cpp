// The head of the context behind the start: what of the text header and of the level offset the file
// does not have, and the mode of the file.
#include <gtest/gtest.h>

#include <string>

#include "support/context_heads.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

// Model 442: a header of 117 bytes, an item (to 121), and the results block that the start looks
// for: its opening line to 150, register 106 to 160.
TEST(ContextHead, StartDoubtsALevelOffsetThatEndsWithTheFile) {
  DataFile const file = Model442("LOG")
                            .Item(kSkipped, Body().Fill(1))
                            .R(1, "Hedrom-Pulke Model 442")
                            .R(106, "1.5")
                            .EndOfData();
  EXPECT_EQ(HeadsOf(file.Bytes(), 1), (Heads{{QV_OK, 0, 117, 0}, {QV_OK, QV_NO_RECORD, 121, 0}}));
  auto const start = [&](std::size_t size) { return HeadsOf(CutTo(file, size), 0)[0]; };
  EXPECT_EQ(start(160), (Head{QV_OK, 0, 117, 0}));
  EXPECT_EQ(start(159), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(157), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(155), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(154), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(153).status, QV_NOT_FOUND);
}

// The start looks at 2,100,000 bytes behind the header and no further: a line that ends behind them
// is cut for it, not for the file.
TEST(ContextHead, StartDoubtsNothingThatItDoesNotLookAt) {
  std::string bytes = Model442("LOG").Bytes();
  std::string const block = "R  1,Hedrom-Pulke Model 442\r\nR106,1.5";
  bytes.append(2100000 - block.size(), 'x').append(block).append("\r\n");
  EXPECT_EQ(HeadsOf(bytes, 0)[0], (Head{QV_OK, 0, 117, 0}));
}

// A header of 1179 bytes, long enough for the tail of model 431; its last line is of 18, the one
// before of 14.
TEST(ContextHead, StartDoubtsAHeaderThatEndsWithTheFile) {
  std::string const title(200, 't');
  DataFile const file = DataFile()
                            .Titles(title, title, title)
                            .Header({.Model = 431,
                                     .ModeTag = "ENV ",
                                     .FirstLine = "L" + std::string(240, 'x'),
                                     .FourthLine = std::string(240, 'y')});
  ASSERT_EQ(file.Size(), 1179U);
  auto const start = [&](std::size_t size) { return HeadsOf(CutTo(file, size), 0)[0]; };
  EXPECT_EQ(start(1179), (Head{QV_OK, 0, 1179, 0}));
  for (int const size : {1178, 1170, 1161, 1160, 1147}) {
    Head const cut = start(static_cast<std::size_t>(size));
    EXPECT_EQ(cut.status, QV_OK) << size;
    EXPECT_EQ(cut.offset, size);
    EXPECT_GT(cut.missing, 0U) << size;
  }
}

TEST(ContextHead, StartDoubtsTitlesThatEndWithTheFile) {
  DataFile const file = DataFile().Titles("a", "b", "c").Q(157, "3").EndOfData();
  EXPECT_EQ(HeadsOf(file.Bytes(), 1),
            (Heads{{QV_NO_TEXT_HEADER, 0, 12, 0}, {QV_OK, QV_SETTINGS, 20, 0}}));
  for (std::size_t const size : {std::size_t{12}, std::size_t{11}, std::size_t{4}}) {
    Head const cut = HeadsOf(CutTo(file, size), 0)[0];
    EXPECT_EQ(cut.status, QV_NO_TEXT_HEADER) << size;
    EXPECT_GT(cut.missing, 0U) << size;
  }
}

// A start forgets the mode of the file before.
TEST(ContextHead, ModeOfTheFileInHand) {
  TempFile const tallies(Startable(Model442("TAL").Item(kSkipped, Body().U8(1))));
  TempFile const general(Startable(General()));
  Session session;
  EXPECT_EQ(session.Start(tallies.Path()), QV_OK);
  EXPECT_EQ(QvMode(session.Context()), 7);
  QV_StopTranslate();
  EXPECT_EQ(session.Start(general.Path()), QV_OK);
  EXPECT_EQ(QvMode(session.Context()), 0);
}

int ModeOf(DataFile file) {
  TempFile const stored(Startable(file.Item(kSkipped, Body().U8(1))));
  Session session;
  EXPECT_EQ(session.Start(stored.Path()), QV_OK);
  return QvMode(session.Context());
}

TEST(ContextHead, ModeByModelAndTag) {
  EXPECT_EQ(ModeOf(Model431("OBA ")), 0);
  EXPECT_EQ(ModeOf(Model431("sSLM")), 1);
  EXPECT_EQ(ModeOf(Model431("iSLM")), 2);
  EXPECT_EQ(ModeOf(Model431("ENV ")), 3);
  EXPECT_EQ(ModeOf(Model442("SSA")), 0);
  EXPECT_EQ(ModeOf(Model442("ISM")), 1);
  EXPECT_EQ(ModeOf(Model442("LOG")), 2);
  EXPECT_EQ(ModeOf(Model442("ENV")), 3);
  EXPECT_EQ(ModeOf(Model442("RTA")), 4);
  EXPECT_EQ(ModeOf(Model442("FFT")), 5);
  EXPECT_EQ(ModeOf(Model442("AUD")), 6);
  EXPECT_EQ(ModeOf(Model442("TAL")), 7);
  EXPECT_EQ(ModeOf(Model442("VIB")), 8);
}

TEST(ContextHead, ModeIs0Elsewhere) {
  EXPECT_EQ(ModeOf(General()), 0);
  EXPECT_EQ(ModeOf(Model431("RTA ")), 0);
  EXPECT_EQ(ModeOf(Model442("xxx")), 0);
  // The tag of another model.
  EXPECT_EQ(ModeOf(Model431("LOG")), 0);
  EXPECT_EQ(ModeOf(Model442("iSLM")), 0);
}

}  // namespace
}  // namespace test
