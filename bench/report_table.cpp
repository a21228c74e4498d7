// report_table RESULTS.json: the ratios of one run of the benchmarks, as Markdown tables. Every
// number is a median over the run's repetitions, of processor time.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Measured {
  double passNs = 0;
  double recordNs = 0;
  double recordsPerSecond = 0;
  double megabytesPerSecond = 0;
  double peakGrowthKb = 0;
  double peakKb = 0;
};

// Google Benchmark writes NaN where a counter's mean is 0, which JSON does not know.
nlohmann::json ReadJson(const char* path) {
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  return nlohmann::json::parse(std::regex_replace(text.str(), std::regex(": -?NaN"), ": null"));
}

// By name, in the order of their registration.
class Results {
 public:
  explicit Results(const char* path) {
    nlohmann::json const run = ReadJson(path);
    std::vector<nlohmann::json> medians;
    for (const auto& entry : run.at("benchmarks")) {
      if (entry.value("aggregate_name", "") == "median") medians.push_back(entry);
    }
    // The run took them in random order.
    std::ranges::sort(medians, {}, [](const auto& entry) {
      return entry.at("family_index").template get<int>();
    });
    for (const auto& entry : medians) {
      std::string const name = entry.at("run_name");
      names_.push_back(name);
      Measured& one = measured_[name];
      double const unit = entry.at("time_unit") == "ms" ? 1e6 : 1;
      one.passNs = entry.at("cpu_time").get<double>() * unit;
      one.recordNs = entry.at("ns_per_record");
      one.recordsPerSecond = entry.at("records_per_second");
      one.megabytesPerSecond = entry.at("bytes_per_second").get<double>() / 1e6;
      one.peakGrowthKb = entry.at("peak_growth_bytes").get<double>() / 1024;
      one.peakKb = entry.at("peak_bytes").get<double>() / 1024;
    }
  }

  bool Has(const std::string& name) const { return measured_.contains(name); }
  const Measured& At(const std::string& name) const { return measured_.at(name); }
  double Ratio(const std::string& subject, const std::string& yardstick) const {
    return At(subject).passNs / At(yardstick).passNs;
  }
  // What stands behind the prefix in the names that begin with it.
  std::vector<std::string> Behind(const std::string& prefix) const {
    std::vector<std::string> rest;
    for (const std::string& name : names_) {
      if (name.starts_with(prefix)) rest.push_back(name.substr(prefix.size()));
    }
    return rest;
  }

 private:
  std::vector<std::string> names_;
  std::map<std::string, Measured> measured_;
};

void PrintFiles(const Results& results) {
  std::puts(
      "| file | ns a record | million records/s | MB/s | translation / limit | census / read "
      "| peak memory, MiB | growth, KiB |");
  std::puts("|---|---:|---:|---:|---:|---:|---:|---:|");
  for (const std::string& file : results.Behind("translation/")) {
    const Measured& one = results.At("translation/" + file);
    std::printf("| %s | %.1f | %.2f | %.0f | %.2f | %.2f | %.1f | %.0f |\n", file.c_str(),
                one.recordNs, one.recordsPerSecond / 1e6, one.megabytesPerSecond,
                results.Ratio("translation/" + file, "limit/" + file),
                results.Ratio("census/" + file, "read/" + file), one.peakKb / 1024,
                one.peakGrowthKb);
  }
}

void PrintZones(const Results& results) {
  std::puts("\n| file / TZ | translation, ns a record | census, ns a record |");
  std::puts("|---|---:|---:|");
  for (const std::string& zone : results.Behind("zone_translation/")) {
    std::printf("| %s | %.1f | %.1f |\n", zone.c_str(),
                results.At("zone_translation/" + zone).recordNs,
                results.At("zone_census/" + zone).recordNs);
  }
}

struct Peer {
  const char* name;
  const char* subject;
  const char* what;
};
constexpr Peer kPeers[] = {
    {"libmseed_headers", "events", "headers of records of 128 bytes"},
    {"libmseed_samples", "stream_two_byte", "samples of such records"},
    {"protobuf_events", "events", "messages with the same fields"},
    {"protobuf_samples", "stream_two_byte", "messages of 60 samples"},
    {"libsndfile", "stream_two_byte", "big-endian 16-bit samples"},
};

// A rate above 1 means that the translation gets through more records (or samples) a second.
void PrintPeers(const Results& results) {
  std::puts("\n| peer | reads | ns each | held against | ns a record | our rate / its rate |");
  std::puts("|---|---|---:|---|---:|---:|");
  for (const Peer& peer : kPeers) {
    std::string const name = std::string("peer/") + peer.name;
    std::string const subject = std::string("translation/") + peer.subject;
    if (!results.Has(name) || !results.Has(subject)) continue;
    double const theirs = results.At(name).recordNs;
    double const ours = results.At(subject).recordNs;
    std::printf("| %s | %s | %.1f | %s | %.1f | %.2f |\n", peer.name, peer.what, theirs,
                peer.subject, ours, theirs / ours);
  }
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::fputs("usage: report_table RESULTS.json\n", stderr);
    return 2;
  }
  Results const results(argv[1]);
  PrintFiles(results);
  PrintZones(results);
  PrintPeers(results);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "report_table: %s\n", error.what());
  return 1;
}
