// What a step leaves in the context: where the next one begins, first offsets and counts, the text
// of errors. Hosts treat the context as opaque, so no export shows these fields.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "api/context.h"
#include "support/open_files.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using qvslm::TranslateContext;
using samples::Body;
using samples::DataFile;
using test::General;
using test::Model431;
using test::Model442;
using test::OpenFiles;
using test::Session;
using test::Startable;
using test::TempFile;

TranslateContext& StateOf(const Session& session) {
  return *static_cast<TranslateContext*>(session.Context());
}

int Offset(const DataFile& file) {
  return static_cast<int>(file.Size());
}

std::vector<int> FirstOffsets(const TranslateContext& state) {
  return {state.FirstOffset1,   state.FirstOffset2,  state.FirstOffset3,   state.FirstOffset4,
          state.FirstOffset5,   state.FirstOffset6,  state.FirstOffset129, state.FirstOffset130,
          state.FirstOffset131, state.FirstOffset132};
}

TEST(PumpState, BehindTheStart) {
  for (const DataFile& head :
       {General(), Model431("OBA "), Model442("SSA"),
        DataFile().Titles("a", "b", "c").Header({.FirstLine = "* starred"})}) {
    TempFile const file(Startable(DataFile(head).Item(5, Body().Fill(10)).EndOfData()));
    Session session;
    TranslateContext& state = StateOf(session);
    state.EndRecord.EndRecordZero = 7;
    state.FetchIndex1 = 7;
    ASSERT_EQ(session.Start(file.Path()), QV_OK);
    EXPECT_NE(state.File, nullptr);
    EXPECT_EQ(state.FileOffset, Offset(head));
    EXPECT_EQ(state.KeepFileOpen, 1);
    EXPECT_EQ(state.ErrorCode, 0);
    EXPECT_EQ(state.EndRecord.EndRecordZero, 0);
    EXPECT_EQ(FirstOffsets(state), std::vector<int>(10, 0));
    EXPECT_EQ(state.FetchIndex1, 0);
    EXPECT_EQ(std::string(state.FilePath), file.Path());
  }
}

TEST(PumpState, InTheSettingsForm) {
  for (const DataFile& head : {DataFile(), DataFile().Titles("a", "b", "c")}) {
    TempFile const file(DataFile(head).Q(157, "3").EndOfData());
    Session session;
    ASSERT_EQ(session.Start(file.Path()), QV_NO_TEXT_HEADER);
    EXPECT_NE(StateOf(session).File, nullptr);
    EXPECT_EQ(StateOf(session).FileOffset, Offset(head));
    EXPECT_EQ(StateOf(session).Model, 486);
    EXPECT_EQ(StateOf(session).Mode, 0);
  }
}

// Model, mode and firmware are known when the tail turns out to be missing.
TEST(PumpState, OfAFileWithoutATail) {
  TempFile const file(Model431("ENV ", "2.5").EndOfData());
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_TAIL_SEEK_FAILED);
  EXPECT_EQ(StateOf(session).Model, 431);
  EXPECT_EQ(StateOf(session).Mode, 3);
  EXPECT_EQ(StateOf(session).FirmwareVersion, 2.5f);
}

