/** A time zone of the front end's own, for programs that are linked with the static library.
 *
 * The times of records are local times of the zone of the C library, which the environment names
 * (TZ). A page in a browser has no such zone, and the C library of Windows knows no zone by its
 * name. A front end that has the changes of a zone from elsewhere hands them in, and gets the same
 * bytes of a file as a program on Linux with TZ set to this zone.
 *
 * This header is for what is built with the library from one tree. It is not installed, and the
 * shared library does not export the call.
 */
#ifndef QVSLM_ZONE_H
#define QVSLM_ZONE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** From an instant on, local time is so far ahead of UTC. */
typedef struct QvZoneChange {
  int64_t From;     /* seconds since 1970-01-01 00:00 UTC */
  int32_t Offset;   /* seconds to add to UTC for local time; east of Greenwich above 0 */
  int32_t Daylight; /* 1 where the zone calls this daylight time, else 0 */
} QvZoneChange;

/** Lets all conversions of local time go by these changes, until the next call.
 *
 * changes  in the order of time, each From above the one before it. What the first says holds for
 *          all time before it, too, and what the last says for all time after it: a table that is to
 *          serve files of many years goes on as long as they do. Null, or a count of 0: the C
 *          library's zone again, as before the first call.
 * count    how many.
 *
 * The table is not copied: it must stay as it is until the next call, or for as long as the library
 * is used. An array without order gives wrong times and does no other harm.
 *
 * Takes no memory and cannot fail. Like the other calls it may not run beside another one of this
 * library. Between files it may be called at any time; within a translation the records behind the
 * call have the new zone, while what the census and the start found out had the old one. So: first
 * the zone, then QV_GetRecordCount, then QV_StartTranslate. */
void QvUseZone(const QvZoneChange* changes, size_t count);

#ifdef __cplusplus
}
#endif

#endif
