/* step_hashes [--zone FILE] FILE...: what the library gives of each file, a line for each call and
 * each record, so that two platforms can be compared by comparing text: the status, the type code,
 * and a hash of all bytes of the record, the low byte of each number first.
 *
 * --zone takes the zone from a table: a line "FROM OFFSET DAYLIGHT" for each of its changes. Only
 * the program that holds the library itself has a call for that.
 */
#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "low_byte_first.h"
#include "qvslm_layout.h"
#include "qvslm_walk.h"
#include "qvslmtranslate.h"
#ifdef QVSLMTRANSLATE_STATIC
#include "qvslm_zone.h"
#endif

static uint64_t HashOf(const void* record, size_t size) {
  const uint8_t* const bytes = record;
  uint64_t hash = UINT64_C(0xCBF29CE484222325);
  size_t at;
  for (at = 0; at < size; ++at) hash = (hash ^ bytes[at]) * UINT64_C(0x100000001B3);
  return hash;
}

static void PrintHash(const void* record, size_t size) {
  uint64_t const hash = HashOf(record, size);
  printf(" %08lx%08lx\n", (unsigned long)(hash >> 32), (unsigned long)(hash & 0xFFFFFFFF));
}

static void ShowLookups(const char* path, void* context) {
  QvFileHeaderInfo header;
  uint16_t model = 0;
  char serial[81] = {0};
  float firmware = 0;
  uint32_t bits;
  int16_t sites = 0;
  int32_t status;

  memset(&header, 0, sizeof header);
  status = QV_ReadFileHeader(path, context, &header);
  PutLowByteFirstIn(&header, "QvFileHeaderInfo");
  printf("  header %d", (int)status);
  PrintHash(&header, sizeof header);

  status = QV_ReadFileSN(path, context, &model, serial, &firmware);
  memcpy(&bits, &firmware, sizeof bits);
  printf("  serial %d %u '%s' %08lx\n", (int)status, (unsigned)model, serial, (unsigned long)bits);
  status = QV_ReadSiteNum(path, context, &sites);
  printf("  sites %d %d\n", (int)status, (int)sites);
}

static void ShowRecords(const char* path, void* context, void* record) {
  QvRecordCensus census;
  QvWalk walk;

  memset(&census, 0, sizeof census);
  QvWalkOpen(&walk, path, context, record, &census);
  PutLowByteFirstIn(&census, "QvRecordCensus");
  printf("  census %d", (int)walk.CensusStatus);
  PrintHash(&census, sizeof census);
  printf("  start %d\n", (int)walk.Status);
  while (QvWalkNext(&walk)) {
    size_t const size = QvRecordSize(walk.Code);
    printf("  record %u status %d at %ld missing %lu", (unsigned)walk.Code, (int)walk.Status,
           (long)walk.Offset, (unsigned long)walk.Missing);
    PutLowByteFirst(record, walk.Code, QvMode(context));
    PrintHash(record, size);
  }
  printf("  end %d: %s\n", (int)walk.Status, QvWalkWhy(&walk));
  QvWalkClose(&walk);
}

static const char* NameOf(const char* path) {
  const char* name = path;
  for (; *path; ++path) {
    if (*path == '/' || *path == '\\') name = path + 1;
  }
  return name;
}

static void ShowTexts(void) {
  char date[32] = {0};
  char time[32] = {0};
  int32_t const noon = 1718971200;
  printf("%u %u\n", (unsigned)QV_TranVersion(), (unsigned)QV_TranVersionEx());
  TX_SecsToDate(&noon, date, time, 0);
  printf("%s %s %lu\n", date, time, (unsigned long)TX_DateToSecs(date, time, 0));
}

#ifdef QVSLMTRANSLATE_STATIC
/* Returns 0 where the file is no table. */
static int UseZone(const char* path) {
  static QvZoneChange changes[4096];
  size_t const most = sizeof changes / sizeof changes[0];
  size_t count = 0;
  char line[128];
  FILE* const file = fopen(path, "r");
  if (!file) return 0;
  while (fgets(line, sizeof line, file)) {
    QvZoneChange* const change = &changes[count];
    if (++count == most || sscanf(line, "%" SCNd64 " %" SCNd32 " %" SCNd32, &change->From,
                                  &change->Offset, &change->Daylight) != 3) {
      fclose(file);
      return 0;
    }
  }
  fclose(file);
  QvUseZone(changes, count);
  return count > 0;
}
#else
static int UseZone(const char* path) {
  (void)path;
  return 0;
}
#endif

int main(int argc, char** argv) {
  static uint64_t record[QV_OUTPUT_RECORD_SIZE / sizeof(uint64_t) + 1];
  void* const context = malloc(QV_GetBufferSize());
  int at = 1;
  if (!context) return 1;
  if (argc > 2 && strcmp(argv[1], "--zone") == 0) {
    if (!UseZone(argv[2])) {
      fprintf(stderr, "step_hashes: no zone can be taken from %s\n", argv[2]);
      free(context);
      return 1;
    }
    at = 3;
  }
  ShowTexts();
  for (; at < argc; ++at) {
    printf("%s\n", NameOf(argv[at]));
    memset(context, 0, QV_GetBufferSize());
    ShowLookups(argv[at], context);
    ShowRecords(argv[at], context, record);
  }
  free(context);
  return 0;
}
