// The texts of a client: lines, commands joined by ";", headers, parameters, and what is replied.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine::remote {

// Why a command is not carried out: one of SCPI's numbers, and what is to be said beyond its standard text.
struct Refused {
  int number;
  std::string detail = {};
};

// The commands of a line, without the blanks around them; empty ones are left out. Quoted texts stay whole.
[[nodiscard]] std::deque<std::string> commandsOf(std::string_view line);

struct Command {
  std::string header;                   // from the root: "HOP:COUN", "*IDN?"
  std::vector<std::string> parameters;  // as they stand
};
// `path` is what a header without ":" stands behind, "HOP:" or nothing; it becomes that of this command.
[[nodiscard]] Command commandOf(std::string_view text, std::string& path);

// Whether a header is `pattern` ("SYSTem:ERRor[:NEXT]?") in long or short form, in any case.
[[nodiscard]] bool isHeader(std::string_view header, std::string_view pattern);
// The same for a word that is a parameter ("AUTO").
[[nodiscard]] bool isWord(std::string_view word, std::string_view pattern);

// The text between quotes; throws Refused for what is none.
[[nodiscard]] std::string textOf(std::string_view parameter);

// In double quotes, on one line: "\", tab, CR and LF as in scripts.
[[nodiscard]] std::string quotedText(std::string_view text);
[[nodiscard]] std::string quotedList(const std::vector<std::string>& texts);
// "#15hello"
[[nodiscard]] std::string block(std::string_view bytes);
// What a client wrote, short and printable, for the text of an error.
[[nodiscard]] std::string shown(std::string_view text);

}  // namespace tessarine::remote
