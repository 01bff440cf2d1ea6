#include "desktop/board/WirePlot.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "board/LoadedWord.h"
#include "desktop/Style.h"
#include "desktop/board/Signs.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

constexpr double kShortestStretch = 8;  // microseconds
// Far less than a microsecond and far more than what places are rounded by.
constexpr double kHair = 1e-4;
constexpr double kLoneBit = 2;  // half the room of a bit without neighbours, in microseconds
constexpr double kScaleBarPixels = 140;
constexpr std::size_t kBitsOfAPart = 32;

// The first of `texts` that fits what is seen of the box; none if even the last is too long.
void drawFitting(QPainter& painter, const QRectF& whole, std::initializer_list<QString> texts) {
  const QFontMetricsF metrics(painter.font());
  const QRectF box = whole.intersected(painter.clipBoundingRect());
  for (const QString& candidate : texts) {
    if (metrics.horizontalAdvance(candidate) + 4 > box.width()) continue;
    painter.drawText(box, Qt::AlignCenter, candidate);
    return;
  }
}

}  // namespace

// From top to bottom: the wires, then under them the bits, their fields and the register that took them.
struct WirePlot::Rows {
  QRectF lanes;
  double lane = 0;  // height of one
  QRectF bits;
  QRectF fields;
  QRectF words;
  QRectF scale;

  [[nodiscard]] double high(std::size_t wire) const {
    return lanes.top() + lane * (static_cast<double>(wire) + 0.25);
  }
  [[nodiscard]] double low(std::size_t wire) const {
    return lanes.top() + lane * (static_cast<double>(wire) + 0.85);
  }
};

struct WirePlot::Pens {
  explicit Pens(const QPalette& palette) : tones(palette), signs(palette) {}
  Tones tones;
  Signs signs;
};

WirePlot::WirePlot() : PlotWidget(kShortestStretch) {
  setAccessibleName(QStringLiteral("Waveforms of CLOCK, DATA and LE"));
}

void WirePlot::take(WireStretch stretch) {
  stretch_ = std::move(stretch);
  refold();
}

void WirePlot::fold(bool on) {
  folds_ = on;
  span().showAll();
  refold();
}

void WirePlot::refold() {
  std::vector<std::int64_t> times;
  for (const auto& change : stretch_.changes) times.push_back(change.time);
  if (!times.empty() && stretch_.end > times.back()) times.push_back(stretch_.end);
  time_ = FoldedTime(times, folds_);
  places_.clear();
  for (const auto& change : stretch_.changes) places_.push_back(time_.place(change.time));
  // A little room, so that the first and the last edge stand off the border.
  const double margin = std::max(1.0, time_.length() * 0.01);
  span().setLimits(-margin, time_.length() + margin);
  update();
  if (onCursor) onCursor();
}

std::optional<std::int64_t> WirePlot::cursorTime() const {
  if (!cursor() || stretch_.empty()) return {};
  return std::llround(std::floor(time_.time(*cursor() + kHair)));
}

QString WirePlot::cursorText() const {
  const auto time = cursorTime();
  if (!time) return {};
  QString line = timeText(static_cast<double>(*time - stretch_.changes.front().time));
  const board::Levels levels = stretch_.levelsAt(*time);
  for (const WireLook& wire : kWires)
    line += QStringLiteral("   %1 %2").arg(QLatin1String(wire.name)).arg(levels.*wire.level ? 1 : 0);
  const QString field = fieldText(*time);
  return field.isEmpty() ? line : line + QStringLiteral("   ") + field;
}

QString WirePlot::fieldText(std::int64_t time) const {
  for (const board::LoadedWord& word : stretch_.words) {
    const board::Register* const spec = stretch_.registerOf(word);
    if (spec == nullptr || word.bitTimes.empty()) continue;
    // A bit's room reaches from the middle between two clock edges to the next middle.
    const double at = time_.place(time);
    const double half = halfBit(word.bitTimes);
    for (const board::FieldSpan& span : board::fieldSpans(word, *spec)) {
      if (at < time_.place(span.firstBit) - half || at >= time_.place(span.lastBit) + half) continue;
      const QString meaning = text(span.field->meaning(word.word));
      return QStringLiteral("%1: %2 = %3").arg(text(spec->name), text(span.field->name)).arg(span.value) +
             (meaning.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(meaning));
    }
  }
  return {};
}

