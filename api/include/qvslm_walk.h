/*
 * qvslm_walk.h: the walk through a measurement file that always ends.
 *
 *   QvWalk walk;
 *   QvRecordCensus census;
 *   QvWalkOpen(&walk, path, context, record, &census);
 *   while (QvWalkNext(&walk)) {
 *     if (walk.Whole) printf("code %u at byte %ld\n", (unsigned)walk.Code, (long)walk.Offset);
 *   }
 *   QvWalkClose(&walk);
 *   if (!QvWalkWasWhole(&walk)) printf("%s\n", QvWalkWhy(&walk));
 *
 * The library itself steps on for as long as it is asked: a stream that the end of the file cuts
 * goes on with the bytes read last, an item that the file's mode knows no record for comes again
 * and again. The walk calls the same twelve functions, looks at the head of the context behind each
 * step (see qvslmtranslate.h for what it tells), and ends where the file does. It takes no more
 * steps than the file has bytes, and one more.
 *
 * A record is whole when the file holds every byte that it rests on. From the first step on that
 * missed one, records are not whole any more, also those that stand in the file themselves: the
 * level offset or the owner that they go by may be what is missing. They are delivered all the
 * same, for a host that wants them; most show only the whole ones. Those are the first records of
 * the file as it was before it was cut, but for times that come from the look at the file's tail
 * (of block images, and the latest one in the end record) and, in zones with daylight time, for a
 * daylight span that the census found in what is missing.
 *
 * Everything here is plain C99, and C++17, on the functions of qvslmtranslate.h alone.
 */
#ifndef QVSLM_WALK_H
#define QVSLM_WALK_H

#include <stdint.h>
#include <string.h>

#include "qvslmtranslate.h"

