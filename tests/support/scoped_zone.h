// Sets the process's time zone for the life of the object.
#pragma once

#include <optional>
#include <string>

namespace test {

// The zone by a name of the tz database, none for the one that the process was started with; by the
// environment, or by a table where the C library knows no names.
void SetZone(const std::optional<std::string>& name);
std::optional<std::string> CurrentZone();

class ScopedZone {
 public:
  explicit ScopedZone(const std::string& zone) : before_(CurrentZone()) { SetZone(zone); }
  ~ScopedZone() { SetZone(before_); }
  ScopedZone(const ScopedZone&) = delete;
  ScopedZone& operator=(const ScopedZone&) = delete;

 private:
  std::optional<std::string> before_;
};

}  // namespace test
