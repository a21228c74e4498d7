/*
 * qvslmtranslate.h: the calls of QVSLMTRANSLATE, a library that reads the measurement files of a
 * family of sound level meters.
 *
 * A file is translated step by step. The host owns two buffers: the context, which holds all that
 * the library knows of one file, and the output record, which each step fills with one typed record
 * (qvslm_records.h).
 *
 *   #include <qvslm_walk.h>
 *   #include <stdio.h>
 *   #include <stdlib.h>
 *
 *   int main(int argc, char** argv) {
 *     void* context = malloc(QV_GetBufferSize());
 *     void* record = malloc(QV_OUTPUT_RECORD_SIZE);
 *     QvRecordCensus census;
 *     QvWalk walk;
 *     if (argc != 2 || context == NULL || record == NULL) return 1;
 *     QvWalkOpen(&walk, argv[1], context, record, &census);
 *     while (QvWalkNext(&walk)) {
 *       if (!walk.Whole) continue;
 *       if (walk.Code == QV_LEVEL_MARK) {
 *         const QvLevelMark* mark = (const QvLevelMark*)record;
 *         printf("%ld %.1f dB\n", (long)mark->RecordTime, mark->Level);
 *       }
 *     }
 *     QvWalkClose(&walk);
 *     if (!QvWalkWasWhole(&walk)) fprintf(stderr, "%s: %s\n", argv[1], QvWalkWhy(&walk));
 *     free(record);
 *     free(context);
 *     return QvWalkWasWhole(&walk) ? 0 : 1;
 *   }
 *
 * qvslm_walk.h is the loop that always ends, on the calls declared here: QV_GetRecordCount,
 * QV_StartTranslate, QV_TranslateNextRec again and again, QV_StopTranslate.
 *
 * Buffers. The context has QV_GetBufferSize() bytes, is aligned to 8 bytes, and starts out zeroed;
 * the host owns it throughout, reads its head (QvContextHead) and treats the rest as opaque. It may
 * copy it as bytes while no file is open in it. The output record has at least
 * QV_OUTPUT_RECORD_SIZE bytes, aligned to 4; no call writes behind the size of the record that it
 * delivers. malloc and calloc give such buffers. The library uses neither behind the end of a call,
 * but for QV_StopTranslate, which acts on the context named last; where a call fails to open the
 * file or to seek in it, the context keeps the address of the record, which nothing reads.
 *
 * One context, one file. Zero a context that has been used for another file: no start and no census
 * resets all of it, and what is left can come out in records of the next file:
 *   - of the end record the titles (the first ones win), the latest record time (the largest wins),
 *     and time, site, model and stop time of the blocks of settings and results, and the serial
 *     number, where the next file has no such blocks and no model line;
 *   - what the last setup and reference left: the setup's flags, the form and the masks of streamed
 *     fields, the second spectrum, the number of bands, the level base and the reference level;
 *   - the values of the settings 53, 54 and 147;
 *   - the times of run events and other events by which streams are paced, and the number of
 *     spectra that were delivered;
 *   - the bytes of the last items, all but the first byte, where a body is shorter than what its
 *     record takes from it or the file ends within it, and the text of the last line, where a line
 *     of settings ends before its value and where a file holds too few lines for QV_ReadFileSN.
 *
 * Threads. The library has no threads and no locks: one thread may be in it at a time, and it is
 * used for one file at a time. The daylight span of the last census (QV_GetRecordCount) and the
 * running times of the last start (QV_StartTranslate) are kept for the process, not for the
 * context.
 *
 * Time zone. Instruments write local clock times without a zone. Seconds in records are made from
 * them with the host's zone (TZ), which a host may change between files, before the census.
 *
 * Errors. Every status is one of the QV_ codes below. Nothing is printed, nothing is thrown,
 * nothing is rolled back; after an error of QV_TranslateNextRec the next call mostly meets the same
 * bytes and the same error, so a host stops there.
 *
 * Plain C99, and C++17.
 */
#ifndef QVSLMTRANSLATE_H
#define QVSLMTRANSLATE_H

