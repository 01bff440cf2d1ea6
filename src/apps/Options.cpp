#include "apps/Options.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/Fault.h"
#include "platform/Version.h"
#include "platform/linux/GpioWires.h"

namespace tessarine {
namespace {

struct OptionSpec {
  const char* name;
  const char* argument;  // null: none
  const char* meaning;
  std::string Options::*value = nullptr;  // where the argument goes as it is
  bool available = true;
};

constexpr OptionSpec kOptions[] = {
    {"board", "hardware|virtual|gpio", "the way out to the board"},
    {"wires", "FILE", "with --board gpio: which lines are which", &Options::wires},
    {"serve", "[HOST:]PORT", "remote control over TCP, on 127.0.0.1 unless a HOST is written",
     &Options::serve},
    {"record", "FILE.script", "writes what the operator does as a script", &Options::record},
    {"trace", "FILE.vcd", "writes what goes over the three wires", &Options::trace},
    {"help", nullptr, "tells this"},
    {"version", nullptr, "tells the version"},
};

struct BoardName {
  const char* name;
  BoardKind board;
};

constexpr BoardName kBoards[] = {
    {"hardware", BoardKind::hardware},
    {"virtual", BoardKind::virtualBoard},
    {"gpio", BoardKind::gpio},
};

// The toolkit's options, which stand behind one dash or two.
struct ToolkitOption {
  std::string_view name;
  bool takesValue = true;
};

constexpr ToolkitOption kToolkitOptions[] = {
    {"platform"},
    {"platformpluginpath"},
    {"platformtheme"},
    {"plugin"},
    {"style"},
    {"stylesheet"},
    {"qwindowgeometry"},
    {"geometry"},
    {"qwindowtitle"},
    {"title"},
    {"qwindowicon"},
    {"icon"},
    {"display"},
    {"name"},
    {"session"},
    {"reverse", false},
    {"nograb", false},
    {"dograb", false},
    {"qdebug", false},
    {"qdevel", false},
    {"testability", false},
    {"widgetcount", false},
};

// An option's name without its dashes and without "=VALUE".
std::string_view bareName(std::string_view word) {
  word.remove_prefix(word.starts_with("--") ? 2 : 1);
  return word.substr(0, word.find('='));
}

// Null for a word that is none. Only the two of the style may stand as "-style=VALUE".
const ToolkitOption* toolkitOption(std::string_view word) {
  if (!word.starts_with('-') || word == "-") return nullptr;
  const std::string_view name = bareName(word);
  if (word.find('=') != std::string_view::npos && !name.starts_with("style")) return nullptr;
  const auto* const found = std::ranges::find(kToolkitOptions, name, &ToolkitOption::name);
  return found == std::end(kToolkitOptions) ? nullptr : found;
}

// Whether the word behind this one is its argument.
bool wantsNext(std::string_view word) {
  return word.starts_with("--") && word.find('=') == std::string_view::npos &&
         std::ranges::any_of(kOptions, [name = bareName(word)](const OptionSpec& option) {
           return option.argument != nullptr && std::string_view(option.name).starts_with(name);
         });
}

class Misuse {
 public:
  explicit Misuse(std::string why) : why_(std::move(why)) {}
  [[nodiscard]] const std::string& why() const { return why_; }

 private:
  std::string why_;
};

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string usage(const ProgramKind& program) {
  return std::string("usage: ") + program.name + " [OPTION]... [FILE]";
}

std::string help(const ProgramKind& program) {
  constexpr std::size_t kColumn = 33;
  std::string text = usage(program) + '\n' + program.does + '\n';
  for (const OptionSpec& option : kOptions) {
    if (!option.available) continue;
    std::string line = std::string("  --") + option.name;
    if (option.argument != nullptr) line += std::string(" ") + option.argument;
    line.resize(std::max(kColumn, line.size() + 2), ' ');
    text += line + option.meaning + '\n';
  }
  text += program.hasWindow
              ? "The toolkit's own options (-platform, -style, -geometry, ...) work as well.\n"
              : "Exit status: 0, 1 after a failed expect, 2 for a line that cannot be carried out,\n"
                "3 when the port did not take what was written.\n";
  return text + "Options that make no sense, and files that cannot be read or written, end with 2.\n";
}

BoardKind boardNamed(std::string_view name) {
  const auto* const found = std::ranges::find(kBoards, name, &BoardName::name);
  if (found == std::end(kBoards)) {
    throw Misuse("--board is hardware, virtual or gpio, not " + inQuotes(name));
  }
  return found->board;
}

// "5025", "localhost:5025", "[::1]:5025".
void checkAddress(const std::string& address) {
  const std::size_t colon = address.rfind(':');
  const std::string_view port = std::string_view(address).substr(colon == std::string::npos ? 0 : colon + 1);
  std::uint16_t number = 0;
  const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), number);
  if (error != std::errc() || end != port.data() + port.size() || colon == 0) {
    throw Misuse("--serve is [HOST:]PORT, the port 0 to 65535, not " + inQuotes(address));
  }
}

