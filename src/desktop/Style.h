// How the program looks: flat panels and fields in quiet colours, all of them taken from the palette in use,
// so that light, dark and high-contrast palettes work alike.
#pragma once

#include <QColor>
#include <QPalette>
#include <QProxyStyle>

class QPainter;

namespace tessarine::desktop {

[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

// The colours of what is drawn here, derived from a palette.
struct Tones {
  explicit Tones(const QPalette& palette);
  QColor text;
  QColor muted;
  QColor card;    // the ground of a frame
  QColor edge;    // thin lines around frames
  QColor border;  // around what takes input
  QColor accent;
  QColor onAccent;
  QColor tint;   // a ground with a breath of accent: a bit that is set
  QColor shade;  // beneath the pointer
};

// A rectangle with rounded corners whose edges fall on whole pixels of the device at any display scale.
void drawBox(QPainter& painter, const QRectF& box, double radius, const QColor& fill, const QColor& border);

// The ring around what has the keyboard.
void drawFocus(QPainter& painter, const QRectF& box, double radius, const QColor& accent);

class Style : public QProxyStyle {
 public:
  Style();
  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
};

}  // namespace tessarine::desktop
