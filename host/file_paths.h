// Names of files, which are UTF-8 on every system, as paths and back.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host {

inline std::filesystem::path PathOf(std::string_view name) {
  return {std::u8string(name.begin(), name.end())};
}

inline std::string NameOf(const std::filesystem::path& path) {
  std::u8string const name = path.u8string();
  return {name.begin(), name.end()};
}

}  // namespace host
