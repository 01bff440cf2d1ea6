#include "remote/Syntax.h"

#include <algorithm>
#include <cstddef>

#include "platform/Fault.h"
#include "platform/Text.h"
#include "script/ScriptText.h"

namespace tessarine::remote {
namespace {

// The pieces between the marks that stand in no quotes. A doubled quote closes and opens again, which comes
// to the same.
std::vector<std::string_view> parted(std::string_view text, char mark) {
  std::vector<std::string_view> pieces;
  std::size_t begin = 0;
  char quote = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (quote != 0) {
      if (text[i] == quote) quote = 0;
    } else if (text[i] == '"' || text[i] == '\'') {
      quote = text[i];
    } else if (text[i] == mark) {
      pieces.push_back(text.substr(begin, i - begin));
      begin = i + 1;
    }
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

bool isLower(char c) { return c >= 'a' && c <= 'z'; }
char upper(char c) { return isLower(c) ? static_cast<char>(c - 'a' + 'A') : c; }

bool sameLetters(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return upper(x) == upper(y); });
}

// A node of the tree: "ERRor" is ERROR or ERR. A "1" at its end may be left out.
bool isNode(std::string_view word, std::string_view pattern) {
  std::string brief;
  for (const char c : pattern) {
    if (!isLower(c)) brief += c;
  }
  return sameLetters(word, pattern) || sameLetters(word, brief) ||
         (pattern.ends_with('1') && isNode(word, pattern.substr(0, pattern.size() - 1)));
}

// The first node off the front of `rest`, without its ":".
std::string_view takeNode(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(':'), rest.size());
  const std::string_view node = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return node;
}

}  // namespace

std::deque<std::string> commandsOf(std::string_view line) {
  std::deque<std::string> commands;
  for (const std::string_view piece : parted(line, ';')) {
    if (const std::string_view command = trimmed(piece); !command.empty()) {
      commands.emplace_back(command);
    }
  }
  return commands;
}

Command commandOf(std::string_view text, std::string& path) {
  const std::size_t end = std::min(text.find_first_of(" \t\"'"), text.size());
  std::string_view header = text.substr(0, end);
  const std::string_view rest = trimmed(text.substr(end));
  Command command;
  if (header.starts_with('*')) {
    command.header = header;
  } else {
    if (header.starts_with(':')) {
      header.remove_prefix(1);
      path.clear();
    }
    command.header = path + std::string(header);
    // A line of unknown headers must not make longer and longer ones.
    constexpr std::size_t kLongestPath = 200;
    path = command.header.substr(0, command.header.rfind(':') + 1);
    if (path.size() > kLongestPath) path.clear();
  }
  if (!rest.empty()) {
    for (const std::string_view parameter : parted(rest, ',')) {
      command.parameters.emplace_back(trimmed(parameter));
    }
  }
  return command;
}

bool isHeader(std::string_view header, std::string_view pattern) {
  if (header.ends_with('?') != pattern.ends_with('?')) return false;
  if (header.ends_with('?')) {
    header.remove_suffix(1);
    pattern.remove_suffix(1);
  }
  if (const std::size_t optional = pattern.find('['); optional != std::string_view::npos) {
    const std::string with = std::string(pattern.substr(0, optional)) +
                             std::string(pattern.substr(optional + 1, pattern.size() - optional - 2));
    return isHeader(header, pattern.substr(0, optional)) || isHeader(header, with);
  }
  if (std::ranges::count(header, ':') != std::ranges::count(pattern, ':')) return false;
  do {
    if (!isNode(takeNode(header), takeNode(pattern))) return false;
  } while (!pattern.empty());
  return header.empty();
}

bool isWord(std::string_view word, std::string_view pattern) { return isNode(word, pattern); }

std::string textOf(std::string_view parameter) {
  const char quote = parameter.empty() ? '\0' : parameter.front();
  if (quote != '"' && quote != '\'') throw Refused{-104, shown(parameter) + " is no text in quotes"};
  if (parameter.size() < 2 || parameter.back() != quote) throw Refused{-151, shown(parameter)};
  std::string text;
  const std::string_view inside = parameter.substr(1, parameter.size() - 2);
  for (std::size_t i = 0; i < inside.size(); ++i) {
    if (inside[i] == quote && (++i == inside.size() || inside[i] != quote)) {
      throw Refused{-151, shown(parameter)};
    }
    text += inside[i];
  }
  return text;
}

std::string quotedText(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : script::escaped(text)) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + '"';
}

std::string quotedList(const std::vector<std::string>& texts) {
  if (texts.empty()) return quotedText("");
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : ",") + quotedText(text);
  return list;
}

std::string block(std::string_view bytes) {
  const std::string length = std::to_string(bytes.size());
  return '#' + std::to_string(length.size()) + length + std::string(bytes);
}

std::string shown(std::string_view text) {
  const std::string inQuotes = quoted(text);
  return inQuotes.substr(1, inQuotes.size() - 2);
}

}  // namespace tessarine::remote
