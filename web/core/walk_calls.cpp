// What JavaScript calls: the library's calls, and a walk that gives many records at a time. What it
// needs of memory stands here, at addresses that JavaScript asks for once.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "qvslm_walk.h"
#include "qvslm_zone.h"

#define CORE_CALL(name) extern "C" __attribute__((export_name(#name)))

namespace {

constexpr std::size_t kNameSize = 1024;
constexpr std::size_t kMostChanges = 4096;
constexpr std::size_t kBatchSize = 1 << 18;
constexpr std::size_t kCodes = 256;
constexpr std::size_t kBandIntervals = kCodes;  // code 1 in mode 4 counts here

// The head of a record in the batch; the record stands right behind it.
struct BatchHead {
  std::uint16_t code;
  std::uint16_t size;
  std::uint8_t isBandInterval;  // code 1 stands for it
  std::uint8_t isWhole;
  std::uint8_t isShort;
  std::uint8_t unused;
  std::int32_t offset;
};
static_assert(sizeof(BatchHead) == 12);

// How far a walk is, for JavaScript: numbers of 32 bits in this order.
struct WalkState {
  std::int32_t end;
  std::int32_t status;
  std::int32_t censusStatus;
  std::int32_t offset;     // where the last step began
  std::int32_t position;   // where the next one begins
  std::int32_t cutOffset;  // below 0 while the file had everything
  std::int32_t wasWhole;
  std::int32_t batchBytes;
  std::int32_t headerStatus;
  std::int32_t model;
  std::int32_t sites;
};

char sourceName[kNameSize];
char serial[81];
char dateText[32];
char timeText[32];
QvZoneChange zone[kMostChanges];
alignas(8) std::uint8_t batch[kBatchSize];
std::uint8_t wanted[kCodes];
std::uint32_t counts[kCodes + 1];  // of whole records, by code
alignas(8) std::uint8_t record[QV_OUTPUT_RECORD_SIZE];
void* context = nullptr;
QvWalk walk;
QvRecordCensus census;
QvFileHeaderInfo header;
WalkState state;

void* Context() {
  if (context == nullptr) context = std::malloc(QV_GetBufferSize());
  return context;
}

void TellState() {
  state.end = walk.End;
  state.status = walk.Status;
  state.censusStatus = walk.CensusStatus;
  state.offset = walk.Offset;
  state.position = walk.Context == nullptr ? 0 : QvFileOffset(walk.Context);
  state.cutOffset = walk.CutOffset;
  state.wasWhole = QvWalkWasWhole(&walk);
}

bool IsBandInterval() {
  return walk.Code == QV_INTERVAL && QvMode(walk.Context) == 4;
}

// Whether there is room for another one.
bool AppendRecord() {
  bool const isBands = IsBandInterval();
  auto const used = static_cast<std::size_t>(state.batchBytes);
  std::size_t const taken = isBands ? sizeof(QvBandInterval) : QvRecordSize(walk.Code);
  BatchHead const head = {
      walk.Code,  static_cast<std::uint16_t>(taken), isBands, walk.Whole, walk.Short, 0,
      walk.Offset};
  std::memcpy(batch + used, &head, sizeof head);
  std::memcpy(batch + used + sizeof head, record, taken);
  state.batchBytes += static_cast<std::int32_t>(sizeof head + taken);
  return used + 2 * (sizeof head + QV_OUTPUT_RECORD_SIZE) <= kBatchSize;
}

}  // namespace

