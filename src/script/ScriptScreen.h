// The screen of a program that a script operates: message boxes become lines of output, and events are the
// actions that the script has put down for a time.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

#include "platform/Platform.h"
#include "platform/Timetable.h"
#include "script/ScriptTime.h"
#include "script/Stage.h"

namespace tessarine::script {

class ScriptScreen final : public Screen, public Stage {
 public:
  ScriptScreen(ScriptTime& time, std::ostream& out) : time_(time), out_(out) {}

  // Answered at once; no time passes and no event runs.
  void messageBox(const std::string& text, Icon icon, const std::string& title) override;
  void showModal(forms::Form& form) override;
  void repaint(forms::Control& /*control*/) override {}
  void processEvents() override;
  void sleepUntilEvent(double seconds) override;
  [[noreturn]] void endProgram() override;

  [[nodiscard]] bool ended() const override { return ended_; }
  [[nodiscard]] std::int64_t now() const override { return time_.now(); }
  void fail() override { endProgram(); }

  void at(std::int64_t time, std::function<void()> action) override;
  // None of what was put down is carried out any more.
  void forgetActions() { actions_.clear(); }
  void runEventsUntil(std::int64_t time) override;

  // Called behind each message, where set.
  std::function<void()> afterMessage;
  // Runs with the actions whenever events run, where set.
  std::function<void()> runOtherEvents;

 private:
  void throwIfEnded() const;

  ScriptTime& time_;
  std::ostream& out_;
  Timetable actions_;
  bool ended_ = false;
};

}  // namespace tessarine::script
