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

}  // namespace test
