/* A host in C99: walks a file and prints how many records it holds. */
#include <qvslm_walk.h>
#include <stdio.h>
#include <stdlib.h>

/* The number of whole records; where the walk does not come to the end of the data, why not. */
static void CountRecords(const char* path, void* context, void* record) {
  QvRecordCensus census;
  QvWalk walk;
  long count = 0;
  QvWalkOpen(&walk, path, context, record, &census);
  while (QvWalkNext(&walk)) count += walk.Whole;
  QvWalkClose(&walk);
  printf("%ld\n", count);
  if (!QvWalkWasWhole(&walk)) printf("%s\n", QvWalkWhy(&walk));
}

int main(int argc, char** argv) {
  void* context = malloc(QV_GetBufferSize());
  void* record = malloc(QV_OUTPUT_RECORD_SIZE);
  if (context == NULL || record == NULL) return 1;
  printf("translation %u\n", (unsigned)QV_TranVersion());
  CountRecords(argc > 1 ? argv[1] : "no such file", context, record);
  free(record);
  free(context);
  return 0;
}
