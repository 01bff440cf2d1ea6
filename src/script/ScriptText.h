// The text of a script and of what it prints.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Control.h"
#include "platform/Platform.h"

namespace tessarine::script {

// On one line: "\", tab, CR and LF become "\\", "\t", "\r" and "\n".
[[nodiscard]] std::string escaped(std::string_view value);

// A message box, with its line end: "message", icon, title and text, parted by tabs.
[[nodiscard]] std::string messageLine(const std::string& text, Icon icon, const std::string& title);

// Form, name, kind, container, visible, enabled, value and tool tip of a control, parted by tabs.
[[nodiscard]] std::string controlRow(const forms::Control& control);

// Takes the first word off the front of `text`, with the one blank behind it.
std::string_view takeWord(std::string_view& text);
[[nodiscard]] std::vector<std::string_view> words(std::string_view text);
// Without one pair of double quotes around it.
[[nodiscard]] std::string_view unquoted(std::string_view text);
// As `set` takes it: in quotes where its ends would not show.
[[nodiscard]] std::string asValue(const std::string& text);

// A time "2.5" in milliseconds as microseconds; nothing for a text that is no such number, is negative or
// goes beyond a year.
[[nodiscard]] std::optional<std::int64_t> microseconds(std::string_view milliseconds);
// The reverse: "2.5", with as many decimals as it takes.
[[nodiscard]] std::string millisecondText(std::int64_t microseconds);

struct Line {
  int number = 0;
  std::string text;
};

// The lines of a script that carry a command, with either line end.
class ScriptReader {
 public:
  explicit ScriptReader(std::istream& in) : in_(in) {}
  [[nodiscard]] std::optional<Line> next();
  [[nodiscard]] int number() const { return number_; }  // of the line read last

 private:
  std::istream& in_;
  int number_ = 0;
};

}  // namespace tessarine::script
