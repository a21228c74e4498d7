#include "support/translation.h"

#include "support/temp_file.h"

namespace test {

using samples::DataFile;

DataFile General(std::string_view firmware) {
  return DataFile().Header({.Model = 486, .Firmware = std::string(firmware)});
}

DataFile Model431(std::string_view modeTag, std::string_view firmware) {
  return DataFile().Header(
      {.Model = 431, .Firmware = std::string(firmware), .ModeTag = std::string(modeTag)});
}

DataFile Model442(std::string_view modeTag, std::string_view firmware) {
  return DataFile().Header(
      {.Model = 442, .Firmware = std::string(firmware), .ModeTag = std::string(modeTag)});
}

std::string Startable(const DataFile& file, std::string_view levelOffset442) {
  DataFile padded = file;
  padded.R(1, "Hedrom-Pulke Model 442").R(106, levelOffset442);
  std::string bytes = padded.Bytes();
  if (bytes.size() < 2600) bytes.resize(2600, '\0');
  return bytes;
}

Session::Session(int recordFill)
    : context_(QV_GetBufferSize()), record_(QV_OUTPUT_RECORD_SIZE), recordFill_(recordFill) {}

Session::~Session() {
  QV_StopTranslate();
  // The library must not remember a context that is gone: point it at one that lasts.
  alignas(8) static unsigned char parking[16384];
  QV_ReadFileHeader("", parking, nullptr);
}

int Session::Start(const std::string& path) {
  return QV_StartTranslate(path.c_str(), Context());
}

int Session::Next() {
  record_.Fill(recordFill_);
  return QV_TranslateNextRec(Record(), Context());
}

int Session::Census(const std::string& path) {
  return QV_GetRecordCount(path.c_str(), Context(), &census_, Record());
}

Translation::Translation(const DataFile& file, const Options& options) {
  TempFile const stored(Startable(file, options.levelOffset442));
  Run(stored.Path(), options);
}

Translation::Translation(const std::string& path, const Options& options) {
  Run(path, options);
}

void Translation::Run(const std::string& path, const Options& options) {
  Session session(options.recordFill);
  if (options.census) {
    census = session.Census(path);
    counts = session.Counts();
  }
  start = session.Start(path);
  if (start != QV_OK && start != QV_NO_TEXT_HEADER) return;
  do {
    end = session.Next();
    steps.push_back({end, {session.Record(), session.Record() + QV_OUTPUT_RECORD_SIZE}});
  } while (end >= 0 && static_cast<int>(steps.size()) < options.mostSteps);
}

std::vector<Step> Translation::Records() const {
  std::vector<Step> records;
  for (const Step& step : steps) {
    if (step.Code() != QV_NO_RECORD) records.push_back(step);
  }
  return records;
}

std::vector<Step> Translation::Records(int code) const {
  std::vector<Step> records;
  for (const Step& step : steps) {
    if (step.Code() == code) records.push_back(step);
  }
  return records;
}

std::vector<int> Translation::Codes() const {
  std::vector<int> codes;
  for (const Step& step : Records()) codes.push_back(step.Code());
  return codes;
}

}  // namespace test
