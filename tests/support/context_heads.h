// The heads of a context behind the start and the steps of a translation.
//
// Most files here are in the settings form, which needs no tail: "Q157,3" and its line end, 8
// bytes.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/item_bodies.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {

// What a host sees behind the start (without a code) and behind each step.
struct Head {
  int status;
  int code;
  int offset;
  unsigned missing;
  bool operator==(const Head&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Head& head) {
  return out << "{" << head.status << ", " << head.code << ", " << head.offset << ", "
             << head.missing << "}";
}

using Heads = std::vector<Head>;

inline constexpr Head kSettingsForm{QV_NO_TEXT_HEADER, 0, 0, 0};
inline constexpr Head kSettings{QV_OK, QV_SETTINGS, 8, 0};

inline samples::DataFile SettingsForm() {
  return samples::DataFile().Q(157, "3");
}

// An item that is skipped stands first (8 to 12), so that the block of settings does not end with a
// file that is cut behind it.
inline samples::DataFile Before() {
  return SettingsForm().Item(kSkipped, samples::Body().U8(1));
}

// Behind the start, and behind so many steps.
inline Heads HeadsOf(const std::string& bytes, int steps) {
  TempFile const file(bytes);
  Session session;
  auto const head = [&](int status, int code) {
    return Head{status, code, QvFileOffset(session.Context()), QvBytesMissing(session.Context())};
  };
  Heads heads{head(session.Start(file.Path()), QV_NO_RECORD)};
  for (int step = 0; step < steps; ++step) {
    int const status = session.Next();
    heads.push_back(head(status, session.Code()));
  }
  return heads;
}

inline std::string CutTo(const samples::DataFile& file, std::size_t size) {
  EXPECT_LE(size, file.Size());
  return file.Bytes().substr(0, size);
}

// The heads behind some of the last steps.
inline Heads LastHeads(const std::string& bytes, int from, int to) {
  Heads const heads = HeadsOf(bytes, to);
  return {heads.begin() + from, heads.end()};
}
inline Head HeadBehind(const std::string& bytes, int step) {
  return HeadsOf(bytes, step).back();
}

}  // namespace test
