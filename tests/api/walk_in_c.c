#include "walk_in_c.h"

#include <stdlib.h>

WalkInCResult WalkInC(const char* path) {
  WalkInCResult result;
  QvRecordCensus census;
  void* context = malloc(QV_GetBufferSize());
  void* record = malloc(QV_OUTPUT_RECORD_SIZE);
  memset(&result, 0, sizeof result);
  if (context != NULL && record != NULL) {
    QvWalkOpen(&result.Walk, path, context, record, &census);
    while (QvWalkNext(&result.Walk)) {
      if (result.Walk.Whole) {
        ++result.Whole;
      } else {
        ++result.Others;
      }
      if (result.Walk.Whole && result.Walk.Code == QV_LEVEL_MARK) {
        result.LevelOfMarks += ((const QvLevelMark*)record)->Level;
      }
    }
    QvWalkClose(&result.Walk);
    result.WasWhole = QvWalkWasWhole(&result.Walk);
    result.Why = QvWalkWhy(&result.Walk);
    /* The library knows the context named last: that is one that stays, before this one goes. */
    {
      static double parking[9984 / sizeof(double)];
      QV_ReadFileHeader("", parking, NULL);
    }
  }
  free(record);
  free(context);
  return result;
}
