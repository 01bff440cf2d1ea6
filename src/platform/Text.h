// Small steps on texts that every folder takes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tessarine {

// All of them behind one another.
[[nodiscard]] inline std::string joined(std::initializer_list<std::string_view> parts) {
  std::size_t length = 0;
  for (const std::string_view part : parts) length += part.size();
  std::string text;
  text.reserve(length);
  for (const std::string_view part : parts) text += part;
  return text;
}

[[nodiscard]] inline std::string_view trimmedFront(std::string_view text, std::string_view blanks = " \t") {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text;
}

// Without the blanks at both ends.
[[nodiscard]] inline std::string_view trimmed(std::string_view text, std::string_view blanks = " \t") {
  text = trimmedFront(text, blanks);
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

}  // namespace tessarine
