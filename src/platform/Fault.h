// What cannot be done, told to the operator in one sentence.
#pragma once

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tessarine {

inline constexpr std::size_t kLongestQuote = 40;
inline constexpr std::size_t kLongestPath = 400;  // a path is of no use when it is cut

// `text` in double quotes, as a message can show it: its first characters, control characters as "?".
[[nodiscard]] inline std::string quoted(std::string_view text, std::size_t longest = kLongestQuote) {
  std::string shown;
  std::size_t characters = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool begins = (byte & 0xC0U) != 0x80U;  // in UTF-8
    if (begins && ++characters > longest) {
      shown += "...";
      break;
    }
    shown += byte < 0x20 || byte == 0x7F ? '?' : c;
  }
  return '"' + shown + '"';
}

// Raised before a stored word changes. Its text names the field, the value and the limits. The door of the
// operator's actions (forms/Operator.h) catches it and shows it in a message box.
class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The same with the prompt of the field that it comes from, which may not be in sight.
[[nodiscard]] inline Fault withPrompt(const Fault& fault, const std::string& prompt) {
  return Fault(std::string(fault.what()) + " (\"" + prompt + "\")");
}

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
