#include "desktop/board/FrequencyPlot.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "desktop/Style.h"
#include "desktop/board/Signs.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

using board::FrequencyPoint;

constexpr double kShortestSpan = 10;  // microseconds
constexpr double kLeastRangeMHz = 1e-6;
constexpr double kMicroseconds = 1e6;  // in a second
constexpr double kStrip = 6;           // height of the lock strip
constexpr double kMostLines = 20;      // of the grid, across

// What is shown of a frequency that does not move, in MHz.
double leastRange(double megahertz) { return std::max(kLeastRangeMHz, megahertz * 1e-6); }

// What one column of pixels has to show.
struct Column {
  double low = 0;
  double high = 0;
  bool any = false;
  bool locked = true;

  void take(const FrequencyPoint& point) {
    locked = locked && point.locked;
    if (point.outputMHz == 0) return;
    low = any ? std::min(low, point.outputMHz) : point.outputMHz;
    high = any ? std::max(high, point.outputMHz) : point.outputMHz;
    any = true;
  }
};

// Fills columns of pixels; equal neighbours in one go.
class Columns {
 public:
  explicit Columns(QPainter& painter) : painter_(painter) {}
  ~Columns() { flush(); }
  Columns(const Columns&) = delete;
  Columns& operator=(const Columns&) = delete;

  void add(const QRectF& column, const QColor& color) {
    const bool same = column.left() == run_.right() && column.top() == run_.top() &&
                      column.bottom() == run_.bottom() && color == color_;
    if (same) {
      run_.setRight(column.right());
      return;
    }
    flush();
    run_ = column;
    color_ = color;
  }

 private:
  void flush() { painter_.fillRect(run_, color_); }

  QPainter& painter_;
  QRectF run_;
  QColor color_;
};

}  // namespace

FrequencyPlot::FrequencyPlot(const board::EvaluationBoard& board) : PlotWidget(kShortestSpan), board_(board) {
  setAccessibleName(QStringLiteral("Output frequency over time"));
}

void FrequencyPlot::refresh() {
  const double first = history().empty() ? 0 : static_cast<double>(history()[0].time);
  const double last = lastTime();
  span().setLimits(first, last + std::max(kShortestSpan, (last - first) * 0.01));
  highest_ = history().empty() ? 0 : std::max(highest_, scale().high);
  update();
  if (onCursor) onCursor();
}

// Of the last write, or of a fault or another chip behind it.
double FrequencyPlot::lastTime() const {
  const std::int64_t change = history().empty() ? 0 : history()[history().size() - 1].time;
  return static_cast<double>(std::max(board_.lastWrite(), change));
}

std::size_t FrequencyPlot::countUntil(double time) const {
  return history().countWhile(
      [time](const FrequencyPoint& point) { return static_cast<double>(point.time) <= time; });
}

QString FrequencyPlot::cursorText() const {
  if (!cursor()) return {};
  const std::size_t count = countUntil(*cursor());
  if (count == 0) return {};
  const FrequencyPoint& point = history()[count - 1];
  return QStringLiteral("%1   %2   %3")
      .arg(timeText(*cursor()),
           point.outputMHz == 0 ? QStringLiteral("no output") : megahertzText(point.outputMHz),
           point.locked ? QStringLiteral("locked") : QStringLiteral("not locked"));
}

std::optional<double> FrequencyPlot::nextChange(double place, int direction) const {
  const std::size_t count = countUntil(place);
  if (direction > 0)
    return count < history().size() ? std::optional(static_cast<double>(history()[count].time))
                                    : std::nullopt;
  // From within a step to its beginning, from there to the one before.
  for (std::size_t index = count; index > 0; --index) {
    const double time = static_cast<double>(history()[index - 1].time);
    if (time < place) return time;
  }
  return {};
}

QRectF FrequencyPlot::area() const {
  const double line = fontMetrics().height();
  // For the longest label that any stretch of this height can have.
  const double finest = niceStep(leastRange(highest_), kMostLines);
  const double gutter = fontMetrics().horizontalAdvance(tickText(highest_, finest)) + 16;
  return QRectF(rect()).adjusted(gutter, line * 1.6, -line * 1.2, -(line * 1.8 + kStrip));
}

QRectF FrequencyPlot::lockStrip() const {
  const QRectF box = area();
  return {box.left(), box.bottom() + 3, box.width(), kStrip};
}

double FrequencyPlot::Scale::y(double megahertz) const {
  return box.bottom() - (megahertz - low) / (high - low) * box.height();
}

