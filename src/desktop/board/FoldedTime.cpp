#include "desktop/board/FoldedTime.h"

#include <algorithm>
#include <cmath>

namespace tessarine::desktop {

namespace {

// In usual silences between two changes, of which a bit takes two or three.
constexpr double kFoldAbove = 40;
constexpr double kFoldedTo = 16;

double usualSilence(std::span<const std::int64_t> times) {
  std::vector<std::int64_t> silences;
  for (std::size_t index = 1; index < times.size(); ++index)
    silences.push_back(times[index] - times[index - 1]);
  if (silences.empty()) return 1;
  const auto middle = silences.begin() + static_cast<std::ptrdiff_t>(silences.size() / 2);
  std::ranges::nth_element(silences, middle);
  return std::max(1.0, static_cast<double>(*middle));
}

}  // namespace

FoldedTime::FoldedTime(std::span<const std::int64_t> times, bool fold) {
  if (times.empty()) {
    knots_.push_back({});
    return;
  }
  const double usual = usualSilence(times);
  knots_.push_back({static_cast<double>(times.front()), 0});
  for (std::size_t index = 1; index < times.size(); ++index) {
    const std::int64_t silence = times[index] - times[index - 1];
    if (!fold || static_cast<double>(silence) <= kFoldAbove * usual) continue;
    const double before = static_cast<double>(times[index - 1]);
    const double from = knots_.back().place + before - knots_.back().time;
    const double to = from + kFoldedTo * usual;
    knots_.push_back({before, from});
    knots_.push_back({static_cast<double>(times[index]), to});
    folds_.push_back({from, to, silence});
  }
  const double end = static_cast<double>(times.back());
  knots_.push_back({end, knots_.back().place + end - knots_.back().time});
}

double FoldedTime::place(std::int64_t time) const {
  const double at = static_cast<double>(time);
  const auto above = std::ranges::lower_bound(knots_, at, {}, &Knot::time);
  if (above == knots_.begin()) return above->place + at - above->time;
  const Knot& below = *(above - 1);
  if (above == knots_.end()) return below.place + at - below.time;
  return std::lerp(below.place, above->place, (at - below.time) / (above->time - below.time));
}

double FoldedTime::time(double place) const {
  const auto above = std::ranges::lower_bound(knots_, place, {}, &Knot::place);
  if (above == knots_.begin()) return above->time + place - above->place;
  const Knot& below = *(above - 1);
  if (above == knots_.end()) return below.time + place - below.place;
  return std::lerp(below.time, above->time, (place - below.place) / (above->place - below.place));
}

}  // namespace tessarine::desktop
