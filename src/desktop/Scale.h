// From twips to pixels by the font in use: what holds a text in one font holds it in any.
#pragma once

#include <QFont>
#include <QRect>
#include <algorithm>

#include "forms/Control.h"

namespace tessarine::desktop {

// What the places are designed for: a line of text is this high.
inline constexpr int kTwipsPerLine = 160;

// How far apart the lines of a text that wraps are set, in pixels.
[[nodiscard]] int lineHeight(const QFont& font);

class Scale {
 public:
  explicit Scale(const QFont& font);

  [[nodiscard]] double x() const { return x_; }  // pixels per twip
  [[nodiscard]] double y() const { return y_; }
  [[nodiscard]] QRect toPixels(const forms::Twips& place) const;

  // Enlarges it where a form's texts need more than the font tells: at least these pixels per twip.
  void growTo(double x, double y) {
    x_ = std::max(x_, x);
    y_ = std::max(y_, y);
  }

 private:
  double x_ = 0;
  double y_ = 0;
};

// Screen positions are no matter of the font: 15 twips are a pixel at 96 dots per inch.
[[nodiscard]] int pixelsOnScreen(int twips);
[[nodiscard]] int twipsOnScreen(int pixels);

}  // namespace tessarine::desktop
