// Where a script is played: its time, its events and its end.
#pragma once

#include <cstdint>
#include <functional>

#include "forms/Form.h"

namespace tessarine::script {

class Stage {
 public:
  virtual ~Stage() = default;
  [[nodiscard]] virtual std::int64_t now() const = 0;  // in microseconds
  // Runs `action` when events next run at or after `time`; those of one time in the order of their coming.
  virtual void at(std::int64_t time, std::function<void()> action) = 0;
  // Lets events run up to `time`, stopping at the time of each action.
  virtual void runEventsUntil(std::int64_t time) = 0;
  // Nothing more is to be carried out.
  [[nodiscard]] virtual bool ended() const = 0;
  // A line cannot be carried out: ends the script. May throw ProgramEnded.
  virtual void fail() = 0;
  // Called in front of each line with its number.
  virtual void comesTo(int /*line*/) {}
  // Whether the program ends with the script; where it goes on, the operator has the modal form in front.
  [[nodiscard]] virtual bool endsWithScript() const { return true; }

  // Works a form that the program has opened modally until it is hidden.
  std::function<void(forms::Form&)> operateModal;
};

}  // namespace tessarine::script
