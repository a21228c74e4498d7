// Writes the sample files, or a large file for measurements of speed.
//
//   make_samples FOLDER                       every sample
//   make_samples --mixed BYTES PATH           a mixed file of about that size
//   make_samples --family NAME RECORDS PATH   a file of one family of records
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "bulk_files.h"
#include "sample.h"

namespace {

int Usage() {
  std::fprintf(stderr,
               "make_samples FOLDER\n"
               "make_samples --mixed BYTES PATH\n"
               "make_samples --family NAME RECORDS PATH, NAME one of:\n");
  for (samples::Family const family : samples::kFamilies) {
    std::fprintf(stderr, "  %s\n", samples::FamilyName(family));
  }
  return 2;
}

int WriteFamily(const std::string& name, int records, const std::string& path) {
  for (samples::Family const family : samples::kFamilies) {
    if (name != samples::FamilyName(family)) continue;
    samples::WriteFamilyFile(path, family, records);
    return 0;
  }
  return Usage();
}

int Run(const std::vector<std::string>& arguments) {
  if (arguments.size() == 3 && arguments[0] == "--mixed") {
    samples::WriteMixedFile(arguments[2], std::atoll(arguments[1].c_str()));
    return 0;
  }
  if (arguments.size() == 4 && arguments[0] == "--family") {
    return WriteFamily(arguments[1], std::atoi(arguments[2].c_str()), arguments[3]);
  }
  if (arguments.size() != 1 || arguments[0].rfind("--", 0) == 0) return Usage();
  for (const samples::SampleEntry& entry : samples::AllSamples()) {
    entry.build(entry.name).file.Save(arguments[0] + "/" + entry.name);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run({argv + 1, argv + argc});
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "make_samples: %s\n", problem.what());
    return 1;
  }
}
