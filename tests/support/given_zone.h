// A zone by the system's tzdata, handed to the library as a table for the life of the object.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "qvslm_zone.h"
#include "tzif.h"

namespace test {

inline std::vector<QvZoneChange> SystemZone(const std::string& name) {
  return zone_info::ChangesInFile("/usr/share/zoneinfo/" + name);
}

class GivenZone {
 public:
  explicit GivenZone(std::vector<QvZoneChange> changes) : changes_(std::move(changes)) {
    QvUseZone(changes_.data(), changes_.size());
  }
  ~GivenZone() { QvUseZone(nullptr, 0); }
  GivenZone(const GivenZone&) = delete;
  GivenZone& operator=(const GivenZone&) = delete;

 private:
  std::vector<QvZoneChange> const changes_;
};

}  // namespace test
