// A bounded list that forgets its oldest entries.
#pragma once

#include <cstddef>
#include <vector>

namespace tessarine::board {

// Holds the last `capacity` values pushed; index 0 is the oldest. Memory grows with use, up to the capacity.
template <class Value>
class Ring {
 public:
  explicit Ring(std::size_t capacity) : capacity_(capacity) {}

  void push(const Value& value) {
    if (values_.size() < capacity_) {
      values_.push_back(value);
      return;
    }
    values_[oldest_] = value;
    oldest_ = oldest_ + 1 == capacity_ ? 0 : oldest_ + 1;
  }

  void clear() {
    values_.clear();
    oldest_ = 0;
  }

  [[nodiscard]] std::size_t size() const { return values_.size(); }
  [[nodiscard]] bool empty() const { return values_.empty(); }
  [[nodiscard]] const Value& operator[](std::size_t index) const {
    const std::size_t place = oldest_ + index;
    return values_[place < values_.size() ? place : place - values_.size()];
  }
  // How many stand before the first that `holds` is false for. Those for which it is true all stand first.
  template <class Predicate>
  [[nodiscard]] std::size_t countWhile(Predicate holds) const {
    std::size_t low = 0;
    for (std::size_t high = size(); low < high;) {
      const std::size_t middle = low + (high - low) / 2;
      if (holds((*this)[middle])) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low;
  }
  [[nodiscard]] const Value& back() const { return (*this)[size() - 1]; }

 private:
  std::size_t capacity_;
  std::size_t oldest_ = 0;
  std::vector<Value> values_;
};

}  // namespace tessarine::board
