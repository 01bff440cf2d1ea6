// The command line of the three programs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/GpioWires.h"

namespace tessarine {

// The way out to the board.
enum class BoardKind { hardware, virtualBoard, gpio };

// One of the three programs.
struct ProgramKind {
  const char* name;
  BoardKind board;   // to begin with
  bool hasWindow;    // and so takes the toolkit's own options
  const char* does;  // what it is for, a sentence
};

struct Options {
  BoardKind board = BoardKind::virtualBoard;
  // Each empty where it was not given.
  std::string wires;
  std::string serve;
  std::string record;
  std::string trace;
  GpioWires lines = usualGpioWires();  // those of `wires`, where it was given
  std::string script;                  // "-" is standard input, and so is none where nothing is served
  // The exit status of a program that has nothing more to do: --help and --version were answered, or bad
  // usage was told on standard error.
  std::optional<int> done;
};

inline constexpr int kBadUsage = 2;

// Tells on standard error, in one line, why the program ends; gives the exit status for it.
int failed(const ProgramKind& program, const std::string& why);

// Takes the words that are the toolkit's out of `words`, whose first is the program's name: they need a
// display to be read, and ours do not. Both lists then begin with that name.
[[nodiscard]] std::vector<char*> takeToolkitWords(std::vector<char*>& words);

// Reads the rest.
[[nodiscard]] Options readOptions(const ProgramKind& program, std::vector<char*> words);

}  // namespace tessarine
