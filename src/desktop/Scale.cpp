#include "desktop/Scale.h"

#include <QFontMetricsF>
#include <QString>
#include <cmath>

namespace tessarine::desktop {

namespace {

// And an average character this wide.
constexpr double kTwipsPerCharacter = 84;
constexpr int kTwipsPerScreenPixel = 15;

int rounded(double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

int lineHeight(const QFont& font) {
  const QFontMetrics metrics(font);
  const auto height = [&](const char* lines) {
    return metrics.boundingRect(QRect(0, 0, 1000, 1000), Qt::TextWordWrap, QString::fromLatin1(lines))
        .height();
  };
  const int one = height("X");
  return std::max(one, height("X\nX") - one);
}

Scale::Scale(const QFont& font) {
  const QFontMetricsF metrics(font);
  const QString sample = QStringLiteral("abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789");
  x_ = metrics.horizontalAdvance(sample) / static_cast<double>(sample.size()) / kTwipsPerCharacter;
  y_ = static_cast<double>(lineHeight(font)) / kTwipsPerLine;
}

QRect Scale::toPixels(const forms::Twips& place) const {
  const QPoint start(rounded(place.Left * x_), rounded(place.Top * y_));
  const QPoint end(rounded((place.Left + place.Width) * x_), rounded((place.Top + place.Height) * y_));
  return {start, QSize(end.x() - start.x(), end.y() - start.y())};
}

int pixelsOnScreen(int twips) { return rounded(static_cast<double>(twips) / kTwipsPerScreenPixel); }

int twipsOnScreen(int pixels) { return pixels * kTwipsPerScreenPixel; }

}  // namespace tessarine::desktop
