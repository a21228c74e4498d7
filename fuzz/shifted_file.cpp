#include "shifted_file.h"

#include <algorithm>
#include <numeric>

#include "file_parts.h"

namespace fuzz {

namespace {

constexpr std::size_t kStretch = 32768;
constexpr std::size_t kLongestBody = 6200;
constexpr std::size_t kLongestLine = 250;
constexpr int kSkippedType = 9;
constexpr std::size_t kSkippedItems = 11;
// The last is the longest that there may be, so that both forms leave the same bytes behind.
constexpr std::size_t kFewest = kSkippedItems * kItemHead + kLongestBody;

std::string SkippedItems(std::size_t size) {
  std::string items;
  std::size_t left = size - kFewest;
  for (std::size_t item = 1; item < kSkippedItems; ++item) {
    std::size_t const body = std::min(left, kLongestBody);
    left -= body;
    items += MakeItem(kSkippedType, std::string(body, '\xEE')).bytes;
  }
  return items + MakeItem(kSkippedType, std::string(kLongestBody, '\xEE')).bytes;
}

bool IsPlainModel(const std::string& line) {
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return line.size() > 3 && std::all_of(line.begin(), line.begin() + 3, isDigit) &&
         (line[3] == ' ' || line[3] == '\r');
}

bool IsWhole(const Part& line) {
  return line.bytes.size() <= kLongestLine && line.bytes.ends_with('\n');
}

// The size of a header that every reader takes alike; 0 for others.
std::size_t PlainHeaderSize(const Parts& parts) {
  HeaderPlace const place = FindHeader(parts);
  if (place.lines < 6 || !IsPlainModel(parts[place.first + 1].bytes)) return 0;
  std::size_t const lines = place.first + place.lines;
  std::size_t size = 0;
  for (std::size_t line = 0; line < lines; ++line) {
    if (!IsWhole(parts[line])) return 0;
    size += parts[line].bytes.size();
  }
  return size;
}

}  // namespace

std::optional<ShiftedFile> Shift(std::span<const std::uint8_t> file) {
  std::string const whole(file.begin(), file.end());
  std::size_t const header = PlainHeaderSize(TakeApart(whole));
  if (header == 0 || header == whole.size() || whole.size() + kFewest > kStretch) return {};

  // Any place of the records may be the border's, but always the same in the same file.
  std::size_t const sum = std::accumulate(file.begin(), file.end(), file.size());
  std::size_t const border = sum % 2 == 0 ? kStretch : 2 * kStretch;
  std::size_t const before = border - header - sum % (whole.size() - header);
  auto const shifted = [&](std::size_t size) {
    return whole.substr(0, header) + SkippedItems(size) + whole.substr(header);
  };
  return ShiftedFile{shifted(kFewest), shifted(before)};
}

}  // namespace fuzz
