#include "desktop/Deadline.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <cmath>
#include <ctime>

namespace tessarine::desktop {

Deadline::Deadline(double seconds) : timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
  const double whole = std::floor(seconds);
  itimerspec span{};
  span.it_value.tv_sec = static_cast<std::time_t>(std::llround(whole));
  span.it_value.tv_nsec =
      static_cast<long>(std::lround(std::floor((seconds - whole) * 1e9))) + 1;  // 0 is never
  if (timer_ < 0 || ::timerfd_settime(timer_, 0, &span, nullptr) != 0) {
    coarse_.setSingleShot(true);
    coarse_.setTimerType(Qt::PreciseTimer);
    coarse_.start(static_cast<int>(std::lround(std::ceil(seconds * 1000))));
    return;
  }
  notifier_ = std::make_unique<QSocketNotifier>(timer_, QSocketNotifier::Read);
  // Whoever waits further in is not to be woken by it again and again.
  QSocketNotifier* const notifier = notifier_.get();
  QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                   [notifier] { notifier->setEnabled(false); });
}

Deadline::~Deadline() {
  notifier_.reset();  // before what it looks at is closed
  if (timer_ >= 0) ::close(timer_);
}

}  // namespace tessarine::desktop
