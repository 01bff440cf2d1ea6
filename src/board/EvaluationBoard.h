// An evaluation board as seen from its connector: three wires come in, a chip latches what they carry. It
// keeps what an instrument would: the trace of the wires, the last load word by word, the frequency over
// time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/Chip.h"
#include "board/FrequencyHistory.h"
#include "board/LoadedWord.h"
#include "board/Ring.h"
#include "board/WireReceiver.h"
#include "board/WireTrace.h"

namespace tessarine::board {

// What surrounds the board. Times are microseconds of a clock that never goes back.
struct Surroundings {
  std::function<std::int64_t()> microseconds;
  std::function<double()> referenceMHz;  // the crystal; 0: none. Looked at with each latch.
};

class EvaluationBoard {
 public:
  // Silence on the wires that ends a load. The longest wait inside one, in the power-up of the ADF4193, is
  // 110 ms.
  static constexpr std::int64_t kPauseMicroseconds = 200'000;
  static constexpr std::size_t kLoadWords = 64;  // kept of a load that never pauses
  static constexpr std::size_t kHistoryPoints = 1 << 16;

  explicit EvaluationBoard(Surroundings around);

  // One write to the port that carries the wires: takes at least a microsecond of trace time.
  void drive(Levels next);
  // A write that leaves the wires alone.
  void tick() { drive(receiver_.levels()); }

  // Puts the named chip on the board, freshly powered on; an unknown name takes the chip away. The name that
  // is there already changes nothing.
  void plug(std::string_view chipName);
  [[nodiscard]] std::string_view chipName() const { return chipName_; }
  [[nodiscard]] const Chip* chip() const { return chip_ ? &*chip_ : nullptr; }

  [[nodiscard]] const Tuning& tuning() const { return tuning_; }
  // Works the tuning out anew, for a reference that changed without a latch.
  void retune();

  // The words since the last pause, oldest first; repeated registers start a new load with chips whose loads
  // write each register once.
  [[nodiscard]] const std::vector<LoadedWord>& lastLoad() const { return load_; }
  // True if the last load gave the field of that register another value, or its first one.
  [[nodiscard]] bool changedByLastLoad(std::size_t registerIndex, const Field& field) const;

  [[nodiscard]] const WireTrace& trace() const { return trace_; }
  [[nodiscard]] const FrequencyHistory& history() const { return history_; }
  void clearHistory() { history_.clear(); }
  // The time of the trace as it is now, in microseconds since the first write.
  [[nodiscard]] std::int64_t now() const;
  // The clock at the first write, where the times of trace and history begin.
  [[nodiscard]] std::int64_t firstWrite() const { return origin_; }
  // The time of the last write.
  [[nodiscard]] std::int64_t lastWrite() const { return lastTick_ < 0 ? 0 : lastTick_; }
  // Rises whenever something that can be read here has changed.
  [[nodiscard]] std::uint64_t version() const { return version_; }

  // From now on, the bits of each load pulse are collected until they are taken.
  void collectLatches() { collecting_ = true; }
  [[nodiscard]] std::vector<std::string> takeLatches();

  // Also writes each change to `writer`, from now on, beyond the bounds of the trace. Null ends it.
  void stream(VcdWriter* writer) { writer_ = writer; }

 private:
  [[nodiscard]] std::int64_t nextTick();
  void step(std::int64_t time, Levels next);
  void latch(std::int64_t time);
  [[nodiscard]] bool comesAgain(std::size_t target) const;
  void beginLoad();
  void retuneAt(std::int64_t time);

  Surroundings around_;
  WireReceiver receiver_;
  WireTrace trace_;
  VcdWriter* writer_ = nullptr;

  std::int64_t origin_ = 0;
  std::int64_t lastTick_ = -1;
  std::int64_t lastChange_ = 0;
  std::uint64_t version_ = 0;

  std::string chipName_;
  std::optional<Chip> chip_;
  std::optional<Chip> chipBeforeLoad_;
  Tuning tuning_;
  FrequencyHistory history_{kHistoryPoints};

  std::vector<LoadedWord> load_;
  Ring<std::int64_t> bitTimes_{LoadedWord::kTimedBits};
  bool paused_ = false;

  bool collecting_ = false;
  std::vector<std::string> latches_;
};

}  // namespace tessarine::board
