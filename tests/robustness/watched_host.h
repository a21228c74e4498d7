// A host that notes all it sees: statuses, every byte of its buffers, and how often an armed fault
// struck in each call.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "api/context.h"
#include "robustness/promised_statuses.h"
#include "support/translation.h"

namespace test {

// What out-arguments and records hold before a call.
inline constexpr int kBeforeCall = 0xEE;

struct Outcome {
  Export call;
  int status = 0;
  std::string output{};     // all bytes of the caller's buffers behind the call
  std::string errorText{};  // that stands in the context behind the call
  int strikes = 0;          // of the armed fault, within the call
};

// Calls on one file with one context. All buffers end at unreadable memory exactly where they
// promise to end.
class WatchedHost {
 public:
  explicit WatchedHost(std::string path) : path_(std::move(path)) {}

  Outcome ReadFileHeader();
  Outcome ReadFileSN();
  Outcome ReadSiteNum();
  Outcome GetRecordCount();
  Outcome StartTranslate();
  Outcome TranslateNextRec();
  void StopTranslate();

  // The start, all steps, and one step behind the end record. Steps go on behind a failure, until
  // the walk stands still or has left the file: a list that is cut goes on without end.
  std::vector<Outcome> Translate();

  // What is opaque to hosts: where the walk stands, and the error text.
  const qvslm::TranslateContext& State() const {
    return *static_cast<const qvslm::TranslateContext*>(session_.Context());
  }

 private:
  template <class Body>
  Outcome Call(Export call, std::initializer_list<const GuardedBuffer*> outputs, Body body);

  std::string path_;
  Session session_;
};

// The outcomes of each stretch of calls, with a context of its own: the three lookups, the census,
// and the translation. The last two are stopped.
using Transcript = std::vector<std::vector<Outcome>>;
Transcript TakeThroughAllCalls(const std::string& path);

}  // namespace test
