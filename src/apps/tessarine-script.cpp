// Runs a script on the program: on the virtual board, where waits take no time, or on the host's own
// hardware.
#include <cstddef>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/BoardLink.h"
#include "apps/Options.h"
#include "apps/TraceFile.h"
#include "board/NumberText.h"
#include "script/Interpreter.h"
#include "window/Program.h"

namespace tessarine {
namespace {

using script::Interpreter;

constexpr ProgramKind kProgram{
    .name = "tessarine-script",
    .board = BoardKind::virtualBoard,
    .hasWindow = false,
    .does =
        "Runs the script FILE, or standard input, on a virtual board or on this computer's own ways out."};

struct Script {
  std::istream* text;
  std::string name;     // in messages
  bool asksForLatches;  // so that a sweep of days that never asks does not pile them up
};

// The virtual board as scripts see it.
class BoardOnBench : public script::BoardProbe {
 public:
  explicit BoardOnBench(board::VirtualBoard& bench) : bench_(bench) {}

  std::vector<std::string> takeLatches() override { return bench_.board().takeLatches(); }
  std::string describe() override { return bench_.describe(); }

  // "history", milliseconds since the start of the script, output frequency and lock: a line for each
  // change.
  std::string history() override {
    const auto& points = bench_.board().history();
    std::string text;
    for (std::size_t i = 0; i < points.size(); ++i) {
      text += "history\t" + script::millisecondText(bench_.board().firstWrite() + points[i].time) + '\t' +
              board::fixedText(points[i].outputMHz, 6) + " MHz\t" + (points[i].locked ? "1\n" : "0\n");
    }
    return text;
  }

  std::optional<std::string> fault(std::string_view name) override {
    if (const auto fault = board::boardFaultNamed(name)) {
      bench_.setFault(*fault);
      return {};
    }
    std::string known;
    for (const auto& each : board::boardFaults()) known += ' ' + std::string(each.name);
    return "there is no fault \"" + std::string(name) + "\" among" + known;
  }

 private:
  board::VirtualBoard& bench_;
};

// Tells what is in the way of a write, and what helps, once for each reason: the message of a failed write
// names the address alone.
class PortAdvice {
 public:
  explicit PortAdvice(const BoardLink& link) : link_(link) {}
  void tell() {
    const std::string why = link_.whyNotOpen();
    if (why.empty() || why == told_) return;
    std::cerr << kProgram.name << ": " << why << std::endl;
    told_ = why;
  }

 private:
  const BoardLink& link_;
  std::string told_;
};

int runScript(const Options& options, const Script& script) {
  TraceFile trace(options.trace, [](const std::string& why) { (void)failed(kProgram, why); });
  if (!trace.open()) return failed(kProgram, options.trace + " cannot be written");
  script::VirtualTime virtualTime;
  script::RealTime realTime;
  const bool isVirtual = options.board == BoardKind::virtualBoard;
  script::ScriptTime& time = isVirtual ? static_cast<script::ScriptTime&>(virtualTime) : realTime;
  script::ScriptScreen screen(time, std::cout);
  const auto link = linkToBoard(options, screen,
                                {.microseconds = [&time] { return time.now(); },
                                 .clock = isVirtual ? &virtualTime : nullptr,
                                 .bell = {}});
  screen.afterMessage = [advice = PortAdvice(*link)]() mutable { advice.tell(); };
  Program program(link->platform());
  link->connect(program);
  std::optional<BoardOnBench> bench;
  if (link->virtualBoard() != nullptr) {
    bench.emplace(*link->virtualBoard());
    if (script.asksForLatches) link->board().collectLatches();
  }
  trace.listen(*link);

  program.start();
  Interpreter interpreter(
      {program.forms, program.door, screen, bench ? &*bench : nullptr, std::cout, std::cerr}, *script.text,
      script.name);
  const int status = interpreter.run();
  return trace.finish() ? status : kBadUsage;
}

// The text of a file; nothing if it cannot be read.
std::optional<std::string> contents(const std::string& path) {
  std::ifstream file(path);
  if (!file) return {};
  try {
    return std::string(std::istreambuf_iterator<char>(file), {});
  } catch (const std::ios::failure&) {  // a directory opens, but does not read
    return {};
  }
}

int run(const Options& options) {
  Script script{.text = &std::cin, .name = "stdin", .asksForLatches = true};
  std::istringstream file;
  if (!options.script.empty()) {
    auto text = contents(options.script);
    if (!text) return failed(kProgram, options.script + " cannot be read");
    script = {
        .text = &file, .name = options.script, .asksForLatches = text->find("latches") != std::string::npos};
    file.str(std::move(*text));
  }
  const int status = runScript(options, script);
  if (!std::cout.flush()) return failed(kProgram, "standard output cannot be written");
  return status;
}

}  // namespace
}  // namespace tessarine

int main(int count, char** words) {
  using namespace tessarine;
  std::ios::sync_with_stdio(false);
  const Options options = readOptions(kProgram, {words, words + count});
  if (options.done) return *options.done;
  try {
    return run(options);
  } catch (const std::exception& fault) {
    return failed(kProgram, fault.what());
  }
}
