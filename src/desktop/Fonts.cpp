#include "desktop/Fonts.h"

#include <QFontDatabase>
#include <QStringList>
#include <cmath>

namespace tessarine::desktop {

namespace {

constexpr double kWordSize = 1.1;
constexpr double kBannerSize = 2.6;

QFont enlarged(QFont font, double factor) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * factor)));
  }
  return font;
}

QFont bold(QFont font) {
  font.setWeight(QFont::DemiBold);
  return font;
}

QFont fixedWidth(const QFont& base) {
  static const QString family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
  QFont font = base;
  font.setFamilies(QStringList{family});
  font.setStyleHint(QFont::Monospace);
  return font;
}

}  // namespace

QFont fontOf(forms::Look look, const QFont& base) {
  switch (look) {
    case forms::Look::heading:
      return bold(base);
    case forms::Look::word:
      return enlarged(fixedWidth(base), kWordSize);
    case forms::Look::bit:
    case forms::Look::fixedBit:
      return fixedWidth(base);
    default:
      return base;
  }
}

QFont frameTitleFont(const QFont& base) { return bold(base); }

QFont bannerFont(const QFont& base) { return bold(enlarged(base, kBannerSize)); }

}  // namespace tessarine::desktop
