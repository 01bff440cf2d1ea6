// Brings the hardware to rest when a signal ends the program.
#pragma once

#include <functional>
#include <thread>

namespace tessarine {

class HostPlatform;

// From construction on, a signal that would end the program (from the keyboard, from kill, from a closed
// terminal or pipe, or a crash) first calls `leave` on a thread of its own and then ends the program as that
// signal does. Signals that are ignored or handled already stay so. One at a time.
class LeaveOnSignal {
 public:
  explicit LeaveOnSignal(HostPlatform& platform);
  explicit LeaveOnSignal(std::function<void()> leave);
  ~LeaveOnSignal();
  LeaveOnSignal(const LeaveOnSignal&) = delete;
  LeaveOnSignal& operator=(const LeaveOnSignal&) = delete;

 private:
  void wait();

  std::function<void()> leave_;
  int wake_ = -1;  // end of a pipe that brings signal numbers; its other end is the handlers'
  std::thread thread_;
};

}  // namespace tessarine
