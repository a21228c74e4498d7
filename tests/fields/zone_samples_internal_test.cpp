// A file translated by a table of a zone gives what it gives with the C library in that zone, byte
// by byte. Internal: no export takes a table.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "support/fresh_zone.h"
#include "support/given_zone.h"
#include "support/translation.h"

namespace test {
namespace {

std::vector<std::string> SamplePaths() {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(std::getenv("SAMPLES"))) {
    if (entry.path().extension() == ".qvd") paths.push_back(entry.path().string());
  }
  return paths;
}

struct Given {
  QvFileHeaderInfo header{};
  std::uint32_t noon = 0;
  Translation translation;
};

Given Translate(const std::string& path) {
  Given given{.translation = Translation(path, Options{.census = true})};
  std::vector<std::uint64_t> context(QV_GetBufferSize() / sizeof(std::uint64_t));
  QV_ReadFileHeader(path.c_str(), context.data(), &given.header);
  given.noon = TX_DateToSecs("21Jun2024", "12:00:00", 0);
  return given;
}

template <class T>
bool AreAlike(const T& a, const T& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

class SamplesInZone : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Zones, SamplesInZone,
                         testing::Values("Africa/Casablanca", "America/New_York",
                                         "America/Sao_Paulo", "Asia/Kolkata", "Asia/Tehran",
                                         "Australia/Lord_Howe", "Etc/UTC", "Europe/Berlin",
                                         "Europe/Dublin", "Europe/Moscow", "Pacific/Apia"));

TEST_P(SamplesInZone, AreAlike) {
  std::vector<std::string> const paths = SamplePaths();
  ASSERT_GT(paths.size(), 10u);
  for (const std::string& path : paths) {
    SCOPED_TRACE(path);
    Given const expected = [&] {
      FreshZone const zone(GetParam());
      return Translate(path);
    }();
    ScopedZone const elsewhere("Pacific/Marquesas");
    GivenZone const zone(SystemZone(GetParam()));
    Given const given = Translate(path);
    EXPECT_TRUE(AreAlike(given.header, expected.header));
    EXPECT_EQ(given.noon, expected.noon);
    EXPECT_EQ(given.translation.census, expected.translation.census);
    EXPECT_TRUE(AreAlike(given.translation.counts, expected.translation.counts));
    ASSERT_EQ(given.translation.start, expected.translation.start);
    ASSERT_EQ(given.translation.end, expected.translation.end);
    ASSERT_EQ(given.translation.steps.size(), expected.translation.steps.size());
    for (size_t at = 0; at < given.translation.steps.size(); ++at) {
      const Step& step = given.translation.steps[at];
      EXPECT_EQ(step.status, expected.translation.steps[at].status) << at;
      EXPECT_EQ(step.record, expected.translation.steps[at].record) << at;
    }
  }
}

}  // namespace
}  // namespace test
