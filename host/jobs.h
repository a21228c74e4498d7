// Work on many things at once, each in a process of its own.
//
//   RunJobs(files.size(), 4, {
//       .work = [&](std::size_t i) { return Result(files[i]); },
//       .take = [&](std::size_t i, const JobResult& result) { Show(result); return true; },
//   });
//
// An interrupted run ends its processes, waits for them, and throws InterruptedRun.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace host {

struct InterruptedRun {};

struct JobResult {
  bool finished = true;  // false where the process ended before its work did
  std::string bytes;     // what the work gave
  std::string messages;  // what the process wrote to stderr; one job alone writes there itself
};

struct JobCalls {
  // Runs in the other process; what it gives comes back as bytes. Does not throw.
  std::function<std::string(std::size_t index)> work;
  // Gets the results in the order of the indices; false ends the run.
  std::function<bool(std::size_t index, const JobResult& result)> take;
  // Hears of each end at once, in the order in which they come. May be left out.
  std::function<void(std::size_t index)> ended = nullptr;
};

// Does the work of all indices below count, by at most so many processes at once. One job alone, and
// every job where there are no other processes, is this process's.
void RunJobs(std::size_t count, int jobs, const JobCalls& calls);

}  // namespace host