// Half of the usual distance: events that ran in the midst of a word may have pulled two of its bits apart.
double WirePlot::halfBit(const std::vector<std::int64_t>& times) const {
  if (times.size() < 2) return kLoneBit;
  std::vector<double> distances;
  for (std::size_t i = 1; i < times.size(); ++i)
    distances.push_back(time_.place(times[i]) - time_.place(times[i - 1]));
  const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
  std::ranges::nth_element(distances, middle);
  return *middle / 2;
}

std::optional<double> WirePlot::nextChange(double place, int direction) const {
  if (direction > 0) {
    const auto next = std::ranges::upper_bound(places_, place + kHair);
    return next == places_.end() ? std::optional<double>{} : *next;
  }
  const auto next = std::ranges::lower_bound(places_, place - kHair);
  return next == places_.begin() ? std::optional<double>{} : *(next - 1);
}

QRectF WirePlot::area() const {
  const double gutter = fontMetrics().averageCharWidth() * 8 + 22;
  const double pad = fontMetrics().height() * 0.6;
  return QRectF(rect()).adjusted(gutter, pad, -pad, -pad);
}

WirePlot::Rows WirePlot::rows() const {
  const QRectF box = area();
  const double line = fontMetrics().height() * 1.35;
  Rows rows;
  rows.lanes = box.adjusted(0, 0, 0, -4.4 * line);
  rows.lane = std::min(rows.lanes.height() / 3, line * 5);
  rows.lanes.setHeight(rows.lane * 3);
  rows.bits = QRectF(box.left(), rows.lanes.bottom() + line * 0.2, box.width(), line * 0.9);
  rows.fields = QRectF(box.left(), rows.bits.bottom(), box.width(), line);
  rows.words = rows.fields.translated(0, line + 2);
  rows.scale = QRectF(box.left(), box.bottom() - line, box.width(), line);
  return rows;
}

bool WirePlot::shows(double left, double right) const {
  return right >= area().left() && left <= area().right();
}

void WirePlot::draw(QPainter& painter) const {
  const Pens pens(palette());
  const Rows rows = this->rows();
  if (stretch_.empty()) {
    painter.setPen(pens.tones.muted);
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Nothing on the wires yet"));
    return;
  }
  painter.save();
  painter.setClipRect(area().adjusted(-2, -4, 2, 4));
  drawFolds(painter, rows, pens);
  for (const board::LoadedWord& word : stretch_.words) drawWord(painter, rows, pens, word);
  drawLooseBits(painter, rows, pens);
  painter.restore();
  drawWires(painter, rows, pens);
  drawScaleBar(painter, rows, pens);
  drawCursor(painter, rows, pens);
}

void WirePlot::drawFolds(QPainter& painter, const Rows& rows, const Pens& pens) const {
  for (const FoldedTime::Fold& fold : time_.folds()) {
    const double left = xOf(fold.from);
    const double right = xOf(fold.to);
    if (!shows(left, right)) continue;
    const QRectF box(left, area().top(), right - left, rows.lanes.bottom() - area().top());
    painter.fillRect(box, pens.tones.card);
    painter.setPen(pens.tones.muted);
    drawFitting(painter, QRectF(left, area().top() - 3, right - left, fontMetrics().height()),
                {timeText(static_cast<double>(fold.silence))});
  }
}

void WirePlot::drawWires(QPainter& painter, const Rows& rows, const Pens& pens) const {
  for (std::size_t index = 0; index < std::size(kWires); ++index) {
    const WireLook& wire = kWires[index];
    const QColor color = pens.signs.*wire.color;
    painter.setPen(color);
    painter.drawText(QRectF(12, rows.high(index), area().left() - 16, rows.low(index) - rows.high(index)),
                     Qt::AlignLeft | Qt::AlignVCenter, QLatin1String(wire.name));
    drawWire(painter, wire.level, rows.high(index), rows.low(index));
  }
}

