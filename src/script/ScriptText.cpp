#include "script/ScriptText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "forms/Form.h"
#include "platform/Text.h"

namespace tessarine::script {
namespace {

constexpr std::string_view kBlanks = " \t";

}  // namespace

std::string escaped(std::string_view value) {
  std::string text;
  text.reserve(value.size());
  for (const char character : value) {
    switch (character) {
      case '\\':
        text += "\\\\";
        break;
      case '\t':
        text += "\\t";
        break;
      case '\r':
        text += "\\r";
        break;
      case '\n':
        text += "\\n";
        break;
      default:
        text += character;
    }
  }
  return text;
}

std::string messageLine(const std::string& text, Icon icon, const std::string& title) {
  return std::string("message\t") + (icon == Icon::critical ? "critical" : "plain") + '\t' + escaped(title) +
         '\t' + escaped(text) + '\n';
}

std::string controlRow(const forms::Control& control) {
  const std::string rest[] = {control.name(),
                              std::string(forms::kindName(control.kind())),
                              control.container()->name(),
                              control.Visible ? "1" : "0",
                              control.Enabled ? "1" : "0",
                              escaped(control.value()),
                              escaped(control.ToolTip.get())};
  std::string text = control.form().name();
  for (const std::string& cell : rest) text += '\t' + cell;
  return text;
}

std::string_view takeWord(std::string_view& text) {
  text = trimmedFront(text, kBlanks);
  const auto end = std::min(text.find_first_of(kBlanks), text.size());
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return word;
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> found;
  for (auto word = takeWord(text); !word.empty(); word = takeWord(text)) found.push_back(word);
  return found;
}

std::string_view unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::string asValue(const std::string& text) {
  constexpr std::string_view kUnseen = " \t\"";
  const bool plain = text.empty() || (kUnseen.find(text.front()) == std::string_view::npos &&
                                      kUnseen.find(text.back()) == std::string_view::npos);
  return plain ? text : '"' + text + '"';
}

std::optional<std::int64_t> microseconds(std::string_view milliseconds) {
  constexpr double kYearMs = 366.0 * 24 * 3600 * 1000;
  double value = 0;
  const char* const end = milliseconds.data() + milliseconds.size();
  const auto read = std::from_chars(milliseconds.data(), end, value, std::chars_format::fixed);
  // The comparison turns "nan" away too, which from_chars takes.
  if (read.ec != std::errc() || read.ptr != end || !(value >= 0 && value <= kYearMs)) return {};
  return std::llround(value * 1000);
}

std::string millisecondText(std::int64_t microseconds) {
  constexpr std::int64_t kMillisecond = 1000;
  std::string text = std::to_string(microseconds / kMillisecond);
  if (const std::int64_t rest = microseconds % kMillisecond; rest != 0) {
    text += '.' + std::to_string(kMillisecond + rest).substr(1);
    text.erase(text.find_last_not_of('0') + 1);
  }
  return text;
}

std::optional<Line> ScriptReader::next() {
  std::string text;
  while (std::getline(in_, text)) {
    if (++number_ == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    if (text.ends_with('\r')) text.pop_back();
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos || text[first] == '#') continue;
    return Line{number_, text.substr(first)};
  }
  return {};
}

}  // namespace tessarine::script
