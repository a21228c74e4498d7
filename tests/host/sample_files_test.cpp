// qvslm over the sample files: each is whole, and holds what its census says.
#include <gtest/gtest.h>

#include <filesystem>

#include "host/qvslm_process.h"

namespace {

using test::Lines;
using test::Result;
using test::RunQvslm;

std::vector<std::string> SampleFiles() {
  const char* const folder = std::getenv("SAMPLES");
  std::vector<std::string> files;
  if (folder == nullptr) return files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".qvd") files.push_back(entry.path().string());
  }
  return files;
}

// The sum of the counts, without the blocks of block images: those of a file without a setup cannot
// be counted before they are read.
std::int64_t Counted(const nlohmann::ordered_json& info) {
  std::int64_t sum = 0;
  for (const auto& [name, count] : info.at("holds").items()) {
    if (name.find("BlockImages") == std::string::npos) sum += count.get<std::int64_t>();
  }
  return sum;
}

TEST(SampleFiles, AreWholeAndHoldWhatTheirCensusSays) {
  std::vector<std::string> const files = SampleFiles();
  if (files.empty()) GTEST_SKIP() << "SAMPLES names no folder with sample files";
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    Result const info = RunQvslm({"info", "--json", file});
    EXPECT_EQ(info.exitCode, 0);
    EXPECT_EQ(info.err, "");
    Result const check = RunQvslm({"check", file});
    EXPECT_EQ(check.exitCode, 0);
    EXPECT_EQ(check.err, "");
    Result const dump = RunQvslm({"dump", file});
    EXPECT_EQ(dump.exitCode, 0);
    EXPECT_EQ(dump.err, "");

    std::int64_t delivered = 0;
    std::string last;
    for (const auto& object : test::Objects(dump)) {
      last = object.at("record");
      if (last == "TimeHistory") {
        delivered += object.at("EntryCount").get<int>();
      } else if (last != "BlockImage" && last != "End") {
        ++delivered;
      }
    }
    EXPECT_EQ(last, "End");
    EXPECT_EQ(delivered, Counted(test::Objects(info).at(0)));
  }
}

}  // namespace
