#include "sample_builder.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace samples {

namespace {

int ModeOf(const TextHeader& header) {
  static constexpr const char* kModes431[] = {"OBA ", "sSLM", "iSLM", "ENV "};
  static constexpr const char* kModes442[] = {"SSA", "ISM", "LOG", "ENV", "RTA",
                                              "FFT", "AUD", "TAL", "VIB"};
  auto const index = [&](const auto& tags) {
    auto const found = std::find(std::begin(tags), std::end(tags), header.ModeTag);
    return static_cast<int>(found - std::begin(tags));
  };
  if (header.Model == 431) return index(kModes431);
  if (header.Model == 442) return index(kModes442);
  return 0;
}

}  // namespace

int Sample::Count(int code) const {
  return static_cast<int>(std::count_if(records.begin(), records.end(),
                                        [&](const auto& record) { return record.code == code; }));
}

SampleBuilder& SampleBuilder::Header(const TextHeader& header) {
  static constexpr const char* kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
  File().Header(header);
  state_.model = header.Model;
  state_.mode = ModeOf(header);
  state_.firmware = static_cast<double>(std::strtof(header.Firmware.c_str(), nullptr));
  state_.above09 = state_.firmware > 0.9;
  int const month = static_cast<int>(std::string(kMonths).find(header.Date.substr(2, 3))) / 3 + 1;
  auto const number = [](const std::string& text, std::size_t from) {
    return std::atoi(text.c_str() + from);
  };
  state_.header = At(number(header.Date, 5), month, number(header.Date, 0), number(header.Time, 0),
                     number(header.Time, 3), number(header.Time, 6));
  state_.historyTime = state_.header;
  state_.streamTime = state_.header;
  state_.lastStop = state_.header - 1;
  SetText(end_.SerialText, header.Serial);
  sample_.model = header.Model;
  sample_.serial = header.Serial;
  return *this;
}

SampleBuilder& SampleBuilder::Titles(std::string_view first, std::string_view second,
                                     std::string_view third) {
  File().Titles(first, second, third);
  SetText(end_.Title1, std::string(" ").append(first));
  SetText(end_.Title2, std::string(" ").append(second));
  SetText(end_.Title3, std::string(" ").append(third));
  return *this;
}

SampleBuilder& SampleBuilder::End(const std::string& fileName) {
  File().EndLines("nd of measurement", "checked").EndOfData();
  end_.RecordType = QV_END;
  SetText(end_.FileName, fileName);
  Deliver(end_);
  return *this;
}

float SampleBuilder::Level(Body& body, double measured) {
  auto const offset = static_cast<double>(state_.levelOffset);
  int parts = static_cast<int>(std::lround((measured - offset) * 256));
  if (parts % 256 == 0) ++parts;
  body.U16(parts);
  return static_cast<float>(parts / 256.0 + offset);
}

float SampleBuilder::NoLevel(Body& body) {
  body.NoLevel();
  return QV_NO_LEVEL;
}

std::string SampleBuilder::TakeBytes() {
  std::string const bytes = File().Bytes();
  sample_.file = DataFile();
  return bytes;
}

}  // namespace samples
