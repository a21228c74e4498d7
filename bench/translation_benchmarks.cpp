// Census and translation beside their yardsticks: families one by one, years of intervals, mixed
// files of three sizes, and the zones.

#include "limit.h"
#include "measure.h"
#include "whole_walk.h"

namespace bench {

namespace {

using samples::Family;

struct Zone {
  const char* name;
  const char* value;
};
constexpr Zone kZones[] = {
    {"unset", nullptr},
    {"UTC", "UTC"},
    {"Berlin", "Europe/Berlin"},
    {"New_York", "America/New_York"},
};

// Which zone a walk is made in where the zone is not the point.
constexpr const char* kPlainZone = "UTC";

void MeasureCensus(benchmark::State& state, const std::string& path, const Load& load,
                   const char* zone) {
  SetZone(zone);
  Measure(state, load, [&] { CountRecords(path); });
}

// The daylight span of the census is in force, as hosts have it.
void MeasureTranslation(benchmark::State& state, const std::string& path, const Load& load,
                        const char* zone) {
  SetZone(zone);
  CountRecords(path);
  Measure(state, load, [&] { TranslateFile(path); });
}

// A file's four measurements: the two calls, and what each is held against.
void RegisterFile(const std::string& name, const std::string& path, const Load& load) {
  std::int64_t const delivered = MeasureDelivered(path).bytes;
  Register("translation/" + name,
           [=](benchmark::State& state) { MeasureTranslation(state, path, load, kPlainZone); });
  Register("limit/" + name, [=](benchmark::State& state) {
    Measure(state, load, [&] { ReadAndClear(path, delivered); });
  });
  Register("census/" + name,
           [=](benchmark::State& state) { MeasureCensus(state, path, load, kPlainZone); });
  Register("read/" + name,
           [=](benchmark::State& state) { Measure(state, load, [&] { ReadWhole(path); }); });
}

void RegisterZones(const std::string& name, const std::string& path, const Load& load) {
  for (const Zone& zone : kZones) {
    std::string const zoned = name + "/" + zone.name;
    Register("zone_translation/" + zoned,
             [=](benchmark::State& state) { MeasureTranslation(state, path, load, zone.value); });
    Register("zone_census/" + zoned,
             [=](benchmark::State& state) { MeasureCensus(state, path, load, zone.value); });
  }
}

Load LoadOf(const std::string& path) {
  return {MeasureDelivered(path).records, FileSize(path)};
}

}  // namespace

void RegisterTranslations() {
  SetZone(kPlainZone);
  for (Family const family : samples::kFamilies) {
    std::string const path = FamilyFile(family);
    RegisterFile(samples::FamilyName(family), path, {RecordsOf(family), FileSize(path)});
  }
  for (Family const family : {Family::kIntervals, Family::kFullIntervals}) {
    std::string const path = YearsFile(family);
    RegisterFile(std::string(samples::FamilyName(family)) + "_years", path,
                 {kRecordsOfYears, FileSize(path)});
  }
  for (int const megabytes : {1, 30, 300}) {
    std::string const path = MixedFile(megabytes);
    RegisterFile("mixed_" + std::to_string(megabytes), path, LoadOf(path));
  }
  for (Family const family : {Family::kEvents, Family::kIntervals}) {
    for (Season const season : {Season::kWinter, Season::kSummer}) {
      std::string const path = FamilyFile(family, season);
      RegisterZones(std::string(samples::FamilyName(family)) + "_" + SeasonName(season), path,
                    {RecordsOf(family), FileSize(path)});
    }
  }
  // Years of records with both seasons in them.
  RegisterZones("mixed_30", MixedFile(30), LoadOf(MixedFile(30)));
}

}  // namespace bench
