/* The walk of qvslm_walk.h in C99, for the tests: what it gave, counted. */
#ifndef WALK_IN_C_H
#define WALK_IN_C_H

#include "qvslm_walk.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct WalkInCResult {
  QvWalk Walk;         /* as it stood at the end */
  unsigned Whole;      /* records that the file held wholly */
  unsigned Others;     /* records that it did not */
  double LevelOfMarks; /* of the whole level marks, summed */
  int WasWhole;
  const char* Why;
} WalkInCResult;

/* Walks with a census. Takes its buffers from the heap. */
WalkInCResult WalkInC(const char* path);

#ifdef __cplusplus
}
#endif

#endif
