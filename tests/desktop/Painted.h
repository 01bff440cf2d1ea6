// What a widget writes when it paints itself: each text with the colour of its pen, and what it fills.
#pragma once

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QWidget>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tessarine::desktop {

using PaintedTexts = std::vector<std::pair<std::string, std::string>>;

// Which way it is, as far as it is the same in every font.
inline std::string wayOf(const QPointF& from, const QPointF& to) {
  const auto turn = [](double way) { return way > 6 ? '+' : way < -6 ? '-' : '0'; };
  return {' ', turn(to.x() - from.x()), turn(to.y() - from.y()), '\n'};
}

class TextNotes : public QPaintEngine {
 public:
  TextNotes() : QPaintEngine(AllFeatures) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  [[nodiscard]] Type type() const override { return User; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF& box, const QPixmap& picture, const QRectF&) override {
    const QImage image = picture.toImage();
    const QColor middle = image.pixelColor(image.rect().center());
    mark("picture " + std::to_string(middle.red() / 64 * 100 + middle.green() / 64 * 10 + middle.blue() / 64),
         box.center());
  }
  void drawPath(const QPainterPath& path) override {
    mark("path", path.boundingRect().center());
    if (path.boundingRect().width() == 5) dots.push_back(path.boundingRect().center());
  }
  void drawRects(const QRectF* boxes, int count) override {
    for (const QRectF& box : std::span(boxes, static_cast<std::size_t>(count))) {
      constexpr int kThin = 8;
      mark("box", box.center());
      turns += box.width() > kThin * box.height() ? '_' : box.height() > kThin * box.width() ? '|' : ' ';
      fills.emplace_back(painter()->brush().color().name().toStdString(), box);
    }
  }
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override { mark("polygon"); }
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    if (item.text().isEmpty()) return;
    const QFont font = item.font();
    if (item.text().size() <= 30)  // not one that is wrapped, where the font will have it
      mark(item.text().toStdString() + (font.bold() ? " bold " : " ") +
           (font.styleHint() == QFont::Monospace ? "mono " : "") +
           std::to_string(qRound(20 * font.pointSizeF() / QApplication::font().pointSizeF())));
    texts.emplace_back(item.text().toStdString(), painter()->pen().color().name().toStdString());
    const QRectF box(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent());
    places.push_back(painter()->combinedTransform().mapRect(box));
    room |= places.back();
    if (item.text().contains(QChar(0x2026))) isElided = true;
  }
  PaintedTexts texts;
  // What is drawn with which pen and brush, wherever it is; and where it is as seen from the one before.
  void mark(const std::string& what, std::optional<QPointF> at = {}) {
    const auto [pen, brush] = std::pair(painter()->pen(), painter()->brush());
    marks += what + ' ' + pen.color().name().toStdString() + std::to_string(pen.style()) +
             brush.color().name().toStdString() + '\n';
    if (!at) return;  // it is as wide as its font
    const QPointF here = painter()->combinedTransform().map(*at);
    turns += what + wayOf(last, here);
    last = here;
  }
  std::string marks, turns;
  QPointF last;
  std::vector<std::pair<std::string, QRectF>> fills;
  std::vector<QPointF> dots;
  std::vector<QRectF> places;  // of each text
  QRectF room;
  bool isElided = false;
};

struct TextCanvas : QImage {
  explicit TextCanvas(QWidget& widget) : QImage(widget.size(), Format_RGB32) { widget.render(this); }
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &notes; }
  mutable TextNotes notes;
};

inline PaintedTexts paintedTexts(QWidget& widget) { return TextCanvas(widget).notes.texts; }

// Whether it shows only a part of a text.
inline bool cutsText(QWidget& widget) {
  const TextCanvas canvas(widget);
  const QRectF room = canvas.notes.room | QRectF(0, 0, 1, 1);
  return canvas.notes.isElided || !QRectF(widget.rect()).adjusted(-1, -1, 1, 1).contains(room);
}

}  // namespace tessarine::desktop
