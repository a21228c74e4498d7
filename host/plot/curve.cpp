#include "plot/curve.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

// Two for each column of a wide picture.
constexpr std::size_t mostSlots = 4000;

}  // namespace

void Curve::AddSpan(double from, double to, double value) {
  // Times are whole seconds where lengths are not.
  double const slack = 1 + (to - from) / 2;
  if (!Empty() && std::abs(from - end_) > slack) EndRun();
  AddPoint({from, value});
  if (to > from) AddPoint({to, value});
  end_ = to;
}

void Curve::AddMoment(double time, double value) {
  AddPoint({time, value});
}

double Curve::First() const {
  return slots_.begin()->second.first.time;
}

double Curve::Last() const {
  return slots_.rbegin()->second.last.time;
}

std::vector<std::vector<CurvePoint>> Curve::Runs() const {
  std::vector<std::vector<CurvePoint>> runs(1);
  for (const auto& [number, slot] : slots_) {
    std::vector<CurvePoint>& run = runs.back();
    bool const lowFirst = slot.low.time <= slot.high.time;
    for (const CurvePoint& point : {slot.first, lowFirst ? slot.low : slot.high,
                                    lowFirst ? slot.high : slot.low, slot.last}) {
      bool const isNew =
          run.empty() || run.back().time != point.time || run.back().value != point.value;
      if (isNew) run.push_back(point);
    }
    if (slot.endsRun) runs.emplace_back();
  }
  return runs;
}

void Curve::AddPoint(const CurvePoint& point) {
  auto const number = static_cast<std::int64_t>(std::floor(point.time / width_));
  Slot const added = {point, point, point, point};
  auto const [slot, isNew] = slots_.try_emplace(number, added);
  if (!isNew) Join(slot->second, added);
  while (slots_.size() > mostSlots) Widen();
}

void Curve::EndRun() {
  auto const number = static_cast<std::int64_t>(std::floor(end_ / width_));
  auto const slot = slots_.find(number);
  if (slot != slots_.end()) slot->second.endsRun = true;
}

void Curve::Widen() {
  width_ *= 2;
  std::map<std::int64_t, Slot> wider;
  for (const auto& [number, slot] : slots_) {
    std::int64_t const half = number >= 0 ? number / 2 : (number - 1) / 2;
    auto const [place, isNew] = wider.try_emplace(half, slot);
    if (!isNew) Join(place->second, slot);
  }
  slots_ = std::move(wider);
}

void Curve::Join(Slot& slot, const Slot& next) {
  if (next.low.value < slot.low.value) slot.low = next.low;
  if (next.high.value > slot.high.value) slot.high = next.high;
  if (next.first.time < slot.first.time) slot.first = next.first;
  if (next.last.time >= slot.last.time) {
    slot.last = next.last;
    slot.endsRun = next.endsRun;
  }
}

}  // namespace host
