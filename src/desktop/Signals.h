// SIGINT and SIGTERM as events of the program's own loop.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace tessarine::desktop {

class Signals {
 public:
  // Runs `end` from the event loop when a signal asks the program to end. A second signal does what it would
  // have done without this.
  explicit Signals(std::function<void()> end);
  ~Signals();
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tessarine::desktop