void WirePlot::drawWire(QPainter& painter, bool board::Levels::*wire, double high, double low) const {
  const QRectF box = area();
  // Whole pixels of the device, so that all lines are of one width.
  const double stroke = std::max(1.0, std::floor(1.5 * devicePixelRatioF())) / devicePixelRatioF();
  const QColor color = painter.pen().color();
  // Filled rectangles: a stroked line of so many corners takes the toolkit ten times as long.
  const auto fill = [&](double left, double right, double top, double bottom) {
    painter.fillRect(QRectF(left, top, right - left + stroke, bottom - top + stroke), color);
  };
  const auto yOf = [&](const board::Levels& levels) { return std::floor(levels.*wire ? high : low); };
  const auto first = std::ranges::lower_bound(places_, span().from());
  auto index = static_cast<std::size_t>(first - places_.begin());
  double y = yOf(index == 0 ? stretch_.before : stretch_.changes[index - 1].levels);
  double x = box.left();
  for (; index < places_.size() && places_[index] <= span().to(); ++index) {
    const double next = yOf(stretch_.changes[index].levels);
    if (next == y) continue;
    // Edges within one column of pixels fall on one line.
    const double edge = std::floor(xOf(places_[index]));
    if (edge > x || x == box.left()) {
      fill(x, edge, y, y);
      fill(edge, edge, std::floor(high), std::floor(low));
    }
    x = edge;
    y = next;
  }
  fill(x, box.right(), y, y);
}

WirePlot::Bits WirePlot::bitsOf(const std::vector<std::int64_t>& times) const {
  const double half = halfBit(times) * area().width() / span().length();
  return {xAt(times.front()) - half, xAt(times.back()) + half, half};
}

void WirePlot::drawBitValues(QPainter& painter, const Rows& rows,
                             const std::vector<std::int64_t>& times) const {
  const double half = bitsOf(times).half;
  if (2 * half < fontMetrics().horizontalAdvance(QLatin1Char('0')) + 1) return;
  painter.setPen(palette().color(QPalette::Text));
  for (const std::int64_t time : times) {
    const double x = xAt(time);
    if (!shows(x - half, x + half)) continue;
    painter.drawText(QRectF(x - half, rows.bits.top(), 2 * half, rows.bits.height()), Qt::AlignCenter,
                     stretch_.levelsAt(time).data ? QStringLiteral("1") : QStringLiteral("0"));
  }
}

void WirePlot::drawWord(QPainter& painter, const Rows& rows, const Pens& pens,
                        const board::LoadedWord& word) const {
  const board::Register* const spec = stretch_.registerOf(word);
  const double latch = xAt(word.latchTime);
  if (shows(latch, latch)) {
    painter.setPen(QPen(pens.signs.loadEnable, 1, Qt::DashLine));
    painter.drawLine(QPointF(latch, rows.lanes.top()), QPointF(latch, rows.words.bottom()));
  }
  if (word.bitTimes.empty()) return;
  const Bits bits = bitsOf(word.bitTimes);
  if (!shows(bits.left, std::max(bits.right, latch))) return;
  drawBitValues(painter, rows, word.bitTimes);

  const QColor ink = palette().color(QPalette::Text);
  if (spec != nullptr) {
    for (const board::FieldSpan& field : board::fieldSpans(word, *spec)) {
      const double left = xAt(field.firstBit) - bits.half;
      const QRectF box(left, rows.fields.top(), xAt(field.lastBit) + bits.half - left, rows.fields.height());
      if (!shows(box.left(), box.right())) continue;
      drawBox(painter, box, 2, field.field->reserved ? pens.tones.card : pens.tones.tint, pens.tones.edge);
      painter.setPen(field.field->reserved ? pens.tones.muted : ink);
      const QString name = text(field.field->name);
      const QString value = QString::number(field.value);
      const QString meaning = text(field.field->meaning(word.word));
      if (meaning.isEmpty()) {
        drawFitting(painter, box, {name + QStringLiteral(" = ") + value, value});
      } else {
        drawFitting(painter, box, {name + QStringLiteral(": ") + meaning, meaning, value});
      }
    }
  }
  const QRectF box(bits.left, rows.words.top(), bits.right - bits.left, rows.words.height());
  drawBox(painter, box, 2, pens.tones.shade, pens.tones.border);
  painter.setPen(ink);
  if (spec == nullptr) {
    drawFitting(painter, box, {QStringLiteral("no register took it"), QStringLiteral("?")});
    return;
  }
  const QString name = text(spec->name);
  drawFitting(painter, box, {name + QStringLiteral("  ") + hexText(word.word, spec->width), name});
}

