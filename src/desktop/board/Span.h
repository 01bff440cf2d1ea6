// The stretch of an axis that a plot shows, out of all there is.
#pragma once

namespace tessarine::desktop {

class Span {
 public:
  // Nothing shorter than `shortest` can be shown.
  explicit Span(double shortest) : shortest_(shortest) { setLimits(0, shortest); }

  // What there is. A view of all follows it, and so does one of the last stretch; any other stays where it
  // is, as long as that is within the limits.
  void setLimits(double low, double high);

  // Everything, or the last `length` of it.
  void showAll();
  void followLast(double length);
  void show(double from, double to);
  // Below 1 shows less; the point `about` keeps its place.
  void zoom(double factor, double about);
  void move(double by);

  [[nodiscard]] double from() const { return from_; }
  [[nodiscard]] double to() const { return to_; }
  [[nodiscard]] double length() const { return to_ - from_; }
  [[nodiscard]] bool showsAll() const { return mode_ == Mode::all; }

 private:
  enum class Mode { all, last, fixed };
  void settle();

  Mode mode_ = Mode::all;
  double shortest_;
  double low_ = 0;
  double high_ = 0;
  double last_ = 0;
  double from_ = 0;
  double to_ = 0;
};

}  // namespace tessarine::desktop
