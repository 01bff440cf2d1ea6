#include "script/ScriptScreen.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "forms/Form.h"
#include "platform/Fault.h"
#include "script/ScriptText.h"

namespace tessarine::script {

void ScriptScreen::messageBox(const std::string& text, Icon icon, const std::string& title) {
  out_ << messageLine(text, icon, title) << std::flush;
  if (afterMessage) afterMessage();
}

void ScriptScreen::showModal(forms::Form& form) {
  {
    const forms::Modality modality(form);
    form.Show();
    if (operateModal) operateModal(form);
  }
  throwIfEnded();
}

void ScriptScreen::processEvents() {
  throwIfEnded();
  while (actions_.runOne(now())) throwIfEnded();
  if (!runOtherEvents) return;
  runOtherEvents();
  throwIfEnded();
}

void ScriptScreen::sleepUntilEvent(double seconds) {
  constexpr double kMicroseconds = 1e6;
  const auto span = std::max<std::int64_t>(1, std::llround(seconds * kMicroseconds));
  time_.sleepUntil(actions_.next(now() + span));
}

void ScriptScreen::endProgram() {
  ended_ = true;
  throw ProgramEnded{};
}

void ScriptScreen::at(std::int64_t time, std::function<void()> action) {
  actions_.add(time, std::move(action));
}

void ScriptScreen::runEventsUntil(std::int64_t time) {
  processEvents();
  while (now() < time) {
    time_.sleepUntil(actions_.next(time));
    processEvents();
  }
}

void ScriptScreen::throwIfEnded() const {
  if (ended_) throw ProgramEnded{};
}

}  // namespace tessarine::script