// As high as what is seen, with some air.
FrequencyPlot::Scale FrequencyPlot::scale() const {
  Column seen;
  const std::size_t end = countUntil(span().to());
  for (std::size_t index = std::max<std::size_t>(countUntil(span().from()), 1) - 1; index < end; ++index)
    seen.take(history()[index]);
  const double range = std::max(seen.high - seen.low, leastRange(seen.high));
  return {seen.low - 0.1 * range, seen.high + 0.1 * range, area()};
}

void FrequencyPlot::draw(QPainter& painter) const {
  const Tones tones(palette());
  if (history().empty()) {
    painter.setPen(tones.muted);
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("No output frequency yet"));
    return;
  }
  const Scale scale = this->scale();
  drawGrid(painter, scale);
  drawCurve(painter, scale);
  drawCursor(painter, scale);
}

void FrequencyPlot::drawGrid(QPainter& painter, const Scale& scale) const {
  const Tones tones(palette());
  const double line = fontMetrics().height();
  const auto grid = [](double value) { return std::floor(value) + 0.5; };
  painter.setPen(tones.muted);
  painter.drawText(QPointF(10, line * 1.1), QStringLiteral("MHz"));

  const double step =
      niceStep(scale.high - scale.low, std::min(kMostLines, scale.box.height() / (line * 2.2)));
  for (double value = std::ceil(scale.low / step) * step; value <= scale.high; value += step) {
    const double y = grid(scale.y(value));
    painter.setPen(QPen(tones.edge, 1));
    painter.drawLine(QPointF(scale.box.left(), y), QPointF(scale.box.right(), y));
    painter.setPen(tones.muted);
    painter.drawText(QRectF(0, y - line, scale.box.left() - 6, 2 * line), Qt::AlignRight | Qt::AlignVCenter,
                     tickText(value, step));
  }

  const double from = span().from() / kMicroseconds;
  const double to = span().to() / kMicroseconds;
  const double label = fontMetrics().horizontalAdvance(QStringLiteral("00000.000 s")) * 1.3;
  const double second = niceStep(to - from, scale.box.width() / label);
  for (double value = std::ceil(from / second) * second; value <= to; value += second) {
    const double x = grid(xOf(value * kMicroseconds));
    painter.setPen(QPen(tones.edge, 1));
    painter.drawLine(QPointF(x, scale.box.top()), QPointF(x, scale.box.bottom()));
    painter.setPen(tones.muted);
    const QString text = tickText(value, second) + QStringLiteral(" s");
    const double wide = fontMetrics().horizontalAdvance(text) + 2;
    const double left = std::min(x - wide / 2, width() - wide - 2);
    painter.drawText(QRectF(left, lockStrip().bottom() + 2, wide, line), Qt::AlignCenter, text);
  }
}

void FrequencyPlot::drawCurve(QPainter& painter, const Scale& scale) const {
  const Signs signs(palette());
  const Tones tones(palette());
  const QRectF strip = lockStrip();
  const double pixel = 1 / devicePixelRatioF();
  const double stroke = std::max(1.0, std::round(1.5 / pixel)) * pixel;
  const double end = std::min(scale.box.right(), xOf(lastTime()) + pixel);
  std::size_t next = countUntil(span().from());
  std::optional<FrequencyPoint> current;
  if (next > 0) current = history()[next - 1];
  Columns curve(painter);
  Columns lock(painter);
  for (double x = scale.box.left(); x < end; x += pixel) {
    Column column;
    if (current) column.take(*current);
    const double time = placeAt(x + pixel);
    while (next < history().size() && static_cast<double>(history()[next].time) < time) {
      current = history()[next++];
      column.take(*current);
    }
    if (!current) continue;
    lock.add({QPointF(x, strip.top()), QPointF(x + pixel, strip.bottom())},
             column.locked ? signs.good : signs.bad);
    if (!column.any) continue;
    const double top = scale.y(column.high) - stroke / 2;
    const double bottom = scale.y(column.low) + stroke / 2;
    curve.add({QPointF(x, top), QPointF(x + pixel, bottom)}, column.locked ? tones.accent : signs.bad);
  }
}

void FrequencyPlot::drawCursor(QPainter& painter, const Scale& scale) const {
  if (!cursor()) return;
  const Tones tones(palette());
  const double x = std::floor(xOf(*cursor())) + 0.5;
  if (x < scale.box.left() || x > scale.box.right()) return;
  painter.setPen(QPen(tones.text, 1));
  painter.drawLine(QPointF(x, scale.box.top()), QPointF(x, scale.box.bottom()));
  const std::size_t count = countUntil(*cursor());
  if (count == 0 || history()[count - 1].outputMHz == 0) return;
  painter.setBrush(tones.text);
  painter.drawEllipse(QPointF(x, scale.y(history()[count - 1].outputMHz)), 3, 3);
  painter.setBrush(Qt::NoBrush);
}

}  // namespace tessarine::desktop