#include <stdint.h>
#include <string.h>

#include "qvslm_layout.h"
#include "qvslm_records.h"

/* How the calls are found and called. On Windows a host that links the static library defines
 * QVSLMTRANSLATE_STATIC. */
#if defined(_WIN32)
#define QV_CALL __cdecl
#else
#define QV_CALL
#endif
#if defined(_WIN32) && !defined(QVSLMTRANSLATE_STATIC)
#define QV_EXPORT __declspec(dllimport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define QV_EXPORT __attribute__((visibility("default")))
#else
#define QV_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** What a call returns. */
typedef enum QvStatus {
  QV_OK = 0,             /* done; a step may still have yielded no record (type code 0) */
  QV_CANNOT_OPEN = -302, /* the file cannot be opened */
  QV_NOT_FOUND = -310,   /* data that was looked for is not in the file */
  QV_BAD_LENGTH = -312,  /* a record over 6200 bytes, or the file ends where one should begin */
  QV_RECORD_TOO_SHORT = -313, /* the record ended before its last field */
  QV_SEEK_FAILED = -314,      /* a seek failed, lies above 2 GiB, or the header is unreadable */
  QV_TAIL_SEEK_FAILED = -315, /* a seek failed in the look at the file's tail, as in short files */
  QV_BLOCK_COMPLETE = -316,   /* of no call: a number that is taken */
  QV_NO_TEXT_HEADER = -317,   /* the file begins with 'Q' lines; or a lookup found nothing */
  QV_END_OF_DATA = -318,      /* the normal end; the output record is the end record */
  QV_NO_ARGUMENT = -319,      /* a pointer that the call needs is null */
  QV_NO_MEMORY = -320         /* no memory for the scan of a model 442 file */
} QvStatus;

/** The type codes of output records: the first field, RecordType, of each. */
typedef enum QvRecordCode {
  QV_NO_RECORD = 0, /* the step yielded no record */
  QV_INTERVAL = 1,  /* QvInterval; in mode 4 QvBandInterval */
  QV_SUMMARY = 2,
  QV_DAY_SUMMARY = 3,
  QV_EVENT = 4,
  QV_LEVEL_MARK = 5,
  QV_SETTINGS = 7,
  QV_RESULTS = 8,
  QV_BLOCK_IMAGE = 9,
  QV_LEVEL_MARK_BANDS = 10,
  QV_INTERVAL_BANDS = 11,
  QV_SUMMARY_BANDS = 12,
  QV_INTERVAL_BAND_SERIES = 13,
  QV_END = 15,
  QV_TIME_HISTORY = 16,
  QV_TIMED_SPECTRUM = 21,
  QV_REFERENCE_431 = 30,
  QV_BANDS_431 = 31,
  QV_SUMMARY_431 = 32,
  QV_SETUP_BAND_431 = 33,
  QV_SETUP_SHORT_431 = 34,
  QV_SETUP_LOGGING_431 = 35,
  QV_SITE_431 = 36,
  QV_RESULTS_431 = 37,
  QV_REFERENCE = 50,
  QV_SETUP_BAND = 51,
  QV_SETUP_SHORT = 52,
  QV_SETUP_LOGGING = 53,
  QV_SITE = 54,
  QV_RESULTS_442 = 55,
  QV_SPECTRUM_SUMMARY = 56,
  QV_FIELD_HISTORY = 57,
  QV_SETUP_TALLY = 60,
  QV_SETUP_NARROW = 63,
  QV_TALLY_LEVELS = 66,
  QV_TALLY_BANDS = 67,
  QV_TALLY_TOTALS = 68,
  QV_NARROW_TABLE = 69,
  QV_SETUP_SPECTRUM = 70,
  QV_BAND_TABLE = 72
} QvRecordCode;

/** Bytes that a context needs: always 9984. */
QV_EXPORT uint32_t QV_CALL QV_GetBufferSize(void);

/** The version of the translation: always 323. */
QV_EXPORT uint32_t QV_CALL QV_TranVersion(void);

