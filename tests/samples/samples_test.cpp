// Every sample: its committed file is what the writer writes, and a translation delivers what the
// writer put in, record by record and field by field.
#include <gtest/gtest.h>

#include "samples/sample_check.h"
#include "support/file_contents.h"

namespace test {
namespace {

using samples::Sample;
using samples::SampleEntry;

class Samples : public testing::TestWithParam<SampleEntry> {
 protected:
  std::string Path() const { return SamplePath(GetParam().name); }
  Sample Expected() const { return GetParam().build(GetParam().name); }
};

void ExpectTranslation(const Sample& expected, const Translation& run) {
  EXPECT_EQ(run.start, expected.start);
  EXPECT_EQ(run.end, QV_END_OF_DATA);
  std::vector<Step> const records = run.Records();
  int faults = 0;
  for (std::size_t i = 0; i < records.size() && i < expected.records.size(); ++i) {
    std::string const difference = Differences(expected.records[i], records[i]);
    if (difference.empty()) continue;
    ADD_FAILURE() << "record " << i << " of code " << expected.records[i].code << ": "
                  << difference;
    if (++faults == 5) return;
  }
  EXPECT_EQ(records.size(), expected.records.size());
  for (std::size_t i = 0; i + 1 < run.steps.size(); ++i) EXPECT_EQ(run.steps[i].status, QV_OK);
}

TEST_P(Samples, StandAsTheWriterWritesThem) {
  EXPECT_TRUE(test::Contents(Path()) == Expected().file.Bytes())
      << "write them anew: make_samples samples/files";
}

TEST_P(Samples, TranslateToWhatWasPutIn) {
  ExpectTranslation(Expected(), Translation(Path()));
}

TEST_P(Samples, TranslateToWhatWasPutInBehindTheirCensus) {
  Translation const run(Path(), {.census = true});
  EXPECT_EQ(run.census, QV_OK);
  ExpectTranslation(Expected(), run);
}

TEST_P(Samples, AreCountedAsTheWriterCounts) {
  Translation const run(Path(), {.census = true});
  ASSERT_EQ(run.census, QV_OK);
  QvRecordCensus const expected = Expected().census;
  for (const record_fields::RecordInfo& info : record_fields::kRecords) {
    if (info.structName != "QvRecordCensus") continue;
    ASSERT_EQ(info.fields.size(), 41U);
    for (const record_fields::FieldInfo& field : info.fields) {
      std::uint32_t want = 0;
      std::uint32_t found = 0;
      std::memcpy(&want, reinterpret_cast<const char*>(&expected) + field.offset, 4);
      std::memcpy(&found, reinterpret_cast<const char*>(&run.counts) + field.offset, 4);
      EXPECT_EQ(found, want) << field.name;
    }
    return;
  }
  FAIL() << "the census is not in the field table";
}

TEST_P(Samples, TellTheirInstrument) {
  Sample const expected = Expected();
  GuardedBuffer const context(QV_GetBufferSize());
  std::uint16_t model = 0;
  char serial[81] = "unset";
  float firmware = 0;
  int const status = QV_ReadFileSN(Path().c_str(), context.Data(), &model, serial, &firmware);
  if (expected.serial.empty()) {
    EXPECT_NE(status, QV_OK);
    return;
  }
  EXPECT_EQ(status, QV_OK);
  EXPECT_EQ(model, expected.model);
  EXPECT_EQ(serial, expected.serial);
}

INSTANTIATE_TEST_SUITE_P(All, Samples, testing::ValuesIn(samples::AllSamples()),
                         [](const auto& instance) {
                           std::string const name = instance.param.name;
                           return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace test
