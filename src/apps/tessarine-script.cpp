// Runs a script on the program: on the virtual board, where waits take no time, or on the host's own
// hardware.
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "apps/BoardCable.h"
#include "apps/BoardTap.h"
#include "apps/VirtualHost.h"
#include "board/NumberText.h"
#include "platform/linux/LeaveOnSignal.h"
#include "platform/linux/LinuxPlatform.h"
#include "script/Interpreter.h"
#include "window/Program.h"

namespace tessarine {
namespace {

using script::Interpreter;

constexpr const char* kUsage =
    "usage: tessarine-script [--board virtual|hardware] [--trace FILE.vcd] [FILE]\n"
    "Runs the script FILE, or standard input, on the virtual board or on the host's port or USB interface.\n"
    "--trace saves what went over the three wires.\n"
    "Exit status: 0, 1 after a failed expect, 2 for a line that cannot be carried out.\n";
constexpr int kBadUsage = 2;

struct Options {
  bool help = false;
  bool hardware = false;
  std::string trace;
  std::string file;  // empty: standard input
};

// Nothing for arguments that make no sense.
std::optional<Options> parsed(const std::vector<std::string_view>& arguments) {
  Options options;
  for (auto word = arguments.begin(); word != arguments.end(); ++word) {
    const bool more = word + 1 != arguments.end();
    if (*word == "--help" || *word == "-h") {
      options.help = true;
    } else if (*word == "--board" && more) {
      ++word;
      if (*word != "virtual" && *word != "hardware") return {};
      options.hardware = *word == "hardware";
    } else if (*word == "--trace" && more && options.trace.empty()) {
      options.trace = *++word;
    } else if (*word != "-" && !word->empty() && word->front() == '-') {
      return {};
    } else if (options.file.empty() && !word->empty()) {
      options.file = *word;
    } else {
      return {};
    }
  }
  if (options.file == "-") options.file.clear();
  return options;
}

int failed(const std::string& what) {
  std::cerr << "tessarine-script: " << what << '\n';
  return kBadUsage;
}

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

// The file that --trace names.
class TraceFile {
 public:
  // From now on the file gets what goes over the board's wires. False if it cannot be written.
  [[nodiscard]] bool start(const std::string& path, board::EvaluationBoard& board) {
    file_.open(path);
    board.stream(&writer_.emplace(file_));
    return file_.good();
  }

  // Closes the file. False if not all of it could be written.
  [[nodiscard]] bool finish(const board::EvaluationBoard& board) {
    if (!writer_) return true;
    writer_->finish(board.now());
    file_.close();
    return file_.good();
  }

 private:
  std::ofstream file_;
  std::optional<board::VcdWriter> writer_;
};

int runOnVirtualBoard(const Script& script, const std::string& tracePath) {
  script::VirtualTime time;
  script::ScriptScreen screen(time, std::cout);
  BoardCable cable([&time] { return time.now(); });
  TraceFile trace;
  VirtualHost host;
  Platform platform{cable.board(), cable.board(), cable.board(), host, time, screen};
  Program program(platform);
  cable.connect(program);
  BoardOnBench bench(cable.board());
  if (script.asksForLatches) cable.board().board().collectLatches();
  if (!tracePath.empty() && !trace.start(tracePath, cable.board().board()))
    return failed(tracePath + " cannot be written");

  program.start();
  Interpreter interpreter({program.forms, program.door, screen, &bench, std::cout, std::cerr}, *script.text,
                          script.name);
  const int status = interpreter.run();
  return trace.finish(cable.board().board()) ? status : failed(tracePath + " cannot be written in full");
}

int runOnHardware(const Script& script, const std::string& tracePath) {
  LinuxPlatform host;
  const LeaveOnSignal guard(host);
  script::RealTime time;
  script::ScriptScreen screen(time, std::cout);
  // The message of a failed write names the address alone; what is in the way, and what helps, stands here.
  screen.afterMessage = [&host, told = std::string()]() mutable {
    const std::string why = host.whyNotOpen();
    if (why.empty() || why == told) return;
    std::cerr << "tessarine-script: " << why << std::endl;
    told = why;
  };
  BoardTap tap(host.with(screen), [&time] { return time.now(); });
  TraceFile trace;
  if (!tracePath.empty()) {
    if (!trace.start(tracePath, tap.board())) return failed(tracePath + " cannot be written");
    tap.listen();
  }

  Platform platform = tap.platform();
  Program program(platform);
  tap.connect(program);
  program.start();
  Interpreter interpreter({program.forms, program.door, screen, nullptr, std::cout, std::cerr}, *script.text,
                          script.name);
  const int status = interpreter.run();
  return trace.finish(tap.board()) ? status : failed(tracePath + " cannot be written in full");
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
  if (!options.file.empty()) {
    auto text = contents(options.file);
    if (!text) return failed(options.file + " cannot be read");
    script = {
        .text = &file, .name = options.file, .asksForLatches = text->find("latches") != std::string::npos};
    file.str(std::move(*text));
  }
  const int status =
      options.hardware ? runOnHardware(script, options.trace) : runOnVirtualBoard(script, options.trace);
  if (!std::cout.flush()) return failed("standard output cannot be written");
  return status;
}

}  // namespace
}  // namespace tessarine

int main(int count, char** words) {
  std::ios::sync_with_stdio(false);
  const auto options = tessarine::parsed({words + 1, words + count});
  if (!options) {
    std::cerr << tessarine::kUsage;
    return tessarine::kBadUsage;
  }
  if (options->help) {
    std::cout << tessarine::kUsage;
    return 0;
  }
  try {
    return tessarine::run(*options);
  } catch (const std::exception& fault) {
    return tessarine::failed(fault.what());
  }
}