/** The same number as QV_TranVersion. */
QV_EXPORT uint32_t QV_CALL QV_TranVersionEx(void);

/**
 * Walks a whole file and counts the records that its translation will deliver, and establishes the
 * daylight span by which later translations in this process read their times: the run that crosses
 * the autumn clock change keeps one daylight setting. Resets the context. The file is closed at the
 * end, but stays open when a seek failed (QV_StopTranslate closes it). A file that is still open in
 * the context is not closed first: stop its translation before.
 *
 * path     as for QV_StartTranslate.
 * context  zeroed, or used for another file before.
 * census   takes the counts; they stand as far as the walk came, whatever the status.
 * record   a buffer of QV_OUTPUT_RECORD_SIZE bytes to work in; what it holds at the end has no
 *          meaning.
 *
 * QV_OK                the walk reached the end of the data.
 * QV_NO_ARGUMENT       context, census or record is null; the daylight span is forgotten all the
 *                      same.
 * QV_CANNOT_OPEN       the file cannot be opened.
 * QV_SEEK_FAILED       a seek failed, an item ends above 2,147,483,647 bytes, or the first header
 *                      line is missing or none of a data file.
 * QV_BAD_LENGTH        an item is longer than 6200 bytes, the file ended without an end of data, or
 *                      an item stands there that a walk cannot get past.
 * QV_RECORD_TOO_SHORT  an event or a setup ended before its last field.
 */
QV_EXPORT int32_t QV_CALL QV_GetRecordCount(const char* path, void* context, QvRecordCensus* census,
                                            void* record);

/**
 * Starts the translation of a file: resets the context, opens the file, reads the text header,
 * looks up the last stop time (and on model 442 the level offset) in the file's tail, and goes back
 * to the start of the data. The file stays open until QV_TranslateNextRec has returned
 * QV_END_OF_DATA or QV_StopTranslate is called, also when this call fails behind the open. A file
 * that is still open in the context is not closed first: stop its translation before.
 *
 * path     NUL-terminated, of any length. A path of more than 259 bytes is opened too, but not
 *          kept, so that nothing can be read behind the end record. A null path cannot be opened.
 * context  see above.
 *
 * QV_OK                the walk can begin.
 * QV_NO_TEXT_HEADER    the file is in the settings form, without a text header: the walk can begin
 *                      all the same, with model 486 and mode 0.
 * QV_NO_ARGUMENT       context is null; nothing was done.
 * QV_CANNOT_OPEN       the file cannot be opened.
 * QV_SEEK_FAILED       the first header line is missing or none of a data file, or a seek or the
 *                      read of the scan failed.
 * QV_TAIL_SEEK_FAILED  the file is shorter than the tail that is looked at: 1000 bytes on model
 *                      431, 2500 on others but 442. Model, mode and firmware version are known by
 *                      then.
 * QV_NOT_FOUND         model 442: no results block, or none with register 106, in the first
 *                      2,100,000 bytes behind the header.
 * QV_NO_MEMORY         model 442: no memory for the scan.
 */
QV_EXPORT int32_t QV_CALL QV_StartTranslate(const char* path, void* context);

