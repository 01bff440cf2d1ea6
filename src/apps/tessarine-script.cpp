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
#include "apps/ProbedBoard.h"
#include "apps/ReachReader.h"
#include "apps/Recording.h"
#include "apps/RemoteControl.h"
#include "apps/TraceFile.h"
#include "board/Reach.h"
#include "script/Interpreter.h"
#include "script/Snapshot.h"
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

constexpr int kPortGaveUp = 3;  // exit status
constexpr std::size_t kMostBytes = 64UL << 20U;

struct Script {
  std::istream* text;
  std::string name;     // in messages
  bool asksForLatches;  // so that a sweep of days that never asks does not pile them up
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
  WatchfulTime realTime;
  const bool isVirtual = options.board == BoardKind::virtualBoard;
  // Clients live in real time.
  const bool timeIsVirtual = isVirtual && options.serve.empty();
  script::ScriptTime& time = timeIsVirtual ? static_cast<script::ScriptTime&>(virtualTime) : realTime;
  script::ScriptScreen screen(time, std::cout);
  RemoteControl remote(kProgram, options);
  const auto link = linkToBoard(options, remote.screenOver(screen),
                                {.microseconds = [&time] { return time.now(); },
                                 .clock = timeIsVirtual ? &virtualTime : nullptr,
                                 .bell = {}});
  link->onNotice([](const std::string& text) { (void)failed(kProgram, text); });
  screen.afterMessage = [advice = PortAdvice(*link)]() mutable { advice.tell(); };
  Program program(link->platform());
  link->connect(program);
  std::optional<ProbedBoard> probed;
  if (link->virtualBoard() != nullptr) {
    probed.emplace(*link->virtualBoard());
    if (script.asksForLatches) link->board().collectLatches();
  }
  trace.listen(*link);
  const auto server = remote.connect(program, *link);
  std::optional<Recording> recording;
  if (!options.record.empty()) {
    recording.emplace(options.record, *link, program,
                      Recording::Clock{[&time] { return time.now(); }, timeIsVirtual},
                      [](const std::string& why) { (void)failed(kProgram, why); });
    recording->open();
  }

  program.start();
  ReachReader reach;
  Interpreter interpreter({program.forms, program.door, screen, probed ? &*probed : nullptr, std::cout,
                           std::cerr, [&program] { return script::snapshot(program); },
                           [&] { return board::describeReach(reach.reach(program)); }},
                          *script.text, script.name);
  int status = interpreter.run();
  if (server && !screen.ended()) {
    screen.forgetActions();
    serveUntilEnd(*server, realTime, screen);
  }
  if (!isVirtual && program.module.WritesGivenUp > 0) {
    (void)failed(kProgram, std::to_string(program.module.WritesGivenUp) +
                               " writes to the port were given up: it did not give back what was written");
    status = kPortGaveUp;
  }
  const bool isRecorded = !recording || recording->finish();
  return trace.finish() && isRecorded ? status : kBadUsage;
}

// The text of a file, a byte beyond the limit at most; nothing if it cannot be read.
std::optional<std::string> contents(const std::string& path) {
  std::ifstream file(path);
  if (!file) return {};
  try {
    std::string text;
    for (char chunk[65536];
         text.size() <= kMostBytes && (file.read(chunk, sizeof chunk), file.gcount() > 0);) {
      text.append(chunk, static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad()) return {};
    return text;
  } catch (const std::ios::failure&) {  // a directory opens, but does not read
    return {};
  }
}

int run(const Options& options) {
  Script script{.text = &std::cin, .name = "stdin", .asksForLatches = true};
  std::istringstream file;
  if (!options.serve.empty() && options.script.empty()) {
    script.text = &file;  // none: clients take its place
    script.asksForLatches = false;
  } else if (!options.script.empty() && options.script != "-") {
    auto text = contents(options.script);
    if (!text) return failed(kProgram, options.script + " cannot be read");
    if (text->size() > kMostBytes) return failed(kProgram, options.script + " is larger than 64 MB");
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
