// The output frequency over time, with the lock state in its colour and in a strip below.
#pragma once

#include <cstddef>
#include <optional>

#include "board/EvaluationBoard.h"
#include "desktop/board/PlotWidget.h"

namespace tessarine::desktop {

class FrequencyPlot : public PlotWidget {
 public:
  // The board outlives the plot.
  explicit FrequencyPlot(const board::EvaluationBoard& board);

  // Takes in what the history has become.
  void refresh();
  // "2.5 s   925.200000 MHz   locked"
  [[nodiscard]] QString cursorText() const;

  [[nodiscard]] QRectF area() const override;

 protected:
  void draw(QPainter& painter) const override;
  [[nodiscard]] std::optional<double> nextChange(double place, int direction) const override;

 private:
  struct Scale {
    double low = 0;   // MHz
    double high = 0;  // MHz
    QRectF box;
    [[nodiscard]] double y(double megahertz) const;
  };

  [[nodiscard]] const board::FrequencyHistory& history() const { return board_.history(); }
  // The place behind the last point at or before that time.
  [[nodiscard]] double lastTime() const;
  [[nodiscard]] std::size_t countUntil(double time) const;
  [[nodiscard]] Scale scale() const;
  [[nodiscard]] QRectF lockStrip() const;

  void drawGrid(QPainter& painter, const Scale& scale) const;
  void drawCurve(QPainter& painter, const Scale& scale) const;
  void drawCursor(QPainter& painter, const Scale& scale) const;

  const board::EvaluationBoard& board_;
  double highest_ = 0;  // MHz, that the gutter has room for
};

}  // namespace tessarine::desktop
