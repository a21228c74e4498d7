#include "temporary_copy.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string_view>

#include "descriptor.h"
#include "errors.h"
#include "platform.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

bool IsZero(std::string_view bytes) {
  return bytes.front() == '\0' && bytes.substr(1) == bytes.substr(0, bytes.size() - 1);
}

void Write(int file, std::string_view bytes) {
  constexpr const char* fault = "the temporary copy cannot be written";
  // Zeros become a hole: what gives nothing else, without end, fills no disk.
  if (IsZero(bytes)) {
    if (lseek(file, static_cast<off_t>(bytes.size()), SEEK_CUR) < 0) FailWithErrno(fault);
    return;
  }
  while (!bytes.empty()) {
    auto const size = static_cast<unsigned>(bytes.size());  // of a block
    ssize_t const written = write(file, bytes.data(), size);
    if (written < 0 && errno != EINTR) FailWithErrno(fault);
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

std::string TemporaryCopy::Take(int source) {
  // The library can reach no byte behind these.
  constexpr std::uint64_t mostBytes = std::uint64_t{1} << 31;
  folder_ = Temporary::Folder();
  // The end record tells the name of the file.
  file_ = Temporary::File(folder_.Path() + "/stdin");
  Descriptor const copy(OpenToWrite(file_.Path()));
  if (copy.Number() < 0) FailWithErrno("the temporary copy cannot be written");
  std::array<char, 65536> block;
  std::uint64_t total = 0;
  for (;;) {
    ssize_t const count = read(source, block.data(), block.size());
    if (count < 0 && errno != EINTR) FailWithErrno("the file cannot be read");
    if (count == 0) break;
    if (count < 0) continue;
    auto const size = static_cast<std::size_t>(count);
    total += size;
    if (total > mostBytes) throw FileError("the file does not end within 2 GiB", QV_CANNOT_OPEN);
    Write(copy.Number(), {block.data(), size});
  }
  // Gives a hole at the end its size.
  if (ftruncate(copy.Number(), static_cast<off_t>(total)) != 0) {
    FailWithErrno("the temporary copy cannot be written");
  }
  return file_.Path();
}

}  // namespace host
