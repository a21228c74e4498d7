// Sets the process's time zone for the life of the object.
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace test {

class ScopedZone {
 public:
  explicit ScopedZone(const std::string& zone) {
    if (const char* const before = std::getenv("TZ")) before_ = before;
    Set(zone.c_str());
  }
  ~ScopedZone() { Set(before_ ? before_->c_str() : nullptr); }
  ScopedZone(const ScopedZone&) = delete;
  ScopedZone& operator=(const ScopedZone&) = delete;

 private:
  static void Set(const char* zone) {
    zone ? setenv("TZ", zone, 1) : unsetenv("TZ");
    tzset();
  }
  std::optional<std::string> before_;
};

}  // namespace test
