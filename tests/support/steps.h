// Steps of a translation that also goes on behind a negative status, as a host may.
#pragma once

#include <string>
#include <vector>

#include "support/temp_file.h"
#include "support/translation.h"

namespace test {

// Exactly count steps over the file; none when the start fails.
inline std::vector<Step> TakeSteps(const std::string& path, int count) {
  std::vector<Step> steps;
  Session session;
  if (session.Start(path) != QV_OK) return steps;
  while (count-- > 0) {
    int const status = session.Next();
    steps.push_back({status, {session.Record(), session.Record() + QV_OUTPUT_RECORD_SIZE}});
  }
  return steps;
}

inline std::vector<Step> TakeSteps(const samples::DataFile& file, int count) {
  TempFile const stored(Startable(file));
  return TakeSteps(stored.Path(), count);
}

// Count steps over exactly these bytes of a general file, of which nothing follows them: an item
// that is passed over in front of them, whose step does not count, fills the room that the start
// wants.
inline std::vector<Step> StepsToTheEnd(const std::string& bytes, int count) {
  TempFile const file(General().Item(9, samples::Body().Fill(2600)).Raw(bytes).Bytes());
  std::vector<Step> steps = TakeSteps(file.Path(), count + 1);
  if (!steps.empty()) steps.erase(steps.begin());
  return steps;
}

inline std::vector<int> Statuses(const std::vector<Step>& steps) {
  std::vector<int> statuses;
  for (const Step& step : steps) statuses.push_back(step.status);
  return statuses;
}

inline std::vector<int> CodesOf(const std::vector<Step>& steps) {
  std::vector<int> codes;
  for (const Step& step : steps) codes.push_back(step.Code());
  return codes;
}

}  // namespace test
