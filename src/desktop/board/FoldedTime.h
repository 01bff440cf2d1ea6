// Time with its long silences folded, so that bits of microseconds and waits of milliseconds fit one picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessarine::desktop {

class FoldedTime {
 public:
  // A silence that takes less room than it took time. Places count microseconds of what is not folded.
  struct Fold {
    double from = 0;
    double to = 0;
    std::int64_t silence = 0;  // microseconds
  };

  FoldedTime() : FoldedTime({}, false) {}
  // `times` rise. With `fold`, a silence far longer than the usual one between two of them is folded.
  FoldedTime(std::span<const std::int64_t> times, bool fold);

  [[nodiscard]] double place(std::int64_t time) const;
  [[nodiscard]] double time(double place) const;
  [[nodiscard]] double length() const { return knots_.back().place; }
  [[nodiscard]] const std::vector<Fold>& folds() const { return folds_; }

 private:
  // Between two knots time and place run evenly; beyond the ends, at the same pace.
  struct Knot {
    double time = 0;
    double place = 0;
  };
  std::vector<Knot> knots_;
  std::vector<Fold> folds_;
};

}  // namespace tessarine::desktop
