// step_hashes FILE...: what the library gives of each file, a line for each call and each record,
// so that two platforms can be compared by comparing text: the status, and a hash of what was
// filled in. Numbers go into the hash with their low byte first, whatever the machine's order is.
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "qvslm_walk.h"
#include "qvslmtranslate.h"
#include "record_table.h"

namespace {

using record_fields::FieldInfo;
using record_fields::RecordInfo;

class Hash {
 public:
  void Take(const std::uint8_t* bytes, std::size_t size, std::size_t element) {
    for (std::size_t at = 0; at < size; ++at) {
      bool const lowFirst = std::endian::native == std::endian::little;
      std::size_t const inElement = at % element;
      std::size_t const place = lowFirst ? at : at - inElement + (element - 1 - inElement);
      value_ = (value_ ^ bytes[place]) * 0x100000001B3;
    }
  }
  unsigned long long Value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325;
};

const RecordInfo* StructNamed(std::string_view name) {
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.structName == name) return &record;
  }
  return nullptr;
}

const RecordInfo* StructOf(int code, int mode) {
  if (code == QV_INTERVAL) return StructNamed(mode == 4 ? "QvBandInterval" : "QvInterval");
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.code == code && code != 0) return &record;
  }
  return nullptr;
}

unsigned long long HashOf(const void* record, const RecordInfo& info) {
  Hash hash;
  auto const* const bytes = static_cast<const std::uint8_t*>(record);
  for (const FieldInfo& field : info.fields) {
    hash.Take(bytes + field.offset, FieldSize(field), ElementSize(field.type));
  }
  return hash.Value();
}

void Line(const char* what, int status, unsigned long long hash) {
  std::printf("  %s %d %016llx\n", what, status, hash);
}

template <class T>
unsigned long long HashOfStruct(const T& value, std::string_view name) {
  const RecordInfo* const info = StructNamed(name);
  return info == nullptr ? 0 : HashOf(&value, *info);
}

void ShowLookups(const char* path, void* context) {
  QvFileHeaderInfo header{};
  int status = QV_ReadFileHeader(path, context, &header);
  Line("header", status, HashOfStruct(header, "QvFileHeaderInfo"));
  std::uint16_t model = 0;
  char serial[81] = {};
  float firmware = 0;
  status = QV_ReadFileSN(path, context, &model, serial, &firmware);
  std::uint32_t bits = 0;
  std::memcpy(&bits, &firmware, sizeof bits);
  std::printf("  serial %d %u '%s' %08lx\n", status, unsigned{model}, serial,
              static_cast<unsigned long>(bits));
  std::int16_t sites = 0;
  status = QV_ReadSiteNum(path, context, &sites);
  std::printf("  sites %d %d\n", status, int{sites});
}

void ShowFile(const char* path) {
  std::string_view name = path;
  name.remove_prefix(name.find_last_of("/\\") + 1);
  std::printf("%.*s\n", static_cast<int>(name.size()), name.data());

  std::vector<std::uint64_t> context(QV_GetBufferSize() / sizeof(std::uint64_t));
  std::vector<std::uint64_t> record(QV_OUTPUT_RECORD_SIZE / sizeof(std::uint64_t) + 1);
  ShowLookups(path, context.data());
  std::memset(context.data(), 0, QV_GetBufferSize());

  QvRecordCensus census{};
  QvWalk walk;
  int const started = QvWalkOpen(&walk, path, context.data(), record.data(), &census);
  Line("start, census", started, HashOfStruct(census, "QvRecordCensus"));
  while (QvWalkNext(&walk)) {
    const RecordInfo* const info = StructOf(walk.Code, QvMode(context.data()));
    std::printf("  %ld %ld %u ", static_cast<long>(walk.Offset), static_cast<long>(walk.Missing),
                unsigned{walk.Code});
    Line(info == nullptr ? "?" : info->structName.data(), walk.Status,
         info == nullptr ? 0 : HashOf(record.data(), *info));
  }
  std::printf("  end %d: %s\n", static_cast<int>(walk.Status), QvWalkWhy(&walk));
  QvWalkClose(&walk);
}

}  // namespace

int main(int argc, char** argv) {
  std::printf("%u %u\n", QV_TranVersion(), QV_TranVersionEx());
  char date[32] = {};
  char time[32] = {};
  std::int32_t const noon = 1718971200;
  TX_SecsToDate(&noon, date, time, 0);
  std::printf("%s %s %lu\n", date, time, static_cast<unsigned long>(TX_DateToSecs(date, time, 0)));
  for (int at = 1; at < argc; ++at) ShowFile(argv[at]);
  return 0;
}
