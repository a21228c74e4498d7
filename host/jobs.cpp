#include "jobs.h"

#include <algorithm>
#include <map>

#include "child_process.h"
#include "platform.h"

namespace host {
namespace {

struct Job {
  std::size_t index;
  ChildProcess child;
  JobResult result;
};

class JobRun {
 public:
  JobRun(std::size_t count, std::size_t jobs, const JobCalls& calls)
      : count_(count), jobs_(jobs), calls_(calls) {}
  ~JobRun() {
    for (const Job& job : running_) EndChild(job.child);
    for (const Job& job : running_) WaitForChild(job.child);
  }
  JobRun(const JobRun&) = delete;
  JobRun& operator=(const JobRun&) = delete;

  void Run() {
    HoldInterrupts();
    while (taken_ < count_) {
      StartMore();
      Read();
      if (Interrupted()) throw InterruptedRun();
      NoteEnds();
      if (!HandOver()) return;
    }
  }

 private:
  void StartMore() {
    // One slow file holds back the results of only so many others.
    std::size_t const last = taken_ + 64 * jobs_;
    while (running_.size() < jobs_ && started_ < std::min(count_, last)) {
      std::size_t const index = started_++;
      running_.push_back({index, StartChild([&] { return calls_.work(index); }), {}});
    }
  }

  void Read() {
    std::vector<ChildProcess*> children;
    std::vector<std::string*> texts;
    for (Job& job : running_) {
      children.push_back(&job.child);
      texts.push_back(&job.result.bytes);
      texts.push_back(&job.result.messages);
    }
    if (!children.empty()) ReadChildren(children, texts);
  }

  void NoteEnds() {
    for (auto job = running_.begin(); job != running_.end();) {
      if (job->child.bytes >= 0 || job->child.messages >= 0) {
        ++job;
        continue;
      }
      job->result.finished = WaitForChild(job->child);
      if (calls_.ended) calls_.ended(job->index);
      ended_.emplace(job->index, std::move(job->result));
      job = running_.erase(job);
    }
  }

  bool HandOver() {
    for (auto next = ended_.find(taken_); next != ended_.end(); next = ended_.find(taken_)) {
      bool const goesOn = calls_.take(taken_, next->second);
      ended_.erase(next);
      ++taken_;
      if (!goesOn) return false;
    }
    return true;
  }

  std::size_t count_;
  std::size_t jobs_;
  const JobCalls& calls_;
  std::size_t started_ = 0;
  std::size_t taken_ = 0;
  std::vector<Job> running_;
  std::map<std::size_t, JobResult> ended_;  // and not yet taken
};

void RunHere(std::size_t count, const JobCalls& calls) {
  for (std::size_t index = 0; index < count; ++index) {
    JobResult const result = {.bytes = calls.work(index), .messages = {}};
    if (calls.ended) calls.ended(index);
    if (!calls.take(index, result)) return;
  }
}

}  // namespace

void RunJobs(std::size_t count, int jobs, const JobCalls& calls) {
  if (jobs <= 1 || count <= 1 || !HasChildren()) {
    RunHere(count, calls);
  } else {
    JobRun(count, static_cast<std::size_t>(jobs), calls).Run();
  }
}

}  // namespace host
