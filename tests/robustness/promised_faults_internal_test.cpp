// What each failing call of the C library means for the one who called: the status, what is left
// open, what the caller's arguments hold. Linked against the objects, so that the calls can be
// redirected.
#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "bulk_files.h"
#include "robustness/faulty_calls.h"
#include "robustness/watched_host.h"
#include "samples/sample_check.h"
#include "support/temp_file.h"

namespace test {
namespace {

std::string AsBefore(std::size_t size) {
  return std::string(size, static_cast<char>(kBeforeCall));
}

// A record of which the step has set the type code alone.
std::string NoRecord() {
  return std::string(2, '\0') + AsBefore(QV_OUTPUT_RECORD_SIZE - 2);
}

TEST(FailingOpen, LeavesNothingOpenAndTheArgumentsAlone) {
  std::string const path = SamplePath("general_short_term.qvd");
  Fault const everyOpen{.call = CCall::Open, .lasting = true};
  WatchedHost host(path);

  ArmFault(everyOpen);
  Outcome const header = host.ReadFileHeader();
  EXPECT_EQ(header.status, QV_CANNOT_OPEN);
  EXPECT_TRUE(header.output == AsBefore(sizeof(QvFileHeaderInfo)));
  Outcome const serial = host.ReadFileSN();
  EXPECT_EQ(serial.status, QV_CANNOT_OPEN);
  EXPECT_TRUE(serial.output == AsBefore(2 + 81 + 4));
  Outcome const sites = host.ReadSiteNum();
  EXPECT_EQ(sites.status, QV_CANNOT_OPEN);
  EXPECT_EQ(sites.output, std::string(2, '\0'));
  Outcome const census = host.GetRecordCount();
  EXPECT_EQ(census.status, QV_CANNOT_OPEN);
  EXPECT_EQ(census.output, std::string(sizeof(QvRecordCensus), '\0'));
  EXPECT_EQ(host.StartTranslate().status, QV_CANNOT_OPEN);
  EXPECT_EQ(host.State().ErrorText, std::string("Error <-302>"));
  EXPECT_EQ(Strikes(), 5);
  EXPECT_EQ(FilesHeld(), 0);
}

// Behind the end record the file is opened anew by its path.
TEST(FailingOpen, OfAFileThatIsReopened) {
  WatchedHost host(SamplePath("general_short_term.qvd"));
  ArmFault();
  EXPECT_EQ(host.StartTranslate().status, QV_OK);
  while (host.TranslateNextRec().status >= 0) {
  }
  ArmFault({.call = CCall::Open});
  Outcome const step = host.TranslateNextRec();
  EXPECT_EQ(step.status, QV_CANNOT_OPEN);
  EXPECT_EQ(step.errorText, "Error <-302>");
  EXPECT_TRUE(step.output == NoRecord());
  EXPECT_EQ(FilesHeld(), 0);
}

// The only block of memory that the library asks for is that of the scan of model 442. It is given
// back at once.
TEST(FailingAllocation, OfTheScanOfModel442) {
  WatchedHost host(SamplePath("model442_short.qvd"));
  ArmFault();
  EXPECT_EQ(host.StartTranslate().status, QV_OK);
  EXPECT_EQ(CallsOf(CCall::Allocate), 1);
  EXPECT_EQ(BlocksHeld(), 0);
  host.StopTranslate();

  ArmFault({.call = CCall::Allocate});
  Outcome const start = host.StartTranslate();
  EXPECT_EQ(start.status, QV_NO_MEMORY);
  EXPECT_EQ(start.errorText, "Error <-320>");
  EXPECT_EQ(FilesHeld(), 1) << "the file stays open";
  host.StopTranslate();
  EXPECT_EQ(FilesHeld(), 0);
}

TEST(FailingAllocation, NoOtherCallAllocates) {
  for (const char* const name : {"general_day.qvd", "model431_octaves.qvd", "model442_tally.qvd"}) {
    ArmFault();
    TakeThroughAllCalls(SamplePath(name));
    EXPECT_EQ(CallsOf(CCall::Allocate), name == std::string("model442_tally.qvd") ? 1 : 0) << name;
  }
}

// A file that cannot be read at all has no first line.
TEST(FailingRead, OfTheFirstLine) {
  Fault const everyRead{.call = CCall::Read, .lasting = true};
  for (const char* const name : {"general_spine.qvd", "model431_short.qvd", "model442_short.qvd"}) {
    SCOPED_TRACE(name);
    ArmFault(everyRead);
    WatchedHost host(SamplePath(name));
    EXPECT_EQ(host.ReadFileHeader().status, QV_SEEK_FAILED);
    EXPECT_EQ(host.ReadFileSN().status, QV_NOT_FOUND);
    EXPECT_EQ(host.ReadSiteNum().status, QV_NO_TEXT_HEADER);
    EXPECT_EQ(host.GetRecordCount().status, QV_SEEK_FAILED);
    EXPECT_EQ(host.StartTranslate().status, QV_SEEK_FAILED);
    host.StopTranslate();
    EXPECT_EQ(FilesHeld(), 0);
  }
}

// A results block that the scan of model 442 could not read is not one that is missing.
TEST(FailingRead, WithinTheScanOfModel442) {
  samples::DataFile file = Model442("LOG");
  for (int item = 0; item < 20; ++item) file.Item(9, samples::Body().Fill(6000));
  TempFile const stored(Startable(file.EndOfData()));
  ArmFault();
  WatchedHost host(stored.Path());
  ASSERT_EQ(host.StartTranslate().status, QV_OK);
  host.StopTranslate();
  ASSERT_GT(CallsOf(CCall::Read), 3) << "the scan takes several reads";

  ArmFault({.call = CCall::Read, .at = 2, .lasting = true});
  Outcome const start = host.StartTranslate();
  EXPECT_EQ(start.status, QV_SEEK_FAILED);
  EXPECT_EQ(start.errorText, "Error <-314>");
  EXPECT_EQ(BlocksHeld(), 0);
  host.StopTranslate();
  EXPECT_EQ(FilesHeld(), 0);
}

// A walk whose file cannot be read on ends as where a file ends: a length is missing, or a type.
TEST(FailingRead, WithinTheWalk) {
  WatchedHost host(SamplePath("general_day.qvd"));
  ArmFault({.call = CCall::Read, .at = 2, .lasting = true});
  EXPECT_EQ(host.GetRecordCount().status, QV_BAD_LENGTH);
  EXPECT_EQ(FilesHeld(), 0);

  ArmFault();
  ASSERT_EQ(host.StartTranslate().status, QV_OK);
  int const reads = CallsOf(CCall::Read);
  host.StopTranslate();
  ArmFault({.call = CCall::Read, .at = reads + 2, .lasting = true});
  std::vector<Outcome> const outcomes = host.Translate();
  EXPECT_EQ(outcomes.back().status, QV_BAD_LENGTH);
  EXPECT_GT(outcomes.size(), 100U);
  host.StopTranslate();
  EXPECT_EQ(FilesHeld(), 0);
}

// The start seeks to the tail, and back to the beginning of the file.
TEST(FailingSeek, OfTheStart) {
  struct Row {
    const char* sample;
    CCall call;
    bool tail;  // the call is made for the tail as well
  };
  constexpr Row kRows[] = {
      {"general_day.qvd", CCall::Seek, true},       {"general_day.qvd", CCall::Tell, true},
      {"model431_logging.qvd", CCall::Seek, true},  {"model431_logging.qvd", CCall::Tell, true},
      {"model442_logging.qvd", CCall::Seek, false}, {"model442_logging.qvd", CCall::Tell, false}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.sample);
    ArmFault({.call = row.call, .lasting = true});
    WatchedHost host(SamplePath(row.sample));
    Outcome const start = host.StartTranslate();
    EXPECT_EQ(start.status, row.tail ? QV_TAIL_SEEK_FAILED : QV_SEEK_FAILED);
    EXPECT_EQ(start.errorText, row.tail ? "Error <-315>" : "Error <-314>");
    EXPECT_EQ(FilesHeld(), 1) << "the file stays open";
    host.StopTranslate();
    EXPECT_EQ(FilesHeld(), 0);
  }
}

TEST(FailingSeek, OfTheCensusLeavesTheFileOpen) {
  for (CCall const call : {CCall::Seek, CCall::Tell}) {
    ArmFault({.call = call, .lasting = true});
    WatchedHost host(SamplePath("general_day.qvd"));
    Outcome const census = host.GetRecordCount();
    EXPECT_EQ(census.status, QV_SEEK_FAILED);
    EXPECT_EQ(census.errorText, "Error <-314>");
    EXPECT_EQ(FilesHeld(), 1);
    host.StopTranslate();
    EXPECT_EQ(FilesHeld(), 0);
  }
}

// The step behind the end record opens the file anew, and has to seek behind the end of the data.
TEST(FailingSeek, OfAStep) {
  for (CCall const call : {CCall::Seek, CCall::Tell}) {
    ArmFault();
    WatchedHost host(SamplePath("general_short_term.qvd"));
    ASSERT_EQ(host.StartTranslate().status, QV_OK);
    while (host.TranslateNextRec().status >= 0) {
    }
    ArmFault({.call = call, .lasting = true});
    Outcome const step = host.TranslateNextRec();
    EXPECT_EQ(step.status, QV_SEEK_FAILED);
    EXPECT_EQ(step.errorText, "Error <-314>");
    EXPECT_TRUE(step.output == NoRecord());
    host.StopTranslate();
    EXPECT_EQ(FilesHeld(), 0);
  }
}

// A band record whose owner cannot be sought has the present time, and is no failure.
TEST(FailingSeek, OfTheOwnerOfABandRecord) {
  TempFile const file("");
  samples::WriteFamilyFile(file.Path(), samples::Family::kBandsFar, 8000);
  ArmFault();
  WatchedHost undisturbed(file.Path());
  std::vector<Outcome> const expected = undisturbed.Translate();
  undisturbed.StopTranslate();
  int const seeks = CallsOf(CCall::Seek);

  ArmFault();
  WatchedHost host(file.Path());
  ASSERT_EQ(host.StartTranslate().status, QV_OK);
  std::size_t next = 1;
  auto const code = [&] {
    return test::CodeOf(reinterpret_cast<const std::uint8_t*>(expected.at(next).output.data()));
  };
  while (code() != QV_INTERVAL_BANDS) {
    host.TranslateNextRec();
    ++next;
  }
  ASSERT_GT(seeks, CallsOf(CCall::Seek));
  ArmFault({.call = CCall::Seek});
  while (Strikes() == 0) {
    std::time_t const before = std::time(nullptr);
    Outcome const step = host.TranslateNextRec();
    std::time_t const after = std::time(nullptr);
    std::string const want = expected[next++].output;
    EXPECT_EQ(step.status, QV_OK);
    EXPECT_EQ(step.output.substr(0, 4), want.substr(0, 4));
    EXPECT_TRUE(step.output.substr(8) == want.substr(8));
    if (Strikes() == 0) continue;
    QvIntervalBands bands;
    std::memcpy(&bands, step.output.data(), sizeof bands);
    EXPECT_GE(bands.RecordTime, before);
    EXPECT_LE(bands.RecordTime, after);
  }
  host.StopTranslate();
}

// The remaining exports know of no file, and call none of these.
TEST(OtherExports, CallNothingThatCanFail) {
  constexpr CCall kEveryCall[] = {CCall::Open, CCall::Buffer, CCall::Read,
                                  CCall::Seek, CCall::Tell,   CCall::Line,
                                  CCall::Byte, CCall::Close,  CCall::Allocate};
  for (CCall const call : kEveryCall) {
    ArmFault({.call = call, .lasting = true});
    {
      InLibrary const within;
      EXPECT_EQ(QV_GetBufferSize(), 9984U);
      EXPECT_EQ(QV_TranVersion(), 323U);
      EXPECT_EQ(QV_TranVersionEx(), 323U);
      EXPECT_EQ(TX_DateToSecs("21Jun2024", "12:30:00", 0), 1718973000U);
      std::int32_t const seconds = 1718973000;
      char date[16];
      char time[9];
      TX_SecsToDate(&seconds, date, time, 0);
      EXPECT_STREQ(date, "21Jun2024");
      EXPECT_STREQ(time, "12:30:00");
    }
    EXPECT_EQ(CallsOf(call), 0) << NameOf(call);
  }
}

}  // namespace
}  // namespace test
