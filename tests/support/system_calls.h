// What the tests ask of the operating system, besides the standard library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace test {

// Make an empty file or folder of their own among the temporary ones, and give its path.
std::string MakeTemporaryFile();
std::string MakeTemporaryFolder();

// Memory of whole pages that can be read and written, before a page that cannot be touched.
struct GuardedPages {
  std::uint8_t* start;
  std::size_t size;      // that can be used; at least what was asked for
  std::size_t reserved;  // with the page behind
};
GuardedPages TakeGuardedPages(std::size_t size);
void GiveBack(const GuardedPages& pages);

}  // namespace test