/**
 * Makes one step: takes one item of the file, or a stretch of a stream, and delivers at most one
 * record. Called until the result is negative.
 *
 * record   the host's buffer of QV_OUTPUT_RECORD_SIZE bytes. Its first u16 becomes the type code of
 *          the record, 0 when the step yielded none (status 0: an item without a record; or a
 *          failure). Such a step may have written into the first sizeof(QvTimeHistory) bytes, and
 *          none behind them.
 * context  as QV_StartTranslate left it. When its file is not open it is opened anew from the path
 *          that the start kept, and read on: behind the end record, what follows the end of the
 *          data.
 *
 * QV_OK                a step was made.
 * QV_END_OF_DATA       the end of the data: the record is QvEnd, the file is closed.
 * QV_RECORD_TOO_SHORT  the item ended before its last field. The record is delivered, the missing
 *                      bytes read as 0, and the next call goes on with the next item. (A tally item
 *                      of model 442 without its kind byte yields no record, and the next call meets
 *                      it again.)
 * QV_BAD_LENGTH        the item is longer than 6200 bytes, or the file ended without an end of
 *                      data.
 * QV_SEEK_FAILED       the seek to the item failed, or it ends above 2,147,483,647 bytes.
 * QV_CANNOT_OPEN       the file could not be opened anew.
 * QV_NO_ARGUMENT       record or context is null; nothing was done.
 *
 * Whether the file holds what a step used, and whether the walk still moves, is told by the head of
 * the context. QvBytesMissing counts, for the step that was made:
 *
 *   - of a framed item, of its type byte and length too, the bytes behind the end of the file. The
 *     record is filled with what stood in the buffer before, and the status need not be negative;
 *   - of a stream the bytes of entries, and of a list the bytes of its block, behind the end of the
 *     file: the record holds what was read last. A list looks at the first byte of the next block,
 *     which counts with that block;
 *   - 1 where a settings or results block ends with the file: whether it was whole cannot be known.
 *     An 'E' item counts 1 where its second line has no end;
 *   - 1 where the owner of a band record, which gives it its time, is cut or stands behind the end
 *     of the file: the time is the present one. Later band records of that family do not look again
 *     before the next 'Q' block: theirs is the present one, too, and does not count;
 *   - 1 where the reference record of model 431 finds no whole register 106 in a results block
 *     before the file ends: the levels behind it lack that offset.
 *
 * From this follow exact rules, without a census:
 *
 *   - A step with bytes missing gave a record that the file does not wholly hold, or one that
 *     leaves something uncertain for those behind it, which count nothing of their own: from there
 *     on no record is certain. QvBytesMissing is 0 behind every step up to the end of the data,
 *     where the file has one, but for a reference record of model 431 without a level offset behind
 *     it.
 *   - QvFileOffset never goes back. A step that has not moved it will never move it: an item 2 or 6
 *     that its mode knows no record for, a tally item without its kind byte, a list whose blocks
 *     have no length, and every status that ends a walk but QV_END_OF_DATA. A host stops there.
 *   - A stream and a list move on behind the end of the file, step by step, with all bytes missing
 *     that they move by. A host stops there, too. All other items end where the file does, and the
 *     next step fails with QV_BAD_LENGTH and bytes missing; without any missing the item is too
 *     long.
 *   - Behind a 0 byte, the end of the data, one can step on: the next step opens the file anew and
 *     reads the byte behind it, by the same rules. Most files end there, and the step gives
 *     QV_BAD_LENGTH.
 *   - A walk under these rules makes no more steps than the file has bytes, and one more; how far
 *     it has come is QvFileOffset by the size of the file, and no more than all of it.
 *
 * QvWalkNext in qvslm_walk.h goes by them.
 */
QV_EXPORT int32_t QV_CALL QV_TranslateNextRec(void* record, void* context);

/**
 * The head of a context. It is valid behind QV_StartTranslate and QV_TranslateNextRec. Behind a
 * start the bytes missing tell, with a number above 0, that the text header ends with the file, or
 * on model 442 the level offset: what is translated then may differ from what the whole file would
 * give.
 */
static inline QvContextHead QvReadHead(const void* context) {
  QvContextHead head;
  memcpy(&head, context, sizeof head);
  return head;
}

/** Where in the file the next step begins to read. */
static inline int32_t QvFileOffset(const void* context) {
  return QvReadHead(context).FileOffset;
}

/** How many bytes the last step used that the file does not have; 0 for a whole step. */
static inline uint32_t QvBytesMissing(const void* context) {
  return QvReadHead(context).BytesMissing;
}

/** The measurement mode that the library took from the file. In mode 4 code 1 is QvBandInterval. */
static inline int32_t QvMode(const void* context) {
  return QvReadHead(context).Mode;
}

/**
 * Closes the file of the context that was named last to any call, if it is open. Without such a
 * context it does nothing. The context must still exist.
 */
QV_EXPORT void QV_CALL QV_StopTranslate(void);

