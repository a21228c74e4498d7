// Every call of the C library that the library makes is made to fail, one after the other, until
// none is left, in all calls on several files. Linked against the objects, so that their calls of
// the C library can be redirected.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bulk_files.h"
#include "robustness/faulty_calls.h"
#include "robustness/watched_host.h"
#include "samples/sample_check.h"
#include "support/temp_file.h"

namespace test {
namespace {

// Each form of header, each model, files of several buffers, and band records far behind their
// owners, for which the library goes to and fro.
constexpr const char* kSamples[] = {
    "general_title_form.qvd", "general_settings_form.qvd", "general_time_history.qvd",
    "general_day.qvd",        "bands_general.qvd",         "model431_octaves.qvd",
    "model442_spectra.qvd",
};

class FaultInjection : public testing::Test {
 protected:
  FaultInjection() {
    for (const char* const name : kSamples) paths_.push_back(SamplePath(name));
    samples::WriteFamilyFile(farBands_.Path(), samples::Family::kBandsFar, 300);
    samples::WriteFamilyFile(spectra_.Path(), samples::Family::kSpectra, 900);
    paths_.push_back(farBands_.Path());
    paths_.push_back(spectra_.Path());
  }

  // Takes each file through all calls with the fault at the first, second and so on of its calls,
  // until it finds none left, and hands each transcript to the judge, with that of the undisturbed
  // file.
  template <class Judge>
  void Inject(Fault fault, Judge judge) {
    for (const std::string& path : paths_) {
      ArmFault();
      Transcript const undisturbed = TakeThroughAllCalls(path);
      for (fault.at = 1;; ++fault.at) {
        SCOPED_TRACE(path + ", " + std::string(NameOf(fault.call)) + " number " +
                     std::to_string(fault.at));
        ArmFault(fault);
        Transcript const transcript = TakeThroughAllCalls(path);
        if (Strikes() == 0) break;
        EXPECT_EQ(FilesHeld(), 0);
        EXPECT_EQ(BlocksHeld(), 0);
        judge(transcript, undisturbed);
        if (HasFailure()) return;
      }
    }
  }