TEST(PumpState, EachStepLeavesTheOffsetOfTheNextItem) {
  struct Piece {
    const char* name;
    DataFile bytes;
  };
  const Piece kPieces[] = {
      {"5", DataFile().Item(5, Body().Fill(10))},
      {"unknown", DataFile().Item(9, Body().Fill(100))},
      {"empty", DataFile().Item(200, Body())},
      {"1", DataFile().Item(1, Body().Fill(200))},
      {"2", DataFile().Item(2, Body().Fill(600))},
      {"3", DataFile().Item(3, Body().Fill(800))},
      {"4", DataFile().Item(4, Body().Fill(13))},
      {"4 cut short", DataFile().Item(4, Body().Fill(3))},
      {"7", DataFile().Item(7, Body().Fill(5120))},
      {"8", DataFile().Item(8, Body().Fill(5120))},
      {"129", DataFile().Item(129, Body().Fill(211))},
      {"130", DataFile().Item(130, Body().Fill(211))},
      {"131", DataFile().Item(131, Body().Fill(71))},
      {"132", DataFile().Item(132, Body().Fill(71))},
      {"C", DataFile().Item(67, Body().Fill(65))},
      {"M", DataFile().Item(77, Body().Fill(219))},
      {"M without a form", DataFile().Item(77, Body().Fill(219).Set(39, {8}))},
      {"S", DataFile().Item(83, Body().Fill(226))},
      {"E", DataFile().EndLines("nd", "second")},
      {"Q", DataFile().Q(157, "3").Q(2, "title").Q(300, "unknown")},
      {"R", DataFile().R(7, "01:00:00").R(5, "00:10:00")},
      {"stream", DataFile().Stream(6, Body().U8(60).U8(128))},
      {"empty stream", DataFile().Stream(6, Body())},
      {"list 21", DataFile().List(21, 30, {Body().U8(1)})},
      {"list 27", DataFile().List(27, 200, {Body().U8(60)})},
      {"end", DataFile().EndOfData()},
      {"5 behind the end", DataFile().Item(5, Body().Fill(10))},
  };
  DataFile file = General();
  std::vector<int> offsets;
  for (const Piece& piece : kPieces) offsets.push_back(Offset(file.Raw(piece.bytes.Bytes())));
  TempFile const stored(Startable(file.EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    session.Next();
    EXPECT_EQ(StateOf(session).FileOffset, offsets[i]) << "behind item " << kPieces[i].name;
    EXPECT_EQ(StateOf(session).Output, nullptr);
    EXPECT_EQ(StateOf(session).RecordFilter, 65535);
    EXPECT_EQ(StateOf(session).StreamInProgress, 0u);
  }
}

TEST(PumpState, StreamsAndListsMoveByWhatTheyTook) {
  Body samples;
  for (int i = 0; i < 100; ++i) samples.U8(60).U8(128);
  DataFile const head = General();
  DataFile const stream = DataFile(head).Stream(6, samples);
  DataFile const list = DataFile(stream).List(27, 40, {Body().U8(60), Body().U8(61)});
  TempFile const file(Startable(DataFile(list).EndOfData()));
  Session session;
  TranslateContext& state = StateOf(session);
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(state.FileOffset, Offset(head) + 1 + 120);  // sixty samples of two bytes
  EXPECT_NE(state.StreamInProgress, 0u);
  EXPECT_EQ(state.StreamType, 6);
  EXPECT_EQ(state.FirstOffset6, Offset(head));
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(state.FileOffset, Offset(stream));
  EXPECT_EQ(state.StreamInProgress, 0u);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(state.FileOffset, Offset(stream) + 2 + 40);
  EXPECT_NE(state.StreamInProgress, 0u);
  EXPECT_EQ(state.StreamType, 27);
  EXPECT_EQ(state.RecordLength, 40u);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(state.FileOffset, Offset(list));
  EXPECT_EQ(state.StreamInProgress, 0u);
  EXPECT_EQ(state.FirstOffset6, Offset(head));
}

TEST(PumpState, FirstOffsetsStayAtTheFirstAndCountsGoOn) {
  DataFile file = General();
  std::vector<int> expected;
  for (int const type : {1, 2, 3, 4, 5}) {
    expected.push_back(Offset(file));
    file.Item(type, Body().Fill(800));
  }
  expected.push_back(Offset(file));
  file.List(21, 30, {Body().U8(1)});
  for (int const type : {129, 130, 131, 132}) {
    expected.push_back(Offset(file));
    file.Item(type, Body().Fill(800));
  }
  for (int const type : {1, 2, 3, 4, 5, 129, 130, 131, 132}) file.Item(type, Body().Fill(800));
  int const steps = 5 + 1 + 4 + 9;
  TempFile const stored(Startable(file.EndOfData()));
  Session session;
  TranslateContext& state = StateOf(session);
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  for (int step = 0; step < steps; ++step) {
    session.Next();
    // The look-ups of the band items move the cursors of their owners' families.
    if (step == 5) {
      EXPECT_EQ(std::vector<int>(expected.begin(), expected.begin() + 6),
                (std::vector<int>{state.FirstOffset1, state.FirstOffset2, state.FirstOffset3,
                                  state.FirstOffset4, state.FirstOffset5, state.FirstOffset6}));
    }
  }
  EXPECT_EQ(state.FirstOffset129, expected[6]);
  EXPECT_EQ(state.FirstOffset130, expected[7]);
  EXPECT_EQ(state.FirstOffset131, expected[8]);
  EXPECT_EQ(state.FirstOffset132, expected[9]);
  EXPECT_EQ(state.FirstOffset3, expected[2]);
  EXPECT_EQ(state.FirstOffset4, expected[3]);
  EXPECT_EQ(state.Count1, 2u);
  EXPECT_EQ(state.Count2, 2u);
  EXPECT_EQ(state.Count3, 2u);
  EXPECT_EQ(state.Count4, 2u);
  EXPECT_EQ(state.Count5, 2u);
  EXPECT_EQ(state.Count129to132, 8u);
}

TEST(PumpState, ASettingsBlockMovesAllFirstOffsets) {
  DataFile const block = General().Item(5, Body().Fill(10)).Q(157, "3").Q(2, "title");
  DataFile const file = DataFile(block).Item(5, Body().Fill(10)).Item(3, Body().Fill(800));
  TempFile const stored(Startable(DataFile(file).EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(FirstOffsets(StateOf(session)), std::vector<int>(10, Offset(block)));
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(FirstOffsets(StateOf(session)), std::vector<int>(10, Offset(block)));
}

TEST(PumpState, ATooLongItemIsCountedButNotPassed) {
  DataFile const head = General();
  TempFile const file(Startable(DataFile(head).Raw(Body().U8(5).U16(6201).Bytes()).EndOfData()));
  Session session;
  TranslateContext& state = StateOf(session);
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  for (unsigned const count : {1u, 2u}) {
    EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
    EXPECT_EQ(state.FileOffset, Offset(head));
    EXPECT_EQ(state.FirstOffset5, Offset(head));
    EXPECT_EQ(state.Count5, count);
    EXPECT_EQ(state.ErrorCode, -312);
    EXPECT_EQ(state.LastError, 0);
    EXPECT_STREQ(state.ErrorText, "");
  }
}

// The fields that a step sets anew, whatever they held.
TEST(PumpState, EachStepSetsItsOwnFields) {
  TempFile const file(Startable(General().Item(5, Body().Fill(10)).EndOfData()));
  Session session;
  TranslateContext& state = StateOf(session);
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  qvslm::u8 leftover[1];
  state.RawRecordCopy = leftover;
  state.RecordFilter = 3;
  state.RecordPos = 77;
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(state.RawRecordCopy, nullptr);
  EXPECT_EQ(state.RecordFilter, 65535);
  EXPECT_EQ(state.RecordLength, 10u);
  EXPECT_EQ(state.RecordPos, 0);
}

TEST(PumpState, TheEndOfDataLeavesNoFile) {
  DataFile const file = General().EndOfData();
  TempFile const stored(Startable(file));
  Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_EQ(StateOf(session).File, nullptr);
  EXPECT_EQ(StateOf(session).FileOffset, Offset(file));
  EXPECT_EQ(StateOf(session).ErrorCode, -318);
  EXPECT_EQ(StateOf(session).LastError, 0);
}

// The offset is all that a step needs: with KeepFileOpen 0 the file is closed in between.
TEST(PumpState, TheFileMayBeClosedBetweenSteps) {
  Body samples;
  for (int i = 0; i < 100; ++i) samples.U8(60).U8(128);
  TempFile const file(Startable(General()
                                    .Item(5, Body().Fill(10))
                                    .Stream(6, samples)
                                    .Q(157, "3")
                                    .List(27, 40, {Body().U8(60), Body().U8(61)})
                                    .EndOfData()));
  Session session;
  long const open = OpenFiles();
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(OpenFiles(), open + 1);
  for (int const code : {5, 16, 16, 7, 57, 57}) {
    StateOf(session).KeepFileOpen = 0;
    EXPECT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.Code(), code);
    EXPECT_EQ(StateOf(session).File, nullptr);
    EXPECT_EQ(OpenFiles(), open);
  }
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_EQ(session.Code(), QV_END);
  EXPECT_EQ(OpenFiles(), open);
}

TEST(ErrorTexts, OfTheCallsThatRaiseThem) {
  struct Row {
    std::string bytes;
    int status;
    const char* text;
  };
  const Row kRows[] = {
      {"", -314, "Error <-314>"},
      {"Xyz\r\n", -314, "Error <-314>"},
      {DataFile().Q(157, "3").Bytes(), -317, "Error <-317>"},
      {General().EndOfData().Bytes(), -315, "Error <-315>"},
      {Model442("SSA").EndOfData().Bytes(), -310, "Error <-310>"},
      {Startable(General().EndOfData()), 0, ""},
  };
  for (const Row& row : kRows) {
    TempFile const file(row.bytes);
    Session session;
    EXPECT_EQ(session.Start(file.Path()), row.status);
    EXPECT_EQ(StateOf(session).ErrorCode, row.status);
    EXPECT_EQ(StateOf(session).LastError, row.status);
    EXPECT_STREQ(StateOf(session).ErrorText, row.text);
  }
  Session session;
  EXPECT_EQ(session.Start("/no/such/file"), QV_CANNOT_OPEN);
  EXPECT_STREQ(StateOf(session).ErrorText, "Error <-302>");
}

TEST(ErrorTexts, OfTheLookups) {
  TempFile const noSerial("Q157,0\r\n");
  TempFile const emptySerial("L\r\n442\r\n3.6\r\n");
  Session session;
  TranslateContext& state = StateOf(session);
  uint16_t model = 0;
  char serial[81];
  float firmware = 0;
  int16_t count = 0;
  EXPECT_EQ(QV_ReadFileSN(noSerial.CPath(), &state, &model, serial, &firmware), QV_NOT_FOUND);
  EXPECT_STREQ(state.ErrorText, "Error <-310>");
  EXPECT_EQ(QV_ReadFileSN(emptySerial.CPath(), &state, &model, serial, &firmware),
            QV_NO_TEXT_HEADER);
  EXPECT_STREQ(state.ErrorText, "Error <-317>");
  EXPECT_EQ(QV_ReadFileSN("/no/such/file", &state, &model, serial, &firmware), QV_CANNOT_OPEN);
  EXPECT_STREQ(state.ErrorText, "Error <-302>");
  EXPECT_EQ(QV_ReadSiteNum(noSerial.CPath(), &state, &count), QV_NO_TEXT_HEADER);
  EXPECT_STREQ(state.ErrorText, "Error <-317>");
  EXPECT_EQ(QV_ReadSiteNum("/no/such/file", &state, &count), QV_CANNOT_OPEN);
  EXPECT_STREQ(state.ErrorText, "Error <-302>");
  EXPECT_EQ(QV_ReadFileHeader(noSerial.CPath(), &state, nullptr), QV_NO_TEXT_HEADER);
  EXPECT_STREQ(state.ErrorText, "Error <-317>");
  EXPECT_EQ(QV_ReadFileHeader("/no/such/file", &state, nullptr), QV_CANNOT_OPEN);
  EXPECT_STREQ(state.ErrorText, "Error <-302>");
  EXPECT_EQ(state.File, nullptr);
}

TEST(ErrorTexts, NotOfWhatIsPartOfTheWalk) {
  TempFile const file(Startable(General().Item(4, Body().Fill(12)).EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
  EXPECT_STREQ(StateOf(session).ErrorText, "");
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_STREQ(StateOf(session).ErrorText, "");
  EXPECT_EQ(StateOf(session).LastError, 0);
}

}  // namespace
