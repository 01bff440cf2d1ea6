// What cannot be done, told to the operator in one sentence.
#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace tessarine {

// Raised before a stored word changes. Its text names the field, the value and the limits. The door of the
// operator's actions (forms/Operator.h) catches it and shows it in a message box.
class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Thrown through a running handler when the program ends in the middle of it. It is no std::exception, so
// that the places that ignore errors let it pass.
struct ProgramEnded {};

// Runs one step whose failure must not stop the sequence it belongs to. `step` says what is ignored and why
// nothing is shown.
template <class Action>
void ignoringErrors([[maybe_unused]] const char* step, Action&& action) {
  try {
    action();
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the step is skipped on purpose
  }
}

}  // namespace tessarine
