#include "desktop/board/LoopDiagram.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "desktop/Style.h"
#include "desktop/board/Signs.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

// The grid of the diagram: five blocks in the upper row with an arrow between neighbours, and the divider of
// the feedback below.
constexpr int kBlocks = 5;
constexpr double kArrowShare = 0.28;  // of a block's width
constexpr double kBlockLines = 3.6;   // a title, and a value in up to two lines
constexpr const char* kFilter = "Loop filter";

QString dividerText(const board::Tuning& tuning, std::string_view name) {
  for (const board::Tuning::Divider& divider : tuning.dividers) {
    if (divider.name == name) return QStringLiteral("÷ ") + shortText(divider.value);
  }
  return QStringLiteral("÷ ?");
}

QString orNone(std::optional<double> megahertz) {
  return megahertz ? frequencyText(*megahertz) : QStringLiteral("none");
}

// Whole, whatever the room: its unit in a line below, and smaller where that is not enough.
void drawValue(QPainter& painter, const QRectF& room, const QString& value) {
  QFont font = painter.font();
  font.setBold(true);
  const auto widest = [&font](const QStringList& lines) {
    double most = 1;
    for (const QString& line : lines) most = std::max(most, QFontMetricsF(font).horizontalAdvance(line));
    return most;
  };
  QStringList lines{value};
  if (widest(lines) > room.width()) lines = value.split(QLatin1Char(' '));
  if (const double wide = widest(lines); wide > room.width()) {
    font.setPointSizeF(font.pointSizeF() * room.width() / wide * 0.97);  // a hair less: hinting rounds
  }
  painter.setFont(font);
  painter.drawText(room, Qt::AlignCenter, lines.join(QLatin1Char('\n')));
}

void drawArrow(QPainter& painter, const QPointF& from, const QPointF& to) {
  painter.drawLine(from, to);
  const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
  if (length <= 0) return;
  const QPointF along = (to - from) / length * 6;
  const QPointF across(-along.y() * 0.6, along.x() * 0.6);
  painter.setBrush(painter.pen().color());
  painter.drawPolygon(QPolygonF{to, to - along + across, to - along - across});
}

}  // namespace

LoopDiagram::LoopDiagram() {
  setObjectName(QStringLiteral("loopDiagram"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize LoopDiagram::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 90, qRound(fontMetrics().height() * (2 * kBlockLines + 1.6))};
}

// No title is cut.
QSize LoopDiagram::minimumSizeHint() const {
  const int title = fontMetrics().horizontalAdvance(QLatin1String(kFilter)) + 8;
  return {qRound(title * (kBlocks + (kBlocks - 1) * kArrowShare)), sizeHint().height()};
}

void LoopDiagram::take(const board::Tuning& tuning) {
  const Texts texts{
      .reference = tuning.referenceMHz > 0 ? frequencyText(tuning.referenceMHz) : QStringLiteral("none"),
      .r = dividerText(tuning, "R"),
      .detector = orNone(tuning.detectorMHz),
      .n = dividerText(tuning, "N"),
      .output = orNone(tuning.outputMHz),
      .locked = tuning.locked()};
  if (texts == texts_) return;
  texts_ = texts;
  setAccessibleName(QStringLiteral("Loop: reference %1, R %2, detector %3, N %4, output %5")
                        .arg(texts.reference, texts.r, texts.detector, texts.n, texts.output));
  update();
}

void LoopDiagram::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Tones tones(palette());
  const Signs signs(palette());
  const double line = fontMetrics().height();
  const double block = width() / (kBlocks + (kBlocks - 1) * kArrowShare);
  const double high = line * kBlockLines;
  const auto boxOf = [&](int column, double top) {
    return QRectF(column * block * (1 + kArrowShare), top, block, high);
  };
  const auto draw = [&](const QRectF& box, const QString& title, const QString& value, const QColor& edge) {
    drawBox(painter, box, 5, tones.card, edge);
    painter.setPen(tones.muted);
    painter.drawText(box.adjusted(2, line * 0.3, -2, 0), Qt::AlignHCenter | Qt::AlignTop, title);
    painter.setPen(tones.text);
    drawValue(painter, box.adjusted(3, line * 1.3, -3, -line * 0.2), value);
    painter.setFont(font());
  };

  const double upper = 1;
  const double lower = height() - high - 1;
  const QColor loop = texts_.locked ? signs.good : signs.bad;
  draw(boxOf(0, upper), QStringLiteral("Reference"), texts_.reference, tones.edge);
  draw(boxOf(1, upper), QStringLiteral("R divider"), texts_.r, tones.edge);
  draw(boxOf(2, upper), QStringLiteral("Detector"), texts_.detector, loop);
  draw(boxOf(3, upper), QLatin1String(kFilter),
       texts_.locked ? QStringLiteral("settled") : QStringLiteral("not settled"), loop);
  draw(boxOf(4, upper), QStringLiteral("Oscillator"), texts_.output, loop);
  draw(boxOf(3, lower), QStringLiteral("N divider"), texts_.n, loop);

  painter.setPen(QPen(tones.muted, 1.5));
  for (int column = 0; column + 1 < kBlocks; ++column) {
    const double y = boxOf(column, upper).center().y();
    drawArrow(painter, {boxOf(column, upper).right() + 2, y}, {boxOf(column + 1, upper).left() - 2, y});
  }
  // The way back: from the oscillator through the N divider to the detector.
  painter.setPen(QPen(loop, 1.5, texts_.locked ? Qt::SolidLine : Qt::DashLine));
  const QRectF n = boxOf(3, lower);
  const double right = boxOf(4, upper).center().x();
  const double left = boxOf(2, upper).center().x();
  painter.drawLine(QPointF(right, boxOf(4, upper).bottom() + 2), QPointF(right, n.center().y()));
  drawArrow(painter, {right, n.center().y()}, {n.right() + 2, n.center().y()});
  painter.drawLine(QPointF(n.left() - 2, n.center().y()), QPointF(left, n.center().y()));
  drawArrow(painter, {left, n.center().y()}, {left, boxOf(2, upper).bottom() + 3});
}

}  // namespace tessarine::desktop
