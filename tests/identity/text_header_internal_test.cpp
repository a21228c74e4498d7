// What the text header leaves in the context. Some of it steers later records, but no export shows
// it as it is.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "api/context.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using qvslm::TranslateContext;
using samples::DataFile;
using test::General;
using test::Model431;
using test::Model442;
using test::Session;
using test::TempFile;

// The context behind a reading of the header, which starts out zeroed.
struct Identity {
  explicit Identity(std::string_view bytes, bool withInfo = false) {
    TempFile const file(bytes);
    QvFileHeaderInfo info;
    status = QV_ReadFileHeader(file.CPath(), session.Context(), withInfo ? &info : nullptr);
  }
  explicit Identity(const DataFile& file, bool withInfo = false)
      : Identity(file.Bytes(), withInfo) {}
  const TranslateContext* operator->() const {
    return static_cast<const TranslateContext*>(session.Context());
  }
  std::string Serial() const {
    const char* const text = (*this)->EndRecord.SerialText;
    return std::string(text, strnlen(text, 8));
  }

  Session session;
  int status;
};

TEST(HeaderIdentity, EveryModeTag) {
  struct Row {
    int model;
    const char* tag;
    int mode;
  };
  constexpr Row kRows[] = {
      {431, "OBA ", 0},
      {431, "sSLM", 1},
      {431, "iSLM", 2},
      {431, "ENV ", 3},
      {442, "SSA", 0},
      {442, "ISM", 1},
      {442, "LOG", 2},
      {442, "ENV", 3},
      {442, "RTA", 4},
      {442, "FFT", 5},
      {442, "AUD", 6},
      {442, "TAL", 7},
      {442, "VIB", 8},
      // The start of the line is what counts.
      {431, "iSLM and more", 2},
      {442, "VIBRATION", 8},
      // Tags are compared exactly; what is no tag leaves the mode alone.
      {431, "SSLM", 0},
      {431, "islm", 0},
      {431, "ENV", 0},
      {431, "ENVx", 0},
      {431, " ENV ", 0},
      {431, "TAL", 0},
      {442, "log", 0},
      {442, " LOG", 0},
      {442, "xxx", 0},
      {442, "", 0},
      {442, "VI", 0},
      {442, "iSLM", 0},
      // Other models have no mode.
      {486, "LOG", 0},
      {500, "iSLM", 0},
  };
  for (const Row& row : kRows) {
    for (bool const withInfo : {false, true}) {
      Identity const identity(DataFile().Header({.Model = row.model, .ModeTag = row.tag}),
                              withInfo);
      EXPECT_EQ(identity.status, 0);
      EXPECT_EQ(identity->Mode, row.mode) << row.model << " '" << row.tag << '\'';
      EXPECT_EQ(identity->Model, row.model);
    }
  }
}

// The lookup resets nothing: without a tag of its own a file keeps the mode of the one before.
TEST(HeaderIdentity, NoTagKeepsTheMode) {
  TempFile const logging(Model442("LOG"));
  TempFile const unknown(Model442("xxx"));
  TempFile const general(General());
  Session session;
  auto& state = *static_cast<TranslateContext*>(session.Context());
  EXPECT_EQ(QV_ReadFileHeader(logging.CPath(), &state, nullptr), QV_OK);
  EXPECT_EQ(state.Mode, 2);
  EXPECT_EQ(QV_ReadFileHeader(unknown.CPath(), &state, nullptr), QV_OK);
  EXPECT_EQ(state.Mode, 2);
  EXPECT_EQ(QV_ReadFileHeader(general.CPath(), &state, nullptr), QV_OK);
  EXPECT_EQ(state.Mode, 2);
  EXPECT_EQ(state.Model, 486);
}

TEST(HeaderIdentity, TheModelIsTheNumberAsRead) {
  struct Row {
    const char* line;
    int model;
  };
  constexpr Row kRows[] = {
      {"486 1234", 486}, {"431", 431},     {"442x", 442}, {" 442 1", 442}, {"500 1", 500},
      {"0", 0},          {"Model 442", 0}, {"", 0},       {"-5", -5},      {"44 2", 44},
  };
  for (const Row& row : kRows) {
    Identity const identity("L\r\n" + std::string(row.line) + "\r\n1.5\r\n\r\n\r\n\r\n");
    EXPECT_EQ(identity->Model, row.model) << row.line;
    EXPECT_EQ(identity->FirmwareVersion, 1.5f);
  }
}

