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

namespace tessarine::script {

class ScriptScreen final : public Screen {
 public:
  ScriptScreen(ScriptTime& time, std::ostream& out) : time_(time), out_(out) {}

  // Answered at once; no time passes and no event runs.
  void messageBox(const std::string& text, Icon icon, const std::string& title) override;
  void showModal(forms::Form& form) override;
  void repaint(forms::Control& /*control*/) override {}
  void processEvents() override;
  void sleepUntilEvent(double seconds) override;
  [[noreturn]] void endProgram() override;

  [[nodiscard]] bool ended() const { return ended_; }
  [[nodiscard]] std::int64_t now() const { return time_.now(); }

  // Runs `action` when events next run at or after `time`; those of one time in the order of their coming.
  void at(std::int64_t time, std::function<void()> action);
  // None of what was put down is carried out any more.
  void forgetActions() { actions_.clear(); }
  // Lets events run up to `time`, stopping at the time of each action.
  void runEventsUntil(std::int64_t time);

  // Called behind each message, where set.
  std::function<void()> afterMessage;
  // Runs with the actions whenever events run, where set.
  std::function<void()> runOtherEvents;
  // Works a form that the program has opened modally until it is hidden.
  std::function<void(forms::Form&)> operateModal;

 private:
  void throwIfEnded() const;

  ScriptTime& time_;
  std::ostream& out_;
  Timetable actions_;
  bool ended_ = false;
};

}  // namespace tessarine::script