CORE_CALL(source_name) char* SourceName() {
  return sourceName;
}
CORE_CALL(serial_text) char* SerialText() {
  return serial;
}
CORE_CALL(date_text) char* DateText() {
  return dateText;
}
CORE_CALL(time_text) char* TimeText() {
  return timeText;
}
CORE_CALL(zone_table) QvZoneChange* ZoneTable() {
  return zone;
}
CORE_CALL(zone_room) std::size_t ZoneRoom() {
  return kMostChanges;
}
CORE_CALL(batch_bytes) std::uint8_t* BatchBytes() {
  return batch;
}
CORE_CALL(batch_room) std::size_t BatchRoom() {
  return kBatchSize;
}
CORE_CALL(wanted_codes) std::uint8_t* WantedCodes() {
  return wanted;
}
CORE_CALL(whole_counts) std::uint32_t* WholeCounts() {
  return counts;
}
CORE_CALL(census_counts) QvRecordCensus* CensusCounts() {
  return &census;
}
CORE_CALL(header_lines) QvFileHeaderInfo* HeaderLines() {
  return &header;
}
CORE_CALL(walk_state) WalkState* State() {
  return &state;
}

// Makes the first changes of the table the zone; with none the zone is UTC.
CORE_CALL(use_zone) void UseZone(std::size_t count) {
  QvUseZone(zone, count);
}

// Seconds of the date and the time in their texts.
CORE_CALL(seconds_of_text) std::uint32_t SecondsOfText() {
  return TX_DateToSecs(dateText, timeText, 0);
}

// Header, serial number and sites of the source.
CORE_CALL(look_up) void LookUp() {
  void* const own = Context();
  if (own == nullptr) return;
  std::uint16_t model = 0;
  float firmware = 0;
  std::int16_t sites = 0;
  std::memset(&header, 0, sizeof header);
  std::memset(serial, 0, sizeof serial);
  std::memset(own, 0, QV_GetBufferSize());
  QV_ReadFileSN(sourceName, own, &model, serial, &firmware);
  std::memset(own, 0, QV_GetBufferSize());
  QV_ReadSiteNum(sourceName, own, &sites);
  std::memset(own, 0, QV_GetBufferSize());
  state.headerStatus = QV_ReadFileHeader(sourceName, own, &header);
  state.model = model;
  state.sites = sites;
}

// The census alone.
CORE_CALL(count_records) int CountRecords() {
  void* const own = Context();
  if (own == nullptr) return QV_NO_MEMORY;
  std::memset(own, 0, QV_GetBufferSize());
  std::memset(&census, 0, sizeof census);
  int const status = QV_GetRecordCount(sourceName, own, &census, record);
  QV_StopTranslate();
  return status;
}

CORE_CALL(open_walk) void OpenWalk(int withCensus) {
  std::memset(&census, 0, sizeof census);
  std::memset(counts, 0, sizeof counts);
  QvWalkOpen(&walk, sourceName, Context(), record, withCensus != 0 ? &census : nullptr);
  TellState();
}

// Walks on until the batch is full, the walk has come as far as the offset, or has made as many
// steps, and gives how many records it went past. In the batch are the wanted ones. A step without
// a record counts as well: a file may hold nothing else for long.
CORE_CALL(walk_on) int WalkOn(int until, int most) {
  int seen = 0;
  state.batchBytes = 0;
  for (int steps = 0; steps < most && walk.End == QV_WALK_GOES_ON; ++steps) {
    QvWalkStep(&walk);
    if (walk.Code != QV_NO_RECORD) {
      ++walk.Records;
      ++seen;
      if (walk.Code < kCodes && walk.Whole != 0) {
        ++counts[IsBandInterval() ? kBandIntervals : walk.Code];
      }
      if (walk.Code < kCodes && wanted[walk.Code] != 0 && !AppendRecord()) break;
    }
    if (QvFileOffset(walk.Context) >= until) break;
  }
  TellState();
  return seen;
}

CORE_CALL(walk_why) const char* WalkWhy() {
  return QvWalkWhy(&walk);
}

CORE_CALL(close_walk) void CloseWalk() {
  QvWalkClose(&walk);
}

// How much of the memory is in use, from its start on.
CORE_CALL(memory_top) std::uintptr_t MemoryTop() {
  return reinterpret_cast<std::uintptr_t>(sbrk(0));
}
