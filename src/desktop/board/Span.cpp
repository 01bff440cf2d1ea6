#include "desktop/board/Span.h"

#include <algorithm>

namespace tessarine::desktop {

void Span::setLimits(double low, double high) {
  low_ = low;
  high_ = std::max(high, low + shortest_);
  settle();
}

void Span::showAll() {
  mode_ = Mode::all;
  settle();
}

void Span::followLast(double length) {
  mode_ = Mode::last;
  last_ = std::max(length, shortest_);
  settle();
}

void Span::show(double from, double to) {
  mode_ = Mode::fixed;
  from_ = from;
  to_ = std::max(to, from + shortest_);
  settle();
}

void Span::zoom(double factor, double about) {
  const double wanted = std::max(length() * factor, shortest_);
  if (wanted >= high_ - low_) {
    showAll();
    return;
  }
  const double from = about - (about - from_) * wanted / length();
  show(from, from + wanted);
}

void Span::move(double by) {
  if (mode_ != Mode::all) show(from_ + by, to_ + by);
}

void Span::settle() {
  if (mode_ == Mode::all) {
    from_ = low_;
    to_ = high_;
  } else if (mode_ == Mode::last) {
    from_ = std::max(low_, high_ - last_);
    to_ = high_;
  } else {
    const double length = std::min(to_ - from_, high_ - low_);
    from_ = std::clamp(from_, low_, high_ - length);
    to_ = from_ + length;
  }
}

}  // namespace tessarine::desktop