int told(const std::string& text) {
  std::cout << text << std::flush;
  return std::cout ? 0 : kBadUsage;
}

void take(const OptionSpec& spec, std::string_view argument, const ProgramKind& program, Options& options) {
  using namespace std::string_literals;
  const std::string name = "--"s + spec.name;
  if (!spec.available) throw Misuse(name + " is still to come");
  if (spec.name == "help"s) {
    options.done = told(help(program));
  } else if (spec.name == "version"s) {
    options.done = told(program.name + " "s + applicationVersion() + '\n');
  } else if (spec.name == "board"s) {
    options.board = boardNamed(argument);
  } else {
    std::string& value = options.*spec.value;
    if (argument.empty()) throw Misuse(name + " names no " + spec.argument);
    if (!value.empty()) throw Misuse(name + " stands there twice");
    value = argument;
    if (&value == &options.serve) checkAddress(value);
  }
}

void takeWires(Options& options) {
  if (options.wires.empty()) return;
  if (options.board != BoardKind::gpio) throw Misuse("--wires goes with --board gpio");
  try {
    options.lines = readGpioWires(options.wires);
  } catch (const Fault& fault) {
    throw Misuse(fault.what());
  }
}

void takeScript(std::span<char*> words, Options& options) {
  if (words.empty()) return;
  if (words.size() > 1) throw Misuse(inQuotes(words.back()) + " is one word too many");
  options.script = words.front();
  if (options.script.empty()) throw Misuse("an empty word names no FILE");
}

Options parsed(const ProgramKind& program, std::vector<char*>& words) {
  std::vector<option> known;
  for (const OptionSpec& spec : kOptions) {
    known.push_back({spec.name, spec.argument == nullptr ? no_argument : required_argument, nullptr, 0});
  }
  known.push_back({});
  Options options;
  options.board = program.board;
  const int count = static_cast<int>(words.size());
  words.push_back(nullptr);
  for (int place = 0; !options.done;) {
    const int found = ::getopt_long(count, words.data(), ":h", known.data(), &place);
    if (found == -1) break;
    const std::string word = optopt != 0 ? std::string("\"-") + static_cast<char>(optopt) + '"'
                                         : inQuotes(words[static_cast<std::size_t>(optind - 1)]);
    if (found == ':') throw Misuse(word + " wants an argument");
    if (found == '?') throw Misuse(word + " is no option");
    const OptionSpec& spec = found == 'h'
                                 ? *std::ranges::find(kOptions, std::string_view("help"), &OptionSpec::name)
                                 : kOptions[place];
    take(spec, optarg == nullptr ? "" : optarg, program, options);
  }
  if (!options.done) {
    takeWires(options);
    takeScript(
        std::span(words).subspan(static_cast<std::size_t>(optind), static_cast<std::size_t>(count - optind)),
        options);
  }
  return options;
}

}  // namespace

int failed(const ProgramKind& program, const std::string& why) {
  std::cerr << program.name << ": " << why << '\n';
  return kBadUsage;
}

std::vector<char*> takeToolkitWords(std::vector<char*>& words) {
  std::vector<char*> ours{words.front()};
  std::vector<char*> theirs{words.front()};
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string_view word = words[i];
    const ToolkitOption* const option = toolkitOption(word);
    const bool both =
        option != nullptr ? option->takesValue && word.find('=') == std::string_view::npos : wantsNext(word);
    if (word == "--") {
      ours.insert(ours.end(), words.begin() + static_cast<std::ptrdiff_t>(i), words.end());
      break;
    }
    // Without its value it is nobody's, and told as such.
    const bool isTheirs = option != nullptr && (!both || i + 1 < words.size());
    std::vector<char*>& list = isTheirs ? theirs : ours;
    list.push_back(words[i]);
    if (both && i + 1 < words.size()) list.push_back(words[++i]);
  }
  words = std::move(ours);
  return theirs;
}

Options readOptions(const ProgramKind& program, std::vector<char*> words) {
  opterr = 0;
  try {
    return parsed(program, words);
  } catch (const Misuse& misuse) {
    std::cerr << usage(program) << ": " << misuse.why() << " (--help lists the options)\n";
    Options options;
    options.done = kBadUsage;
    return options;
  }
}

}  // namespace tessarine
