// The waveforms of the three wires during the last load, with the words they carried.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/board/FoldedTime.h"
#include "desktop/board/PlotWidget.h"
#include "desktop/board/WireStretch.h"

namespace tessarine::desktop {

struct Tones;
struct Signs;

class WirePlot : public PlotWidget {
 public:
  WirePlot();

  void take(WireStretch stretch);
  // Whether long silences are folded.
  void fold(bool on);

  [[nodiscard]] const WireStretch& stretch() const { return stretch_; }
  // The time under the cursor, in microseconds of the trace.
  [[nodiscard]] std::optional<std::int64_t> cursorTime() const;
  // "12 µs   CLOCK 1   DATA 0   LE 0   N: B = 562", with the time since the beginning of the stretch.
  [[nodiscard]] QString cursorText() const;

  [[nodiscard]] QRectF area() const override;

 protected:
  void draw(QPainter& painter) const override;
  [[nodiscard]] std::optional<double> nextChange(double place, int direction) const override;

 private:
  struct Rows;
  struct Pens;
  // A stretch of bits on the screen.
  struct Bits {
    double left = 0;
    double right = 0;
    double half = 0;  // of a bit's room
  };

  [[nodiscard]] Rows rows() const;
  [[nodiscard]] double xAt(std::int64_t time) const { return xOf(time_.place(time)); }
  [[nodiscard]] bool shows(double left, double right) const;
  // Half of the room that a bit has, as a length of places.
  [[nodiscard]] double halfBit(const std::vector<std::int64_t>& times) const;
  [[nodiscard]] Bits bitsOf(const std::vector<std::int64_t>& times) const;
  // "N: B = 562" for the field whose bits are on the wire at that time; empty between words.
  [[nodiscard]] QString fieldText(std::int64_t time) const;
  void refold();

  void drawFolds(QPainter& painter, const Rows& rows, const Pens& pens) const;
  void drawWires(QPainter& painter, const Rows& rows, const Pens& pens) const;
  void drawWire(QPainter& painter, bool board::Levels::*wire, double high, double low) const;
  void drawWord(QPainter& painter, const Rows& rows, const Pens& pens, const board::LoadedWord& word) const;
  void drawBitValues(QPainter& painter, const Rows& rows, const std::vector<std::int64_t>& times) const;
  void drawLooseBits(QPainter& painter, const Rows& rows, const Pens& pens) const;
  void drawScaleBar(QPainter& painter, const Rows& rows, const Pens& pens) const;
  void drawCursor(QPainter& painter, const Rows& rows, const Pens& pens) const;

  WireStretch stretch_;
  FoldedTime time_;
  std::vector<double> places_;  // of the changes
  bool folds_ = true;
};

}  // namespace tessarine::desktop
