// What the two plots have in common: a span of time that the mouse and the keyboard zoom and pan, and a
// cursor.
//
//   wheel, + and -          zoom about the pointer, or about the cursor or the middle
//   drag, left and right    pan
//   Home, double click      everything
//   pointer                 moves the cursor; shift with left and right takes it from change to change
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/board/Span.h"

class QPainter;

namespace tessarine::desktop {

class PlotWidget : public QWidget {
 public:
  explicit PlotWidget(double shortestSpan);

  [[nodiscard]] Span& span() { return span_; }
  [[nodiscard]] const Span& span() const { return span_; }
  [[nodiscard]] std::optional<double> cursor() const { return cursor_; }
  void setCursorPlace(std::optional<double> place);

  // Where the span lies within the widget.
  [[nodiscard]] virtual QRectF area() const = 0;
  [[nodiscard]] double xOf(double place) const;
  [[nodiscard]] double placeAt(double x) const;

  // Called when the cursor has moved.
  std::function<void()> onCursor;

 protected:
  virtual void draw(QPainter& painter) const = 0;
  // The change next to `place` in that direction, 1 or -1; none beyond the last.
  [[nodiscard]] virtual std::optional<double> nextChange(double place, int direction) const = 0;

  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  void stepCursor(int direction);
  void changed();

  Span span_;
  std::optional<double> cursor_;
  std::optional<double> grip_;  // the place that a drag holds under the pointer
};

// A step of 1, 2 or 5 times a power of ten that divides `length` into at most `most` parts.
[[nodiscard]] double niceStep(double length, double most);

}  // namespace tessarine::desktop