TEST(HeaderIdentity, FirmwareVersion) {
  struct Row {
    const char* line;
    float version;
    int above09;
  };
  constexpr Row kRows[] = {
      {"0.90", 0.9f, 0},  {"0.9", 0.9f, 0},   {"0.91", 0.91f, 1},  {"0.8999", 0.8999f, 0},
      {"1.100", 1.1f, 1}, {"3.600", 3.6f, 1}, {" 2.01", 2.01f, 1}, {"3.115 beta", 3.115f, 1},
      {"V1.5", 0.0f, 0},  {"", 0.0f, 0},      {".5", 0.5f, 0},     {"1e1", 10.0f, 1},
  };
  for (const Row& row : kRows) {
    Identity const identity(General(row.line));
    EXPECT_EQ(identity->FirmwareVersion, row.version) << row.line;
    EXPECT_EQ(identity->FirmwareAbove09, row.above09) << row.line;
  }
}

// The two characters of the line end are taken off the serial number; when the line was cut for
// the host's record, two characters of the number itself.
TEST(HeaderIdentity, SerialText) {
  struct Row {
    const char* line;
    const char* serial;
    const char* serialWithInfo;
  };
  constexpr Row kRows[] = {
      {"442 1234\r\n", " 1234", " 12"},
      {"442A1234\r\n", "A1234", "A12"},
      {"442 1234\n", " 123", " 123"},  // a line feed alone takes one character with it
      {"442 12\r\n", " 12", " "},
      {"442 1\r\n", " 1", ""},
      {"4421\r\n", "1", ""},
      {"442\r\n", "", ""},
      {"44\r\n", "", ""},
      {"4\r\n", "", ""},
      {"\r\n", "", ""},
      {"442 1234567\r\n", " 1234567", " 12345"},
      {"442 12345678\r\n", " 1234567", " 123456"},
      {"442 123456789\r\n", " 1234567", " 1234567"},
      {"442 serial number 1234567890\r\n", " serial ", " serial "},
  };
  for (const Row& row : kRows) {
    std::string const bytes = "L\r\n" + std::string(row.line) + "1.5\r\n\r\n\r\n\r\n";
    EXPECT_EQ(Identity(bytes).Serial(), row.serial) << row.line;
    EXPECT_EQ(Identity(bytes, true).Serial(), row.serialWithInfo) << row.line;
  }
}

TEST(HeaderIdentity, Times) {
  Identity const identity(General());
  EXPECT_EQ(identity->HeaderTime, 1718971200);
  EXPECT_EQ(identity->StreamTime, 1718971200.0);
  EXPECT_EQ(identity->FirstRunTime, 1718971200u);
  EXPECT_EQ(identity->LastStopTime, 1718971199);
}

TEST(HeaderIdentity, AStopTimeThatIsKnownStays) {
  TempFile const file(General());
  struct Row {
    int before;
    int behind;
  };
  constexpr Row kRows[] = {{-1, 1718971199}, {0, 1718971199}, {1, 1}, {1500000000, 1500000000}};
  for (const Row& row : kRows) {
    Session session;
    auto& state = *static_cast<TranslateContext*>(session.Context());
    state.LastStopTime = row.before;
    EXPECT_EQ(QV_ReadFileHeader(file.CPath(), &state, nullptr), QV_OK);
    EXPECT_EQ(state.LastStopTime, row.behind);
  }
}

TEST(HeaderIdentity, TheDataBeginsBehindTheLastLine) {
  for (const DataFile& head :
       {General(), Model431("OBA "), Model442("SSA"),
        DataFile().Titles("a", "b", "c").Header({.Model = 442, .ModeTag = "LOG"}),
        DataFile().Header({.FirstLine = "L" + std::string(240, 'x')})}) {
    Identity const identity(DataFile(head).Q(2, "title").EndOfData());
    EXPECT_EQ(identity->FileOffset, static_cast<int>(head.Size()));
  }
}

