// The text header and the two lookups.

#include <cstring>

#include "fuzzed_file.h"
#include "oracles.h"
#include "work_bound.h"

namespace {

using fuzz::Expect;
using fuzz::IsOneOf;
using fuzz::Reads;

constexpr std::size_t kSerialSize = 81;

struct Host {
  fuzz::FuzzedFile file;
  std::size_t size = 0;
  test::GuardedBuffer context{9984};

  // Each call gets a context that no call has used.
  template <class Call>
  std::int32_t Run(Call call) {
    context.Fill(0);
    return fuzz::BoundedAndClosed(size, Reads::OverTheFile, [&] {
      return call(file.Path(), static_cast<void*>(context.Data()));
    });
  }
};

template <std::size_t Size>
bool IsLine(const char (&field)[Size]) {
  return fuzz::IsTerminated(field) && std::strchr(field, '\r') == nullptr;
}

void CheckLines(const QvFileHeaderInfo& info) {
  Expect(IsLine(info.HeaderLine1) && IsLine(info.HeaderLine2) && IsLine(info.HeaderLine3) &&
             IsLine(info.HeaderLine4) && IsLine(info.HeaderLine5) && IsLine(info.HeaderLine6),
         "header lines are terminated and end before a carriage return");
  Expect(IsLine(info.TitleLine1) && IsLine(info.TitleLine2) && IsLine(info.TitleLine3),
         "title lines are terminated and end before a carriage return");
}

void TryHeader(Host& host) {
  static test::GuardedBuffer bytes(sizeof(QvFileHeaderInfo));
  bytes.Fill(0xA5);
  auto const& info = *reinterpret_cast<const QvFileHeaderInfo*>(bytes.Data());
  auto const read = [&](const char* path, void* context) {
    return QV_ReadFileHeader(path, context, reinterpret_cast<QvFileHeaderInfo*>(bytes.Data()));
  };

  std::int32_t const status = host.Run(read);
  Expect(IsOneOf(status, {QV_OK, QV_SEEK_FAILED, QV_NO_TEXT_HEADER}), "a status of the header");
  CheckLines(info);
  if (status == QV_SEEK_FAILED) {
    Expect(fuzz::AreZero(&info, sizeof info), "a header that fails at its first line has no text");
  }
  if (status == QV_NO_TEXT_HEADER) {
    Expect(fuzz::AreZero(&info, offsetof(QvFileHeaderInfo, TitleLine1)),
           "the settings form has no header lines");
  }

  QvFileHeaderInfo const first = info;
  bytes.Fill(0x5A);
  Expect(host.Run(read) == status && std::memcmp(&first, &info, sizeof first) == 0,
         "a second reading of a header gives the same lines");
  Expect(host.Run([](const char* path, void* context) {
    return QV_ReadFileHeader(path, context, nullptr);
  }) == status,
         "a header has the same status whether its lines are asked for or not");
}

void TrySerial(Host& host) {
  static test::GuardedBuffer text(kSerialSize);
  text.Fill(0xA5);
  auto* const serial = reinterpret_cast<char*>(text.Data());
  std::uint16_t model = 0;
  float firmware = 0;

  std::int32_t const status = host.Run([&](const char* path, void* context) {
    return QV_ReadFileSN(path, context, &model, serial, &firmware);
  });
  Expect(IsOneOf(status, {QV_OK, QV_NOT_FOUND, QV_NO_TEXT_HEADER}),
         "a status of the serial lookup");
  Expect(std::memchr(serial, '\0', kSerialSize) != nullptr, "a serial number is terminated");
  if (status == QV_OK) Expect(serial[0] != '\0', "a serial number that was found is not empty");
  if (status == QV_NO_TEXT_HEADER) Expect(serial[0] == '\0', "no serial number: an empty text");
  Expect(host.Run([](const char* path, void* context) {
    return QV_ReadFileSN(path, context, nullptr, nullptr, nullptr);
  }) == status,
         "the serial lookup has the same status whatever is asked for");
}

void TrySites(Host& host) {
  std::int16_t count = -7;
  std::int32_t const status = host.Run(
      [&](const char* path, void* context) { return QV_ReadSiteNum(path, context, &count); });
  Expect(IsOneOf(status, {QV_OK, QV_NO_TEXT_HEADER}), "a status of the site lookup");
  Expect(status == QV_OK ? count >= 1 : count == 0, "a site count fits its status");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Host host;
  host.file.Hold({data, size});
  host.size = size;
  TryHeader(host);
  TrySerial(host);
  TrySites(host);
  return 0;
}
