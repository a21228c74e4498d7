/* A host in C99: walks a file and prints how many records it gave. */
#include <qvslmtranslate.h>
#include <stdio.h>
#include <stdlib.h>

static int CountRecords(const char* path, void* context, void* record) {
  QvRecordCensus census;
  int count = 0;
  int32_t status;
  QV_GetRecordCount(path, context, &census, record);
  status = QV_StartTranslate(path, context);
  if (status == QV_OK || status == QV_NO_TEXT_HEADER) {
    uint16_t code;
    do {
      status = QV_TranslateNextRec(record, context);
      code = *(const uint16_t*)record;
      if (code != QV_NO_RECORD) ++count;
    } while (status >= 0 || (status == QV_RECORD_TOO_SHORT && code != QV_NO_RECORD));
  }
  QV_StopTranslate();
  return status == QV_END_OF_DATA ? count : (int)status;
}

int main(int argc, char** argv) {
  void* context = calloc(1, QV_GetBufferSize());
  void* record = calloc(1, QV_OUTPUT_RECORD_SIZE);
  if (context == NULL || record == NULL) return 1;
  printf("translation %u\n", (unsigned)QV_TranVersion());
  printf("%d\n", CountRecords(argc > 1 ? argv[1] : "no such file", context, record));
  free(record);
  free(context);
  return 0;
}