TEST(HeaderIdentity, OfTheSettingsForm) {
  Session session;
  auto& state = *static_cast<TranslateContext*>(session.Context());
  state.Model = 442;
  state.FirmwareVersion = 3.6f;
  state.FirmwareAbove09 = 1;
  TempFile const file(DataFile().Q(2, "title").EndOfData());
  EXPECT_EQ(QV_ReadFileHeader(file.CPath(), &state, nullptr), QV_NO_TEXT_HEADER);
  EXPECT_EQ(state.Model, 486);
  EXPECT_EQ(state.Mode, 0);
  EXPECT_EQ(state.FirmwareVersion, 0.0f);
  EXPECT_EQ(state.FirmwareAbove09, 0);
  EXPECT_EQ(state.FileOffset, 0);
  EXPECT_EQ(state.File, nullptr);

  DataFile const titles = DataFile().Titles("one", "two", "three");
  Identity const behindTitles(DataFile(titles).Q(2, "title").EndOfData());
  EXPECT_EQ(behindTitles->FileOffset, static_cast<int>(titles.Size()));
  EXPECT_STREQ(behindTitles->EndRecord.Title1, " one");
  EXPECT_STREQ(behindTitles->EndRecord.Title2, " two");
  EXPECT_STREQ(behindTitles->EndRecord.Title3, " three");
}

TEST(HeaderIdentity, TitlesThatStandStay) {
  TempFile const first(DataFile().Titles("one", "", "three").Header({}));
  TempFile const second(DataFile().Titles("four", "five", "six").Header({}));
  Session session;
  auto& state = *static_cast<TranslateContext*>(session.Context());
  EXPECT_EQ(QV_ReadFileHeader(first.CPath(), &state, nullptr), QV_OK);
  state.EndRecord.Title3[0] = '\0';
  QvFileHeaderInfo info{};
  EXPECT_EQ(QV_ReadFileHeader(second.CPath(), &state, &info), QV_OK);
  EXPECT_STREQ(state.EndRecord.Title1, " one");
  EXPECT_STREQ(state.EndRecord.Title2, " ");
  EXPECT_STREQ(state.EndRecord.Title3, " six");
  EXPECT_STREQ(info.TitleLine1, " four");  // the host gets the lines of this file
}

// A missing line leaves the text of the line before it in its place, and the reading goes on.
TEST(HeaderIdentity, MissingLinesRepeatTheLineBefore) {
  Identity const one(" 442 7");
  EXPECT_EQ(one.status, 0);
  EXPECT_EQ(one->Model, 442);
  EXPECT_EQ(one.Serial(), "2");  // " 442 7" from column 3, two characters less
  EXPECT_EQ(one->FirmwareVersion, 442.0f);
  EXPECT_EQ(one->FirmwareAbove09, 1);
  EXPECT_EQ(one->HeaderTime, 949276800);  // no date in its columns: 31 January 2000
  EXPECT_EQ(one->FileOffset, 6);

  Identity const two("L\r\n486 1234\r\n");
  EXPECT_EQ(two->Model, 486);
  EXPECT_EQ(two->FirmwareVersion, 486.0f);

  Identity const four(
      "L\r\n486 1\r\n1.5\r\n0123456789"
      "21Jun2024 12:00:00\r\n");
  EXPECT_EQ(four->FirmwareVersion, 1.5f);
  EXPECT_EQ(four->HeaderTime, 1718971200);  // the fourth line stands for the fifth

  Identity const five("L\r\n442 1\r\n1.5\r\n\r\nTAL\r\n");
  EXPECT_EQ(five->Mode, 7);  // the fifth line stands for the sixth
}

TEST(HeaderIdentity, AHeaderThatFails) {
  for (const char* const bytes : {"", "X\r\n442 1\r\n3.6\r\n"}) {
    Session session;
    auto& state = *static_cast<TranslateContext*>(session.Context());
    state.Model = 442;
    state.FirmwareVersion = 3.6f;
    TempFile const file(bytes);
    EXPECT_EQ(QV_ReadFileHeader(file.CPath(), &state, nullptr), QV_SEEK_FAILED);
    EXPECT_EQ(state.Model, 486);
    EXPECT_EQ(state.FirmwareVersion, 0.0f);
    EXPECT_EQ(state.ErrorCode, -314);
    EXPECT_STREQ(state.ErrorText, "Error <-314>");
    EXPECT_EQ(state.File, nullptr);
  }
}

TEST(HeaderIdentity, AMissingThirdTitleIsRaisedOnTheWay) {
  Identity const identity("@one\r\n@two\r\n");
  EXPECT_EQ(identity.status, QV_NO_TEXT_HEADER);
  EXPECT_STREQ(identity->EndRecord.Title1, " one");
  EXPECT_STREQ(identity->EndRecord.Title2, " two");
  EXPECT_STREQ(identity->EndRecord.Title3, "");
  EXPECT_STREQ(identity->ErrorText, "Error <-317>");
}

}  // namespace
