#include "robustness/watched_host.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "robustness/faulty_calls.h"
#include "support/guarded_buffer.h"

namespace test {

namespace {

constexpr std::size_t kSerialSize = 81;
constexpr int kIdleSteps = 3;

template <class T>
T* As(const GuardedBuffer& buffer) {
  return reinterpret_cast<T*>(buffer.Data());
}

}  // namespace

template <class Body>
Outcome WatchedHost::Call(Export call, std::initializer_list<const GuardedBuffer*> outputs,
                          Body body) {
  int const strikesBefore = Strikes();
  Outcome outcome{.call = call};
  {
    InLibrary const within;
    outcome.status = body();
  }
  outcome.strikes = Strikes() - strikesBefore;
  for (const GuardedBuffer* output : outputs) {
    outcome.output.append(As<char>(*output), output->Size());
  }
  outcome.errorText = State().ErrorText;
  return outcome;
}

Outcome WatchedHost::ReadFileHeader() {
  GuardedBuffer const info(sizeof(QvFileHeaderInfo), kBeforeCall);
  return Call(Export::ReadFileHeader, {&info}, [&] {
    return QV_ReadFileHeader(path_.c_str(), session_.Context(), As<QvFileHeaderInfo>(info));
  });
}

Outcome WatchedHost::ReadFileSN() {
  GuardedBuffer const model(sizeof(std::uint16_t), kBeforeCall);
  GuardedBuffer const serial(kSerialSize, kBeforeCall);
  GuardedBuffer const firmware(sizeof(float), kBeforeCall);
  return Call(Export::ReadFileSN, {&model, &serial, &firmware}, [&] {
    return QV_ReadFileSN(path_.c_str(), session_.Context(), As<std::uint16_t>(model),
                         As<char>(serial), As<float>(firmware));
  });
}

Outcome WatchedHost::ReadSiteNum() {
  GuardedBuffer const count(sizeof(std::int16_t), kBeforeCall);
  return Call(Export::ReadSiteNum, {&count}, [&] {
    return QV_ReadSiteNum(path_.c_str(), session_.Context(), As<std::int16_t>(count));
  });
}

// What the record holds behind a census has no meaning.
Outcome WatchedHost::GetRecordCount() {
  GuardedBuffer const census(sizeof(QvRecordCensus), kBeforeCall);
  return Call(Export::GetRecordCount, {&census}, [&] {
    return QV_GetRecordCount(path_.c_str(), session_.Context(), As<QvRecordCensus>(census),
                             session_.Record());
  });
}

Outcome WatchedHost::StartTranslate() {
  return Call(Export::StartTranslate, {},
              [&] { return QV_StartTranslate(path_.c_str(), session_.Context()); });
}

Outcome WatchedHost::TranslateNextRec() {
  std::memset(session_.Record(), kBeforeCall, QV_OUTPUT_RECORD_SIZE);
  Outcome outcome = Call(Export::TranslateNextRec, {}, [&] {
    return QV_TranslateNextRec(session_.Record(), session_.Context());
  });
  outcome.output.assign(reinterpret_cast<const char*>(session_.Record()), QV_OUTPUT_RECORD_SIZE);
  return outcome;
}

void WatchedHost::StopTranslate() {
  InLibrary const within;
  QV_StopTranslate();
}

std::vector<Outcome> WatchedHost::Translate() {
  std::vector<Outcome> outcomes{StartTranslate()};
  int const start = outcomes.back().status;
  if (start != QV_OK && start != QV_NO_TEXT_HEADER) return outcomes;
  auto const size = static_cast<std::int64_t>(std::filesystem::file_size(path_));
  bool ended = false;
  int idle = 0;
  while (!ended && idle < kIdleSteps) {
    std::int32_t const before = State().FileOffset;
    outcomes.push_back(TranslateNextRec());
    std::int32_t const behind = State().FileOffset;
    EXPECT_GE(behind, before) << "the walk goes back";
    idle = behind == before || behind > size ? idle + 1 : 0;
    ended = outcomes.back().status == QV_END_OF_DATA;
  }
  if (ended) outcomes.push_back(TranslateNextRec());
  return outcomes;
}

Transcript TakeThroughAllCalls(const std::string& path) {
  Transcript transcript;
  transcript.push_back({WatchedHost(path).ReadFileHeader()});
  transcript.push_back({WatchedHost(path).ReadFileSN()});
  transcript.push_back({WatchedHost(path).ReadSiteNum()});
  WatchedHost counter(path);
  transcript.push_back({counter.GetRecordCount()});
  counter.StopTranslate();
  WatchedHost translator(path);
  transcript.push_back(translator.Translate());
  translator.StopTranslate();
  return transcript;
}

}  // namespace test
