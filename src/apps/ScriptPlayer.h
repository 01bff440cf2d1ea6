// Plays scripts in the windows of the program, before the operator's eyes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "apps/BoardLink.h"
#include "apps/ProbedBoard.h"
#include "apps/ReachReader.h"
#include "desktop/Desktop.h"
#include "desktop/board/ScriptFeed.h"
#include "platform/Timetable.h"
#include "script/Stage.h"
#include "script/WaitedTime.h"
#include "window/Program.h"

namespace tessarine {

class ScriptPlayer final : public script::Stage {
 public:
  // `time` is told of the program's waits: what a script has put down for a time comes in the same wait as on
  // a virtual clock.
  ScriptPlayer(desktop::Desktop& desktop, Program& program, BoardLink& link, script::WaitedTime& time);

  // Carries a script out. Messages are answered and told to `run`.
  desktop::ScriptEnd play(const std::string& text, const std::string& name, desktop::ScriptRun& run);

  [[nodiscard]] std::int64_t now() const override { return time_.now(); }
  void at(std::int64_t time, std::function<void()> action) override;
  void runEventsUntil(std::int64_t time) override;
  [[nodiscard]] bool ended() const override;
  void fail() override { failed_ = true; }
  void comesTo(int line) override;
  [[nodiscard]] bool endsWithScript() const override { return false; }

 private:
  void runDue();

  desktop::Desktop& desktop_;
  Program& program_;
  BoardLink& link_;
  script::WaitedTime& time_;
  ReachReader reach_;
  std::optional<ProbedBoard> board_;
  desktop::ScriptRun* run_ = nullptr;
  Timetable actions_;
  bool failed_ = false;
};

}  // namespace tessarine
