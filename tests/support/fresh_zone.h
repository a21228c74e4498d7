// A zone of the C library that has answered nothing yet: mktime goes on from what it answered
// before, and what it says of hours that come twice depends on that.
#pragma once

#include <ctime>
#include <optional>
#include <string>

#include "support/scoped_zone.h"

namespace test {

class FreshZone {
 public:
  explicit FreshZone(const std::string& name) : utc_("UTC0") {
    std::tm noon{};
    noon.tm_year = 100;
    noon.tm_mday = 1;
    noon.tm_hour = 12;
    std::mktime(&noon);
    zone_.emplace(name);
  }

 private:
  ScopedZone utc_;
  std::optional<ScopedZone> zone_;
};

}  // namespace test
