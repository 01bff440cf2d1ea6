// The history of the three wires, and its file form for logic-analyser programs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>

#include "board/Ring.h"
#include "board/WireReceiver.h"

namespace tessarine::board {

// The levels at each time, in microseconds since the first write, at which one of them changed. Bounded: the
// oldest changes are forgotten.
class WireTrace {
 public:
  struct Change {
    std::int64_t time = 0;
    Levels levels;
  };

  static constexpr std::size_t kCapacity = std::size_t{1} << 17;

  explicit WireTrace(std::size_t capacity = kCapacity) : changes_(capacity) {}

  // The first entry is recorded whatever its levels; later ones only if they change something. `time` rises
  // from call to call.
  void record(std::int64_t time, Levels levels);

  [[nodiscard]] std::size_t size() const { return changes_.size(); }
  [[nodiscard]] const Change& operator[](std::size_t index) const { return changes_[index]; }
  // The number of changes before `time`: where a plot that starts there begins reading.
  [[nodiscard]] std::size_t countBefore(std::int64_t time) const;

 private:
  Ring<Change> changes_;
};

// Writes a trace as a value change dump: timescale 1 us, wires CLOCK, DATA and LE.
class VcdWriter {
 public:
  // Writes the head. `out` must outlive the writer; its state tells of write errors.
  explicit VcdWriter(std::ostream& out);

  // `time` rises from call to call. Only what differs from the call before is written.
  void change(std::int64_t time, Levels levels);
  // The closing time stamp: at `time`, but behind the last change in any case.
  void finish(std::int64_t time);

 private:
  std::ostream& out_;
  Levels levels_;
  std::int64_t last_ = -1;
};

// Saves what the trace holds; `endTime` is the time of the last write.
void saveVcd(const WireTrace& trace, std::int64_t endTime, std::ostream& out);

}  // namespace tessarine::board
