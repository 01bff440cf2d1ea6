// Labels: texts that are read, and texts that are clicked.
#include <QAbstractButton>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/ControlWidget.h"
#include "desktop/Fit.h"
#include "desktop/Fonts.h"
#include "desktop/Frames.h"
#include "desktop/Style.h"

namespace tessarine::desktop {

using forms::Aspect;
using forms::Look;

namespace {

constexpr double kCellRadius = 3;
constexpr int kShortestWord = 8;  // bits, from which on they stand in groups of four
constexpr int kGroup = 4;
constexpr int kNameWidth = 6;  // of the longest name in front of a word, "R4_2: "

QColor fromModel(std::uint32_t color) {
  const auto part = [color](unsigned shift) { return static_cast<int>(color >> shift & 0xFFU); };
  return {part(0), part(8), part(16)};
}

// The text that stands out from a ground.
QColor readableOn(const QColor& ground) { return ground.lightness() > 127 ? Qt::black : Qt::white; }

// A register word: its bits in groups of four from the right, behind its name if it has one.
void drawWord(QPainter& painter, const QRectF& area, const QString& text) {
  const QFontMetricsF metrics(painter.font());
  const double character = metrics.horizontalAdvance(QLatin1Char('0'));
  const double gap = character * kWordGap;
  const double top = area.top() + (area.height() - metrics.height()) / 2;
  qsizetype start = text.size();
  while (start > 0 && (text[start - 1] == QLatin1Char('0') || text[start - 1] == QLatin1Char('1'))) --start;
  const qsizetype bits = text.size() - start;
  if (bits < kShortestWord) start = text.size();

  double width = 0;
  std::vector<std::pair<double, QString>> pieces{{0, text.left(start)}};
  // Rows of words stand in one column, however long their names are.
  if (start > 0) width = static_cast<double>(std::max<qsizetype>(start, kNameWidth)) * character;
  for (qsizetype at = start; at < text.size();) {
    const qsizetype left = text.size() - at;
    const qsizetype size = left % kGroup == 0 ? kGroup : left % kGroup;
    pieces.emplace_back(width, text.mid(at, size));
    at += size;
    width += static_cast<double>(size) * character + (at < text.size() ? gap : 0);
  }
  // Words without a name in front end under one LSB mark.
  const double x = start == 0 || start == text.size() ? area.right() - width : area.left();
  for (const auto& [offset, piece] : pieces) {
    painter.drawText(QPointF(x + offset, top + metrics.ascent()), piece);
  }
}

// A label that is read. It may have a click handler all the same: a bit that cannot be flipped has.
class ReadLabel : public QLabel, public ControlWidget {
 public:
  ReadLabel(forms::Label& label, QWidget& parent, Hands& hands)
      : QLabel(&parent), label_(label), hands_(hands) {
    setTextFormat(Qt::PlainText);
  }

  QWidget& widget() override { return *this; }

  void take(Aspect aspect) override {
    if (aspect == Aspect::Caption) setText(toQt(label_.Caption));
    if (aspect == Aspect::BackColor) update();
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (label_.Click && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
      hands_.click(label_);
    }
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const Tones tones(palette());
    painter.setFont(fontOf(label_.look, font()));
    painter.setPen(isEnabled() || label_.look == Look::fixedBit ? tones.text : tones.muted);
    switch (label_.look) {
      case Look::word:
        drawWord(painter, rect(), text());
        break;
      case Look::lamp:
        drawLamp(painter, tones);
        break;
      case Look::fixedBit:
        painter.setPen(tones.muted);
        painter.drawText(rect(), Qt::AlignCenter, text());
        break;
      default:
        drawText(painter, tones);
    }
  }

 private:
  void drawLamp(QPainter& painter, const Tones& tones) {
    const auto& color = label_.BackColor.get();
    const QColor ground = color ? fromModel(*color) : tones.card;
    drawBox(painter, rect(), kCellRadius + 1, ground, tones.border);
    painter.setPen(readableOn(ground));
    painter.drawText(rect(), Qt::AlignCenter, text().trimmed());
  }

  void drawText(QPainter& painter, const Tones& tones) {
    const QFontMetrics metrics = painter.fontMetrics();
    const bool caption = label_.look == Look::caption;
    if (caption) painter.setPen(tones.muted);
    const bool manyLines = wraps(label_);
    const int across = caption ? Qt::AlignHCenter : Qt::AlignLeft;
    const int down = manyLines ? Qt::AlignTop : Qt::AlignVCenter;
    QString shown = caption ? text().trimmed() : text();
    if (!manyLines && metrics.horizontalAdvance(shown.trimmed()) > width()) {
      shown = metrics.elidedText(shown, Qt::ElideMiddle, width());
    }
    setElided(shown != text() && !caption);
    painter.drawText(rect(), across | down | (manyLines ? Qt::TextWordWrap : Qt::TextSingleLine), shown);
  }

  // What does not fit is told by the tool tip, unless the label has one of its own.
  void setElided(bool elided) {
    if (label_.ToolTip.get().empty() && elided != !toolTip().isEmpty()) {
      setToolTip(elided ? text() : QString());
    }
  }

  forms::Label& label_;
  Hands& hands_;
};

// A label that is clicked: a bit that flips, or a text that acts like a small button.
class ClickLabel : public QAbstractButton, public ControlWidget {
 public:
  ClickLabel(forms::Label& label, QWidget& parent, Hands& hands) : QAbstractButton(&parent), label_(label) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_OpaquePaintEvent);  // a flip paints the cell, and not the panel beneath
    connect(this, &QAbstractButton::clicked, this, [this, &hands] { hands.click(label_); });
  }

  QWidget& widget() override { return *this; }

  void take(Aspect aspect) override {
    if (aspect == Aspect::Caption) update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const Tones tones(palette());
    painter.fillRect(rect(), groundOf(*parentWidget()));
    painter.setFont(fontOf(label_.look, font()));
    const QString caption = toQt(label_.Caption);
    const bool set = label_.look == Look::bit && caption == QLatin1String("1");
    const bool hovered = isEnabled() && (underMouse() || isDown());
    QColor ground = palette().color(set ? QPalette::Base : QPalette::Button);
    if (set) ground = tones.tint;
    if (hovered) ground = tones.shade;
    drawBox(painter, rect(), kCellRadius, ground, set ? tones.accent : tones.border);
    if (hasFocus()) drawFocus(painter, rect(), kCellRadius, tones.accent);
    painter.setPen(isEnabled() ? tones.text : tones.muted);
    painter.drawText(rect(), Qt::AlignCenter, caption.trimmed());
  }

 private:
  forms::Label& label_;
};

}  // namespace

std::unique_ptr<ControlWidget> makeLabel(forms::Label& label, QWidget& parent, Hands& hands) {
  const bool clicked = label.Click && label.look != Look::fixedBit;
  if (clicked) return std::make_unique<ClickLabel>(label, parent, hands);
  return std::make_unique<ReadLabel>(label, parent, hands);
}

}  // namespace tessarine::desktop
