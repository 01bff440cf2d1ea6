// An event at a time to come, to the tenth of a millisecond: the toolkit's own timers count whole
// milliseconds.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <memory>

namespace tessarine::desktop {

class Deadline {
 public:
  // That many seconds from now; more than 0.
  explicit Deadline(double seconds);
  ~Deadline();
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

 private:
  int timer_;  // a descriptor of the kernel's; -1 where it gave none
  std::unique_ptr<QSocketNotifier> notifier_;
  QTimer coarse_;  // in its place then
};

}  // namespace tessarine::desktop
