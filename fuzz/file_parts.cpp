#include "file_parts.h"

#include <algorithm>
#include <cstdlib>

namespace fuzz {

namespace {

constexpr std::size_t kMostParts = 5000;

int ByteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

bool OpensHeader(char c) {
  return c == 'L' || c == ' ' || c == '*';
}

int NumberAt(std::string_view text, std::size_t column) {
  return column < text.size() ? std::atoi(std::string(text.substr(column)).c_str()) : 0;
}

class Cutter {
 public:
  explicit Cutter(std::string_view file) : rest_(file) {}

  Parts Cut() {
    CutHeader();
    while (!rest_.empty() && parts_.size() < kMostParts) CutOne();
    if (!rest_.empty()) Take(PartKind::Rest, rest_.size());
    return std::move(parts_);
  }

 private:
  std::string_view Take(PartKind kind, std::size_t size) {
    std::string_view const bytes = rest_.substr(0, size);
    parts_.push_back({kind, std::string(bytes)});
    rest_.remove_prefix(bytes.size());
    return bytes;
  }

  std::size_t LineSize(std::size_t from = 0) const {
    std::size_t const feed = rest_.find('\n', from);
    return feed == std::string_view::npos ? rest_.size() : feed + 1;
  }

  void CutHeader() {
    if (rest_.starts_with('@')) {
      for (int title = 0; title < 3; ++title) Take(PartKind::HeaderLine, LineSize());
    }
    if (rest_.empty() || !OpensHeader(rest_[0])) return;
    Take(PartKind::HeaderLine, LineSize());
    model_ = NumberAt(rest_, 0);
    bool const hasMode = model_ == 431 || model_ == 442;
    for (int line = 1; line < (hasMode ? 8 : 6); ++line) Take(PartKind::HeaderLine, LineSize());
  }

  void CutOne() {
    int const type = ByteAt(rest_, 0);
    bool const hasMode = model_ == 431 || model_ == 442;
    if (type == 0) {
      Take(PartKind::EndOfData, 1);
    } else if (type == 'Q' || type == 'R') {
      NoteRegister(Take(PartKind::Line, LineSize()));
    } else if (type == 'E') {
      Take(PartKind::EndLines, LineSize(LineSize()));
    } else if (type == 21 || type == 27) {
      Take(PartKind::List, ListSize());
    } else if (type == (hasMode ? 7 : 6)) {
      Take(PartKind::Stream, StreamSize());
    } else {
      CutItem(type);
    }
  }

  void CutItem(int type) {
    std::size_t const size =
        kItemHead + static_cast<std::size_t>(ByteAt(rest_, 1) * 256 + ByteAt(rest_, 2));
    if (size > rest_.size()) {
      Take(PartKind::Rest, rest_.size());
      return;
    }
    std::string_view const item = Take(PartKind::Item, size);
    if (type == 'M') NoteSetup(item.substr(kItemHead));
  }

  std::size_t ListSize() const {
    auto const length = static_cast<std::size_t>(ByteAt(rest_, 1));
    std::size_t at = 2;
    while (at < rest_.size() && rest_[at] != 0 && length > 0) at += length;
    return std::min(at + 1, rest_.size());
  }

  std::size_t StreamSize() const {
    std::size_t const levels = secondLevel_ ? 2 : 1;
    std::size_t const entry = wholeDecibels_ ? levels : 2 * levels;
    std::size_t at = 1;
    while (at < rest_.size() && rest_[at] != 0) {
      std::size_t const last = at + entry - 1;
      bool const closes = ByteAt(rest_, at) > 127 && ByteAt(rest_, last) == 0;
      if (closes) return std::min(last + 1, rest_.size());
      at += entry;
    }
    return std::min(at + 1, rest_.size());
  }

  // What decides the width of the entries of the streams behind.
  void NoteRegister(std::string_view line) {
    if (!line.starts_with('Q')) return;
    int const number = NumberAt(line, 1);
    if (number == 81) wholeDecibels_ = NumberAt(line, 5) != 0;
    if (number == 82) secondLevel_ = NumberAt(line, 5) != 0;
  }

  void NoteSetup(std::string_view body) {
    int const mode = ByteAt(body, 39);
    bool const setsWidth =
        model_ == 431 ? mode == 2 || mode == 3 : mode == 0 || mode == 2 || mode == 3 || mode == 7;
    if (!setsWidth) return;
    wholeDecibels_ = (ByteAt(body, 47) & 4) != 0;
    if (model_ == 431) secondLevel_ = ByteAt(body, 140) != 0;
  }

  std::string_view rest_;
  Parts parts_;
  int model_ = 486;
  bool wholeDecibels_ = false;
  bool secondLevel_ = false;
};

}  // namespace

Parts TakeApart(std::string_view file) {
  return Cutter(file).Cut();
}

std::string PutTogether(const Parts& parts) {
  std::string file;
  for (const Part& part : parts) file += part.bytes;
  return file;
}

HeaderPlace FindHeader(const Parts& parts) {
  HeaderPlace place;
  while (place.first < parts.size() && parts[place.first].kind == PartKind::HeaderLine &&
         parts[place.first].bytes.starts_with('@')) {
    ++place.first;
  }
  while (place.first + place.lines < parts.size() &&
         parts[place.first + place.lines].kind == PartKind::HeaderLine) {
    ++place.lines;
  }
  return place;
}

int ModelOf(const Parts& parts) {
  HeaderPlace const header = FindHeader(parts);
  return header.lines < 2 ? 486 : NumberAt(parts[header.first + 1].bytes, 0);
}

Part MakeItem(int type, std::string_view body) {
  std::string bytes;
  bytes += static_cast<char>(type);
  bytes += static_cast<char>(body.size() >> 8);
  bytes += static_cast<char>(body.size());
  bytes += body;
  return {PartKind::Item, bytes};
}

}  // namespace fuzz
