#include "apps/ScriptPlayer.h"

#include <cstdint>
#include <limits>
#include <ostream>
#include <sstream>
#include <utility>

#include "board/Reach.h"
#include "script/Interpreter.h"
#include "script/ScriptText.h"
#include "script/Snapshot.h"

namespace tessarine {
namespace {

constexpr double kSecond = 1e6;  // in microseconds
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

// Hands on what is written as often as it is flushed.
class Told : public std::stringbuf {
 public:
  explicit Told(std::function<void(const std::string&)> tell) : tell_(std::move(tell)) {}

 protected:
  int sync() override {
    const std::string text = str();
    str({});
    if (!text.empty()) tell_(text);
    return 0;
  }

 private:
  std::function<void(const std::string&)> tell_;
};

}  // namespace

ScriptPlayer::ScriptPlayer(desktop::Desktop& desktop, Program& program, BoardLink& link,
                           script::WaitedTime& time)
    : desktop_(desktop), program_(program), link_(link), time_(time) {
  if (link.virtualBoard() != nullptr) board_.emplace(*link.virtualBoard());
}

desktop::ScriptEnd ScriptPlayer::play(const std::string& text, const std::string& name,
                                      desktop::ScriptRun& run) {
  run_ = &run;
  failed_ = false;
  Told printed([&run](const std::string& lines) { run.prints(lines); });
  Told wrong([&run](const std::string& lines) { run.complains(lines); });
  std::ostream out(&printed);
  std::ostream errors(&wrong);
  desktop_.runOtherEvents = [this] { runDue(); };
  desktop_.untilOtherEvents = [this] { return static_cast<double>(actions_.next(kNever) - now()) / kSecond; };
  desktop_.operateModal = [this](forms::Form& form) {
    if (operateModal) operateModal(form);
  };
  std::string told;
  desktop_.answer = [&](const std::string& message, Icon icon, const std::string& title) {
    out << script::messageLine(message, icon, title);
    // What would stand under it is told once.
    const std::string more = desktop_.remark ? desktop_.remark(message) : std::string();
    if (!more.empty() && more != told) out << (told = more) << '\n';
    out << std::flush;
    return true;
  };
  if (board_ && text.find("latches") != std::string::npos) link_.board().collectLatches();
  std::istringstream lines(text);
  const auto status = script::Interpreter({program_.forms, program_.door, *this, board_ ? &*board_ : nullptr,
                                           out, errors, [this] { return script::snapshot(program_); },
                                           [this] { return board::describeReach(reach_.reach(program_)); }},
                                          lines, name)
                          .run();
  actions_.clear();
  desktop_.runOtherEvents = nullptr;
  desktop_.untilOtherEvents = nullptr;
  desktop_.operateModal = nullptr;
  desktop_.answer = nullptr;
  if (status == script::Interpreter::kRefused) return desktop::ScriptEnd::refused;
  return status == script::Interpreter::kDone ? desktop::ScriptEnd::done : desktop::ScriptEnd::expectFailed;
}

bool ScriptPlayer::ended() const { return failed_ || desktop_.hasEnded() || run_->isStopped(); }

void ScriptPlayer::comesTo(int line) {
  run_->comesTo(line);
  desktop_.breathe();
}

void ScriptPlayer::at(std::int64_t time, std::function<void()> action) {
  actions_.add(time, std::move(action));
}

void ScriptPlayer::runEventsUntil(std::int64_t time) {
  time_.beginSpan(time - now());
  try {
    do {
      desktop_.sleepUntilEvent(static_cast<double>(time - now()) / kSecond);
      desktop_.processEvents();
    } while (now() < time && !ended());
  } catch (...) {
    time_.waitEnds();
    throw;
  }
  time_.waitEnds();
}

void ScriptPlayer::runDue() {
  while (!ended() && actions_.runOne(now())) continue;
}

}  // namespace tessarine