/**
 * Reads the text lines at the head of a file, and closes it again. Fills model, mode, firmware
 * version and header time of the context. Not to be given the context of a translation in progress.
 *
 * path     as for QV_StartTranslate.
 * context  zeroed, or used for another file before.
 * info     takes the lines; may be null.
 *
 * QV_OK              the header was read.
 * QV_CANNOT_OPEN     the file cannot be opened.
 * QV_NO_ARGUMENT     context is null; nothing was done.
 * QV_SEEK_FAILED     there is no first line, or one that no data file begins with.
 * QV_NO_TEXT_HEADER  the settings form; title lines are filled in.
 */
QV_EXPORT int32_t QV_CALL QV_ReadFileHeader(const char* path, void* context,
                                            QvFileHeaderInfo* info);

/**
 * Looks up what instrument wrote a file, without translating it. Opens and closes the file.
 *
 * path      as for QV_StartTranslate.
 * context   zeroed, or used for another file before; not that of a translation in progress.
 * model     takes the model number; 486 when the file does not tell.
 * serial    takes the serial number as a text; a buffer of 81 bytes.
 * firmware  takes the firmware version; -1.0 when the file does not tell.
 *
 * Null pointers behind the context are passed over. QV_CANNOT_OPEN leaves the out-arguments
 * untouched.
 *
 * QV_OK              the serial number was found.
 * QV_CANNOT_OPEN     the file cannot be opened.
 * QV_NO_ARGUMENT     context is null; nothing was done.
 * QV_NOT_FOUND       the file ended on the way.
 * QV_NO_TEXT_HEADER  the serial number is empty.
 */
QV_EXPORT int32_t QV_CALL QV_ReadFileSN(const char* path, void* context, uint16_t* model,
                                        char* serial, float* firmware);

/**
 * Looks up how many sites a file holds: register 157 of its first 'Q' line with that number. Opens
 * and closes the file.
 *
 * path, context  as for QV_ReadFileSN.
 * count          takes the number; 0 with every failure but QV_NO_ARGUMENT. May be null.
 *
 * QV_OK              the number was found.
 * QV_CANNOT_OPEN     the file cannot be opened.
 * QV_NO_ARGUMENT     context is null; nothing was done.
 * QV_NO_TEXT_HEADER  there is no such line, or its number is below 1.
 */
QV_EXPORT int32_t QV_CALL QV_ReadSiteNum(const char* path, void* context, int16_t* count);

/**
 * Seconds of a date and a time of day in text, by the host's time zone.
 *
 * date    by format:
 *           0, 1  "ddMmmyyyy" or "ddMmm yy"
 *           2, 4  "mm/dd/yy" or "mm/dd/yyyy", with any separator
 *           3     "dd/mm/yy" or "dd/mm/yyyy", with any separator
 *           5     "ddMmm", the most recent past one
 *         Years before 70 lie behind 2000. A null date is an empty text.
 * time    "hh:mm:ss"; null is midnight.
 *
 * Returns seconds since 1970-01-01 00:00 UTC; 0 when the date cannot be converted or the format is
 * none of these. A stamp in the hour that a clock change repeats is standard time.
 */
QV_EXPORT uint32_t QV_CALL TX_DateToSecs(const char* date, const char* time, int16_t format);

/**
 * The date and the time of day in text, in standard time of the host's zone also in summer.
 *
 * seconds  points to seconds since 1970-01-01 00:00 UTC; a negative value counts as 0.
 * date     takes up to 16 bytes; by format:
 *            0  "ddMmmyyyy"
 *            1  "ddMmm yy"
 *            2  "mm/dd/yy"
 *            3  "dd/mm/yy"
 *            4  "mm-dd-yyyy"
 *            5  "yyyy-mm-dd", and so with every other number
 *            6  "Day, mm/dd/yyyy"
 * time     takes 9 bytes: "hh:mm:ss".
 * format   see date.
 *
 * A null date or time is passed over; null seconds do nothing.
 */
QV_EXPORT void QV_CALL TX_SecsToDate(const int32_t* seconds, char* date, char* time,
                                     int16_t format);

#ifdef __cplusplus
}
#endif

#endif
