#include "fields/zone_table.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "api/front_end/qvslm_zone.h"
#include "fields/local_stamp.h"
#include "fields/local_years.h"

namespace qvslm {

namespace {

// The caller's table, not copied; null: the C library's zone.
struct ZoneTable {
  const QvZoneChange* changes = nullptr;
  size_t count = 0;
  i64 lastBack = 0;  // by so much the answer before lies behind its stamp as a clock of UTC has it
};
ZoneTable table;

// The change that an instant goes by. All time before the second one belongs to the first.
const QvZoneChange& ChangeAt(i64 seconds) {
  const QvZoneChange* const end = table.changes + table.count;
  const QvZoneChange* const next = std::upper_bound(
      table.changes + 1, end, seconds,
      [](i64 instant, const QvZoneChange& change) { return instant < change.From; });
  return *(next - 1);
}

// An instant as the clock of the zone shows it.
struct Shown {
  i64 seconds;
  i64 local;
  bool daylight;
};

constexpr i64 kFirstShown = DaysBeforeYear(std::numeric_limits<i32>::min()) * kSecondsOfDay;
constexpr i64 kBehindShown =
    DaysBeforeYear(i64{std::numeric_limits<i32>::max()} + 1) * kSecondsOfDay;
constexpr i64 kFar = i64{1} << 60;  // beyond all years that are shown

// Nothing where 32 bits do not hold the year.
std::optional<Shown> Show(i64 seconds) {
  const QvZoneChange& change = ChangeAt(seconds);
  i64 const local = std::clamp(seconds, -kFar, kFar) + change.Offset;
  if (local < kFirstShown || local >= kBehindShown) return {};
  return Shown{seconds, local, change.Daylight != 0};
}

// The instant at which the clock shows a local time, whatever the flag is then. The first guess is
// that nothing has changed since the last question, and each one after it is moved by what the one
// before it was off. So of an hour that comes twice with one flag it is the one on the side of the
// stamp before.
//
// In an hour that the zone skips the guesses come to swing between two instants, one as far before
// the hour asked for as the other is behind it. Then it is the one that has the other flag than the
// one asked for; nothing where both have the same.
std::optional<Shown> FindClock(i64 local, bool daylight) {
  constexpr int kMostGuesses = 6;
  i64 guess = local + table.lastBack;
  i64 before = guess;
  i64 beforeThat = guess;
  for (int guesses = 0; guesses < kMostGuesses; ++guesses) {
    std::optional<Shown> const shown = Show(guess);
    if (!shown || shown->local == local) return shown;
    bool const swings = guess == beforeThat && guess != before;
    if (swings && shown->daylight != daylight) return shown;
    beforeThat = before;
    before = guess;
    guess += local - shown->local;
  }
  return {};
}

// A local time that the zone has with the other flag alone is read by the offset of a time near it
// that has the flag. A zone that has none within seven years or so takes an hour for the difference.
std::optional<Shown> FindWithFlag(const Shown& shown, bool daylight) {
  constexpr i64 kStride = 601200;  // no longer than the shortest daylight time of any zone
  constexpr i64 kStrides = 381;
  for (i64 distance = kStride; distance <= kStrides * kStride; distance += kStride) {
    for (i64 const seconds : {shown.seconds - distance, shown.seconds + distance}) {
      std::optional<Shown> const near = Show(seconds);
      if (!near) return {};
      if (near->daylight == daylight) return Show(seconds + shown.local - near->local);
    }
  }
  return Show(shown.seconds + (daylight ? -kSecondsOfHour : kSecondsOfHour));
}

}  // namespace

bool ZoneIsTable() {
  return table.changes != nullptr;
}

void ForgetLastAnswer() {
  table.lastBack = 0;
}

bool AskTable(Calendar& calendar, i32 flag, i64& seconds) {
  bool const daylight = flag != 0;
  // Seconds out of range are added to the instant of the rest.
  Calendar inMinute = calendar;
  inMinute.Second = std::clamp(calendar.Second, 0, 59);
  i64 const local = LocalCount(inMinute);
  std::optional<Shown> shown = FindClock(local, daylight);
  if (shown && shown->local == local && shown->daylight != daylight)
    shown = FindWithFlag(*shown, daylight);
  if (shown) {
    table.lastBack = shown->seconds - local;
    shown = Show(shown->seconds + calendar.Second - inMinute.Second);
  }
  if (!shown) {
    seconds = -1;
    calendar.WeekDay = calendar.YearDay = 0;
    calendar.DaylightFlag = flag;
    return false;
  }
  seconds = shown->seconds;
  calendar = StampOf(shown->local, shown->daylight ? 1 : 0);
  return true;
}

Calendar TableCalendar(i64 seconds) {
  std::optional<Shown> const shown = Show(seconds);
  return shown ? StampOf(shown->local, shown->daylight ? 1 : 0) : ClearedCalendar();
}

}  // namespace qvslm

void QvUseZone(const QvZoneChange* changes, size_t count) {
  bool const given = changes != nullptr && count > 0;
  qvslm::table = given ? qvslm::ZoneTable{changes, count} : qvslm::ZoneTable{};
  qvslm::ForgetLocalTime();
}
