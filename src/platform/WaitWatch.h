// Watches the waits of a program.
#pragma once

namespace tessarine {

// Waits nest: in the events of one an action may begin another.
class WaitWatch {
 public:
  virtual ~WaitWatch() = default;
  virtual void waitBegins(int milliseconds) = 0;
  // The innermost one is over, whatever ended it.
  virtual void waitEnds() = 0;
};

}  // namespace tessarine