void WirePlot::drawLooseBits(QPainter& painter, const Rows& rows, const Pens& pens) const {
  const auto& loose = stretch_.looseBits;
  if (loose.empty()) return;
  // Without load pulses the words run together; the parts between the folds stand for them.
  for (std::size_t begin = 0; begin < loose.size();) {
    std::size_t end = begin + 1;
    const auto joined = [&] {
      const double silence = time_.place(loose[end]) - time_.place(loose[end - 1]);
      const bool folded = silence < 0.99 * static_cast<double>(loose[end] - loose[end - 1]);
      return end - begin < kBitsOfAPart && !folded;
    };
    while (end < loose.size() && joined()) ++end;
    const std::vector<std::int64_t> part(loose.begin() + static_cast<std::ptrdiff_t>(begin),
                                         loose.begin() + static_cast<std::ptrdiff_t>(end));
    begin = end;
    const Bits bits = bitsOf(part);
    if (!shows(bits.left, bits.right)) continue;
    drawBitValues(painter, rows, part);
    const QRectF box(bits.left, rows.words.top(), bits.right - bits.left, rows.words.height());
    drawBox(painter, box, 2, Qt::transparent, pens.signs.bad);
    painter.setPen(pens.signs.bad);
    drawFitting(painter, box,
                {QStringLiteral("%1 bits, not latched").arg(part.size()), QStringLiteral("not latched"),
                 QStringLiteral("?")});
  }
}

void WirePlot::drawScaleBar(QPainter& painter, const Rows& rows, const Pens& pens) const {
  const double perMicrosecond = area().width() / span().length();
  const double length = niceStep(kScaleBarPixels / perMicrosecond / 2, 1);
  const double width = length * perMicrosecond;
  const double y = std::floor(rows.scale.center().y()) + 0.5;
  const double right = area().right();
  painter.setPen(QPen(pens.tones.muted, 1));
  painter.drawLine(QPointF(right - width, y), QPointF(right, y));
  for (const double x : {right - width, right}) painter.drawLine(QPointF(x, y - 4), QPointF(x, y + 4));
  painter.drawText(
      QRectF(area().left(), rows.scale.top(), right - width - 8 - area().left(), rows.scale.height()),
      Qt::AlignRight | Qt::AlignVCenter, timeText(length));
}

void WirePlot::drawCursor(QPainter& painter, const Rows& rows, const Pens& pens) const {
  const auto time = cursorTime();
  if (!time) return;
  const double x = std::floor(xOf(*cursor())) + 0.5;
  if (!shows(x, x)) return;
  painter.setPen(QPen(pens.tones.text, 1));
  painter.drawLine(QPointF(x, area().top()), QPointF(x, rows.words.bottom()));
  const board::Levels levels = stretch_.levelsAt(*time);
  painter.setBrush(pens.tones.text);
  for (std::size_t index = 0; index < std::size(kWires); ++index) {
    const double y = levels.*kWires[index].level ? rows.high(index) : rows.low(index);
    painter.drawEllipse(QPointF(x, y), 2.5, 2.5);
  }
  painter.setBrush(Qt::NoBrush);
}

}  // namespace tessarine::desktop
