// Runs a test for each sample, under its name.
//
//   INSTANTIATE_TEST_SUITE_P(Samples, Suite, testing::ValuesIn(SampleNames()), TestName);
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sample.h"

namespace test {

inline std::vector<std::string> SampleNames() {
  std::vector<std::string> names;
  for (const samples::SampleEntry& sample : samples::AllSamples()) names.emplace_back(sample.name);
  return names;
}

inline std::string TestName(const testing::TestParamInfo<std::string>& sample) {
  return sample.param.substr(0, sample.param.find('.'));
}

}  // namespace test
