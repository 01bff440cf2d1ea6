// The seam to the network: text to and from programs that work the bench from outside. Nothing here waits.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tessarine {

enum class Flow {
  open,
  ended,  // the other end sends no more, but may still read
  broken  // the other end is gone
};

class Connection {
 public:
  virtual ~Connection() = default;
  // Appends what has come, some kilobytes at most.
  virtual Flow receive(std::string& into) = 0;
  // Takes off the front of `from` what goes out now.
  virtual Flow send(std::string& from) = 0;
  [[nodiscard]] virtual int descriptor() const = 0;
};

class Listener {
 public:
  virtual ~Listener() = default;
  [[nodiscard]] virtual std::string address() const = 0;  // "127.0.0.1:5025", "[::1]:5025"
  // Null while nobody asks.
  virtual std::unique_ptr<Connection> accept() = 0;
  [[nodiscard]] virtual int descriptor() const = 0;
};

// What a descriptor is to be watched for.
struct Interest {
  int descriptor = -1;
  bool readable = false;
  bool writable = false;
  bool operator==(const Interest&) const = default;
};

// Work that comes in beside the operator's. Whoever runs the window's events serves it: it polls where it
// sleeps by itself, and watches the same descriptors where a toolkit's loop runs.
class EventSource {
 public:
  virtual ~EventSource() = default;
  [[nodiscard]] virtual std::vector<Interest> interests() const = 0;
  // True while there is something to do whatever the descriptors say.
  [[nodiscard]] virtual bool hasWork() const = 0;
  // Does what there is to do. May be called anew while a call is running: work waits as handlers do.
  virtual void serve() = 0;

  // Called when the interests have changed, and when there is work from now on. May be left empty by who
  // looks before each sleep.
  std::function<void()> changed;
  std::function<void()> woken;
};

}  // namespace tessarine