#ifdef __cplusplus
extern "C" {
#endif

/** How a walk ended. */
typedef enum QvWalkEnd {
  QV_WALK_GOES_ON = 0, /* not yet */
  QV_WALK_AT_END,      /* at the end of the data: the last record was the end record */
  QV_WALK_NOT_STARTED, /* the start failed: Status tells why */
  QV_WALK_CUT,         /* the file ends before the end of its data */
  QV_WALK_UNREADABLE,  /* an item that no walk can pass, or a fault of the file: Status tells */
  QV_WALK_STANDS_STILL /* an item its mode knows no record for, or a list without a block length */
} QvWalkEnd;

/** One walk. The host owns it and both buffers, and reads what stands here. */
typedef struct QvWalk {
  void* Context; /* QV_GetBufferSize() bytes, aligned to 8; the walk clears them */
  void* Record;  /* QV_OUTPUT_RECORD_SIZE bytes, aligned to 4; cleared, not for hosts to write */
  int32_t CensusStatus; /* what QV_GetRecordCount returned; QV_OK without a census */
  int32_t Status;       /* what the start, then each step returned */
  QvWalkEnd End;        /* how the walk ended */
  int32_t Offset;       /* where in the file the last step began: the place of the record in hand */
  uint32_t Missing;     /* bytes that the last step used and the file does not have */
  uint64_t Records;     /* delivered so far, the one in hand included */
  uint16_t Code;        /* type code of the record in hand; QV_NO_RECORD without one */
  uint8_t Whole;        /* 1 while the file held all that the records rest on */
  int32_t CutOffset;    /* Offset of the first step that missed bytes; -1 while none did */
  uint16_t CutCode;     /* its type code */
  uint8_t Short; /* 1: the step returned QV_RECORD_TOO_SHORT; most items end early without it */
} QvWalk;

/* From the first step on that missed bytes nothing is whole. */
static inline void QvWalkNoteMissing(QvWalk* walk) {
  if (walk->Missing == 0 || walk->Whole == 0) return;
  walk->Whole = 0;
  walk->CutOffset = walk->Offset;
  walk->CutCode = walk->Code;
}

/**
 * Opens a file for a walk. Clears the walk and the buffers, the context once more behind the
 * census: what that has read of the whole file does not get into the first records.
 *
 * path    as for QV_StartTranslate.
 * census  takes the counts of QV_GetRecordCount, which also finds the daylight span; null leaves
 *         the census out. The walk goes on whatever its status.
 *
 * Returns what QV_StartTranslate returned: the walk can begin at QV_OK and QV_NO_TEXT_HEADER, and
 * has ended at all others. A file of model 442 that is cut within the line of its level offset can
 * be started, but not walked: QvWalkNext gives nothing, and the walk has ended with QV_WALK_CUT.
 */
static inline int32_t QvWalkOpen(QvWalk* walk, const char* path, void* context, void* record,
                                 QvRecordCensus* census) {
  memset(walk, 0, sizeof *walk);
  if (!context || !record) {
    walk->CutOffset = -1;
    walk->End = QV_WALK_NOT_STARTED;
    return walk->Status = QV_NO_ARGUMENT;
  }
  memset(context, 0, QV_GetBufferSize());
  walk->Context = context;
  walk->Record = record;
  walk->Whole = 1;
  walk->CutOffset = -1;
  if (census) {
    walk->CensusStatus = QV_GetRecordCount(path, context, census, record);
    QV_StopTranslate(); /* a census whose seek failed leaves the file open */
    memset(context, 0, QV_GetBufferSize());
  }
  memset(record, 0, QV_OUTPUT_RECORD_SIZE);
  walk->Status = QV_StartTranslate(path, context);
  walk->Missing = QvBytesMissing(context);
  if (walk->Status != QV_OK && walk->Status != QV_NO_TEXT_HEADER) {
    walk->End = QV_WALK_NOT_STARTED;
    QV_StopTranslate();
  } else if (walk->Missing > 0) {
    walk->End = QV_WALK_CUT;
  }
  QvWalkNoteMissing(walk);
  return walk->Status;
}

/* Whether a step gave nothing that the file holds: no record, or one of a stream or a list that
 * begins behind the end of the file. */
static inline int QvWalkIsBehindFile(uint16_t code, int64_t moved, int64_t missing) {
  return moved == missing && (code == QV_NO_RECORD || code == QV_TIME_HISTORY ||
                              code == QV_TIMED_SPECTRUM || code == QV_FIELD_HISTORY);
}

/* Clears what the step before has written: its record, or what a step without one began. */
static inline void QvWalkClear(QvWalk* walk) {
  size_t const written =
      walk->Code == QV_NO_RECORD ? sizeof(QvTimeHistory) : QvRecordSize(walk->Code);
  memset(walk->Record, 0, written);
}

/* Makes one step. Its code is QV_NO_RECORD where it gave nothing to deliver. */
static inline void QvWalkStep(QvWalk* walk) {
  int64_t before;
  int64_t moved;
  walk->Offset = QvFileOffset(walk->Context);
  QvWalkClear(walk);
  walk->Status = QV_TranslateNextRec(walk->Record, walk->Context);
  walk->Missing = QvBytesMissing(walk->Context);
  walk->Short = walk->Status == QV_RECORD_TOO_SHORT;
  memcpy(&walk->Code, walk->Record, sizeof walk->Code);
  before = walk->Offset;
  moved = QvFileOffset(walk->Context) - before;

  QvWalkNoteMissing(walk);
  if (walk->Status == QV_END_OF_DATA) {
    walk->End = QV_WALK_AT_END;
    return;
  }
  if (walk->Status < 0 && walk->Short == 0) {
    walk->End = walk->Missing > 0 ? QV_WALK_CUT : QV_WALK_UNREADABLE;
  } else if (moved == 0) {
    walk->End = walk->Missing > 0 ? QV_WALK_CUT : QV_WALK_STANDS_STILL;
  } else if (QvWalkIsBehindFile(walk->Code, moved, walk->Missing)) {
    walk->End = QV_WALK_CUT;
  }
  if (walk->End != QV_WALK_GOES_ON) walk->Code = QV_NO_RECORD;
}

/**
 * Goes on to the next record, the end record included. Returns 1 with a record in hand, 0 when the
 * walk has ended. Steps without a record are passed over.
 */
static inline int QvWalkNext(QvWalk* walk) {
  while (walk->End == QV_WALK_GOES_ON) {
    QvWalkStep(walk);
    if (walk->Code == QV_NO_RECORD) continue;
    ++walk->Records;
    return 1;
  }
  walk->Code = QV_NO_RECORD;
  return 0;
}

/** Closes the file. What stands in the walk stays. */
static inline void QvWalkClose(const QvWalk* walk) {
  if (walk->Context) QV_StopTranslate();
}

/** Whether the walk came to the end of the data, and the file held all of every record. */
static inline int QvWalkWasWhole(const QvWalk* walk) {
  return walk->End == QV_WALK_AT_END && walk->Whole != 0;
}

/** Why the walk ended, in words: "the file ends before the end of its data". */
static inline const char* QvWalkWhy(const QvWalk* walk) {
  switch (walk->End) {
    case QV_WALK_GOES_ON:
      return "the walk goes on";
    case QV_WALK_AT_END:
      return walk->Whole != 0
                 ? "the end of the data was reached"
                 : "the end of the data was reached, but records rest on bytes that the "
                   "file does not have";
    case QV_WALK_CUT:
      return walk->CutCode == QV_REFERENCE_431
                 ? "the file ends before the results block with the level offset (register 106) of "
                   "this model 431"
                 : "the file ends before the end of its data";
    case QV_WALK_STANDS_STILL:
      return "the file does not lead on: an item that its mode knows no record for, or a list "
             "without a block length";
    case QV_WALK_NOT_STARTED:
    case QV_WALK_UNREADABLE:
      break;
  }
  switch (walk->Status) {
    case QV_CANNOT_OPEN:
      return "the file cannot be opened";
    case QV_NOT_FOUND:
      return "no results block with a level offset (register 106) in this file of model 442: the "
             "file may be incomplete";
    case QV_BAD_LENGTH:
      return "an item is longer than any can be";
    case QV_SEEK_FAILED:
      return walk->End == QV_WALK_NOT_STARTED
                 ? "the file does not begin like a measurement file, or it cannot be read"
                 : "a seek failed, or the position lies above 2 GiB";
    case QV_TAIL_SEEK_FAILED:
      return "the file is shorter than the tail that is looked at first: 2500 bytes, 1000 on model "
             "431";
    case QV_NO_ARGUMENT:
      return "a buffer is missing";
    case QV_NO_MEMORY:
      return "there is no memory to look through this file of model 442";
    default:
      return "the file cannot be read further";
  }
}

#ifdef __cplusplus
}
#endif

#endif
