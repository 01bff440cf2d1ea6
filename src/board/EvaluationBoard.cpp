#include "board/EvaluationBoard.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tessarine::board {

EvaluationBoard::EvaluationBoard(Surroundings around) : around_(std::move(around)) { retuneAt(0); }

void EvaluationBoard::drive(Levels next) {
  const std::int64_t time = nextTick();
  const Levels before = receiver_.levels();
  if (next == before && trace_.size() != 0) return;
  // Lines that share a pin, or a strobe on another line's pin, can move clock and load enable in one write.
  // The clock edge counts first, and has a tick of its own, so that a trace reads as the chip took it.
  if (next.loadEnable && !before.loadEnable && next.clock != before.clock) {
    step(time, {.clock = next.clock, .data = next.data, .loadEnable = false});
    step(nextTick(), next);
  } else {
    step(time, next);
  }
}

std::int64_t EvaluationBoard::nextTick() {
  const std::int64_t clock = around_.microseconds();
  if (lastTick_ < 0) origin_ = clock;
  lastTick_ = std::max(lastTick_ + 1, clock - origin_);
  return lastTick_;
}

std::int64_t EvaluationBoard::now() const {
  return lastTick_ < 0 ? 0 : std::max(lastTick_, around_.microseconds() - origin_);
}

void EvaluationBoard::step(std::int64_t time, Levels next) {
  if (time - lastChange_ >= kPauseMicroseconds) paused_ = true;
  lastChange_ = time;
  ++version_;
  trace_.record(time, next);
  if (writer_ != nullptr) writer_->change(time, next);

  const WireReceiver::Edges edges = receiver_.drive(next);
  if (edges.bit) bitTimes_.push(time);
  if (edges.latch) latch(time);
}

void EvaluationBoard::latch(std::int64_t time) {
  LoadedWord word{.bits = receiver_.takeBits(), .bitTimes = {}, .latchTime = time, .registerIndex = {}};
  for (std::size_t index = 0; index < bitTimes_.size(); ++index) word.bitTimes.push_back(bitTimes_[index]);
  bitTimes_.clear();
  if (collecting_) latches_.push_back(word.bits);

  const auto target = chip_ ? chip_->map().select(receiver_.shiftRegister()) : std::nullopt;
  if (paused_ || (target && !word.bits.empty() && comesAgain(*target))) beginLoad();
  if (chip_) word.registerIndex = chip_->latch(receiver_.shiftRegister());
  if (word.registerIndex) {
    word.word = chip_->word(*word.registerIndex).value_or(0);
    // Bits that an earlier word left behind without a pulse are no part of this one.
    const std::size_t width = chip_->map().registers[*word.registerIndex].width;
    const auto surplus = std::max(word.bitTimes.size(), width) - width;
    word.bitTimes.erase(word.bitTimes.begin(), word.bitTimes.begin() + static_cast<std::ptrdiff_t>(surplus));
  }
  if (load_.size() == kLoadWords) load_.erase(load_.begin());
  load_.push_back(std::move(word));
  retuneAt(time);
}

// Whether a word for this register begins a new load: it had one in this load, and others came behind it.
// With a faulty data line all words of a load go to one register.
bool EvaluationBoard::comesAgain(std::size_t target) const {
  if (chip_->map().repeatsInLoad) return false;
  bool had = false;
  bool others = false;
  for (const LoadedWord& earlier : load_) {
    if (earlier.registerIndex == target) had = true;
    if (earlier.registerIndex && earlier.registerIndex != target) others = true;
  }
  return had && others;
}

void EvaluationBoard::beginLoad() {
  paused_ = false;
  load_.clear();
  chipBeforeLoad_ = chip_;
}

void EvaluationBoard::plug(std::string_view chipName) {
  if (chipName == chipName_) return;
  chipName_ = chipName;
  const ChipModel* model = findChipModel(chipName);
  chip_ = model == nullptr ? std::optional<Chip>{} : Chip(*model);
  receiver_.powerOn();
  beginLoad();
  retune();
}

void EvaluationBoard::retune() { retuneAt(now()); }

void EvaluationBoard::retuneAt(std::int64_t time) {
  ++version_;
  if (chip_) {
    tuning_ = chip_->tune(around_.referenceMHz());
  } else {
    tuning_ = {};
    tuning_.faults.emplace_back("no chip");
  }
  const FrequencyPoint point{time, tuning_.outputMHz.value_or(0), tuning_.locked()};
  if (history_.empty() ? point.outputMHz != 0 || point.locked : !point.sameTuning(history_.back()))
    history_.push(point);
}

bool EvaluationBoard::changedByLastLoad(std::size_t registerIndex, const Field& field) const {
  if (!chip_) return false;
  const auto now = chip_->word(registerIndex);
  const auto before = chipBeforeLoad_ ? chipBeforeLoad_->word(registerIndex) : std::nullopt;
  return now && (!before || field.value(*now) != field.value(*before));
}

std::vector<std::string> EvaluationBoard::takeLatches() { return std::exchange(latches_, {}); }

}  // namespace tessarine::board