  TempFile const farBands_{""};
  TempFile const spectra_{""};
  std::vector<std::string> paths_;
};

bool Same(const Outcome& a, const Outcome& b) {
  return a.call == b.call && a.status == b.status && a.output == b.output;
}

void ExpectSame(const std::vector<Outcome>& calls, const std::vector<Outcome>& undisturbed) {
  ASSERT_EQ(calls.size(), undisturbed.size());
  for (std::size_t i = 0; i < calls.size(); ++i) {
    ASSERT_TRUE(Same(calls[i], undisturbed[i])) << NameOf(calls[i].call) << ", call " << i;
  }
}

// The statuses that are worded when they are raised; the others are part of the walk.
bool IsWorded(const Outcome& outcome) {
  switch (outcome.status) {
    case QV_CANNOT_OPEN:
    case QV_NOT_FOUND:
    case QV_SEEK_FAILED:
    case QV_TAIL_SEEK_FAILED:
    case QV_NO_TEXT_HEADER:
    case QV_NO_MEMORY:
      return true;
    default:
      return false;
  }
}

void ExpectPromised(const Outcome& outcome) {
  EXPECT_TRUE(IsPromised(outcome.call, outcome.status))
      << NameOf(outcome.call) << " returned " << outcome.status;
  if (IsWorded(outcome)) {
    EXPECT_EQ(outcome.errorText, "Error <" + std::to_string(outcome.status) + ">");
  }
}

// The statuses that a failing call of the C library may give a call that would else have another.
std::vector<int> StatusesOf(CCall failing, Export call) {
  switch (failing) {
    case CCall::Open:
      return {QV_CANNOT_OPEN};
    case CCall::Allocate:
      return {QV_NO_MEMORY};
    case CCall::Seek:
    case CCall::Tell:
      switch (call) {
        case Export::ReadFileHeader:
          return {QV_NO_TEXT_HEADER};  // the way back before the title lines
        case Export::StartTranslate:
          return {QV_NO_TEXT_HEADER, QV_SEEK_FAILED, QV_TAIL_SEEK_FAILED};
        case Export::GetRecordCount:
        case Export::TranslateNextRec:
          return {QV_SEEK_FAILED};
        default:
          return {};  // the lookups read on and on
      }
    // What cannot be read is taken for the end of the file.
    case CCall::Read:
    case CCall::Line:
    case CCall::Byte:
      switch (call) {
        case Export::ReadFileHeader:
          return {QV_SEEK_FAILED};
        case Export::ReadFileSN:
          return {QV_NOT_FOUND};
        case Export::ReadSiteNum:
          return {QV_NO_TEXT_HEADER};
        case Export::StartTranslate:
          return {QV_SEEK_FAILED};
        case Export::GetRecordCount:
          return {QV_SEEK_FAILED, QV_BAD_LENGTH};
        case Export::TranslateNextRec:
          return {QV_BAD_LENGTH, QV_RECORD_TOO_SHORT};
      }
      return {};
    default:
      return {};
  }
}

void ExpectStruck(CCall failing, const Outcome& outcome, const Outcome& undisturbed) {
  ExpectPromised(outcome);
  bool const mustFail = failing == CCall::Open || failing == CCall::Allocate;
  if (!mustFail && outcome.status == undisturbed.status) return;
  std::vector<int> const expected = StatusesOf(failing, outcome.call);
  EXPECT_NE(std::find(expected.begin(), expected.end(), outcome.status), expected.end())
      << NameOf(outcome.call) << " returned " << outcome.status;
}

// One stretch of calls in which the fault struck, or not.
void ExpectStretch(CCall failing, const std::vector<Outcome>& calls,
                   const std::vector<Outcome>& undisturbed) {
  std::size_t at = 0;
  while (at < calls.size() && calls[at].strikes == 0) {
    ASSERT_LT(at, undisturbed.size());
    ASSERT_TRUE(Same(calls[at], undisturbed[at])) << NameOf(calls[at].call) << ", call " << at;
    ++at;
  }
  if (at == calls.size()) {
    EXPECT_EQ(calls.size(), undisturbed.size());
    return;
  }
  ASSERT_LT(at, undisturbed.size());
  ExpectStruck(failing, calls[at], undisturbed[at]);
  for (; at < calls.size(); ++at) ExpectPromised(calls[at]);
}

constexpr CCall kFailing[] = {CCall::Open, CCall::Read, CCall::Seek,    CCall::Tell,
                              CCall::Line, CCall::Byte, CCall::Allocate};

// Records delivered before the failure are those of the undisturbed file, and so is everything in
// stretches of calls that it did not strike.
TEST_F(FaultInjection, OneCallFails) {
  for (CCall const call : kFailing) {
    Inject({.call = call}, [&](const Transcript& calls, const Transcript& undisturbed) {
      for (std::size_t i = 0; i < calls.size(); ++i) ExpectStretch(call, calls[i], undisturbed[i]);
    });
  }
}

// As on a card that was pulled.
TEST_F(FaultInjection, AllCallsFailFromOneOn) {
  for (CCall const call : kFailing) {
    Inject({.call = call, .lasting = true},
           [&](const Transcript& calls, const Transcript& undisturbed) {
             for (std::size_t i = 0; i < calls.size(); ++i) {
               ExpectStretch(call, calls[i], undisturbed[i]);
             }
           });
  }
}

void ExpectNothingChanged(const Transcript& calls, const Transcript& undisturbed) {
  for (std::size_t i = 0; i < calls.size(); ++i) ExpectSame(calls[i], undisturbed[i]);
}

// The C library brings less than was asked for, and there is more.
TEST_F(FaultInjection, ReadsThatComeShortAreReadOn) {
  Fault const half{.call = CCall::Read, .damage = Damage::kComesShort};
  Inject(half, ExpectNothingChanged);
  Fault const halfLasting{.call = CCall::Read, .damage = Damage::kComesShort, .lasting = true};
  Inject(halfLasting, ExpectNothingChanged);
  Fault const oneByte{.call = CCall::Read, .damage = Damage::kOneByte};
  Inject(oneByte, ExpectNothingChanged);
}

TEST_F(FaultInjection, ClosingAndBufferingMayFail) {
  Inject({.call = CCall::Close}, ExpectNothingChanged);
  Inject({.call = CCall::Close, .lasting = true}, ExpectNothingChanged);
  Inject({.call = CCall::Buffer}, ExpectNothingChanged);
  Inject({.call = CCall::Buffer, .lasting = true}, ExpectNothingChanged);
}

}  // namespace
}  // namespace test
