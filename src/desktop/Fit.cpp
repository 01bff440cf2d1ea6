#include "desktop/Fit.h"

#include <QFontMetrics>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <string>

#include "desktop/Fonts.h"
#include "forms/Controls.h"

namespace tessarine::desktop {

using forms::Kind;
using forms::Look;

namespace {

// A text that came at run time, a path for one, may be of any length: no window grows without end for it.
constexpr double kMostGrowth = 1.5;

// What stands around a text, in pixels.
constexpr int kCell = 6;
constexpr int kField = 10;
constexpr int kArrow = 24;
constexpr int kButton = 14;
constexpr int kAround = 4;

QString shownText(const std::string& text) { return QString::fromStdString(text).trimmed(); }

// The narrowest a text can be that wraps into so many lines.
int widthInLines(const QFont& font, const QString& text, int lines) {
  const QFontMetrics metrics(font);
  int narrow = 0;
  for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    narrow = std::max(narrow, metrics.horizontalAdvance(word));
  }
  const int wide = metrics.horizontalAdvance(text);
  const auto fits = [&](int width) {
    const QRect paper(0, 0, width, lineHeight(font) * (lines + 1));
    return metrics.boundingRect(paper, Qt::TextWordWrap, text).height() <= lineHeight(font) * lines;
  };
  while (narrow < wide && !fits(narrow)) narrow += metrics.averageCharWidth();
  return std::min(narrow, wide);
}

QSize labelSize(const forms::Label& label, const QFont& base) {
  const QFont font = fontOf(label.look, base);
  const QFontMetrics metrics(font);
  const QString text = shownText(label.Caption);
  const QSize line(metrics.horizontalAdvance(text), metrics.height());
  switch (label.look) {
    case Look::bit:
    case Look::fixedBit:
    case Look::clickable:
    case Look::lamp:
      return line + QSize(kCell, kAround);
    case Look::word:
      return {line.width() + qRound(kWordGap * static_cast<double>(line.width()) / 4), line.height()};
    default:
      break;
  }
  if (!wraps(label)) return line;
  return {widthInLines(font, text, label.Place.get().Height / kTwipsPerLine), line.height()};
}

int widestItem(const forms::ListControl& list, const QFontMetrics& metrics) {
  int width = 0;
  for (const std::string& item : list.List.get()) {
    width = std::max(width, metrics.horizontalAdvance(QString::fromStdString(item)));
  }
  return width;
}

}  // namespace

QSize neededSize(const forms::Control& control, const QFont& font) {
  const QFontMetrics metrics(font);
  const QString text = shownText(control.value());
  const int width = metrics.horizontalAdvance(text);
  const int line = metrics.height();
  switch (control.kind()) {
    case Kind::Label:
      return labelSize(static_cast<const forms::Label&>(control), font);
    case Kind::TextBox:
      return {kField, line + kAround};
    case Kind::ComboBox:
    case Kind::DropList:
      return {widestItem(static_cast<const forms::ListControl&>(control), metrics) + kField + kArrow,
              line + kAround};
    case Kind::CheckBox:
    case Kind::OptionButton:
      return {metrics.horizontalAdvance(shownText(control.captionProperty()->get())) + line + 2 * kAround,
              line};
    case Kind::CommandButton:
      return {width + kButton, line + kAround};
    case Kind::Frame:
      return {QFontMetrics(frameTitleFont(font)).horizontalAdvance(text) + 2 * line, 0};
    default:
      return {};
  }
}

bool wraps(const forms::Label& label) { return label.Place.get().Height >= 2 * kTwipsPerLine; }

Scale fittingScale(const forms::Form& form, const QFont& font) {
  Scale scale(font);
  double growX = 1;
  double growY = 1;
  for (const forms::Control* control : form.controls()) {
    const QSize room = scale.toPixels(control->Place).size();
    // A panel that is folded away, and a menu, take no room.
    if (room.width() <= 1 || room.height() <= 1) continue;
    const QSize needed = neededSize(*control, font);
    growX = std::max(growX, static_cast<double>(needed.width()) / room.width());
    growY = std::max(growY, static_cast<double>(needed.height()) / room.height());
  }
  scale.growTo(scale.x() * std::min(growX, kMostGrowth), scale.y() * std::min(growY, kMostGrowth));
  return scale;
}

QSize contentSize(const forms::Form& form, const Scale& scale) {
  const forms::Twips place = form.Place;
  return scale.toPixels({0, 0, place.Width, place.Height}).size();
}

}  // namespace tessarine::desktop
