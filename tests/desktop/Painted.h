// What a widget writes when it paints itself: each text with the colour of its pen.
#pragma once

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

namespace tessarine::desktop {

using PaintedTexts = std::vector<std::pair<std::string, std::string>>;

class TextNotes : public QPaintEngine {
 public:
  TextNotes() : QPaintEngine(AllFeatures) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  [[nodiscard]] Type type() const override { return User; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    if (item.text().isEmpty()) return;
    texts.emplace_back(item.text().toStdString(), painter()->pen().color().name().toStdString());
    const QRectF box(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent());
    room |= painter()->combinedTransform().mapRect(box);
    if (item.text().contains(QChar(0x2026))) isElided = true;
  }
  PaintedTexts texts;
  QRectF room;  // of all texts
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
