#include "script/ScriptScreen.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "forms/Form.h"
#include "platform/Fault.h"
#include "script/ScriptText.h"

namespace tessarine::script {
namespace {

// Keeps a form modal for as long as it lives.
class Modality {
 public:
  explicit Modality(forms::Form& form) : forms_(form.forms()) { forms_.beginModal(form); }
  ~Modality() { forms_.endModal(); }
  Modality(const Modality&) = delete;
  Modality& operator=(const Modality&) = delete;

 private:
  forms::FormList& forms_;
};

}  // namespace

void ScriptScreen::messageBox(const std::string& text, Icon icon, const std::string& title) {
  out_ << "message\t" << (icon == Icon::critical ? "critical" : "plain") << '\t' << escaped(title) << '\t'
       << escaped(text) << '\n'
       << std::flush;
  if (afterMessage) afterMessage();
}

void ScriptScreen::showModal(forms::Form& form) {
  {
    const Modality modality(form);
    form.Show();
    if (operateModal) operateModal(form);
  }
  throwIfEnded();
}

void ScriptScreen::processEvents() {
  throwIfEnded();
  while (!actions_.empty() && actions_.begin()->first <= now()) {
    const auto action = std::move(actions_.begin()->second);
    actions_.erase(actions_.begin());  // before it runs: it may wait, and so come back here
    action();
    throwIfEnded();
  }
  if (!runOtherEvents) return;
  runOtherEvents();
  throwIfEnded();
}

void ScriptScreen::sleepUntilEvent(double seconds) {
  constexpr double kMicroseconds = 1e6;
  const auto span = std::max<std::int64_t>(1, std::llround(seconds * kMicroseconds));
  time_.sleepUntil(nextStop(now() + span));
}

void ScriptScreen::endProgram() {
  ended_ = true;
  throw ProgramEnded{};
}

void ScriptScreen::at(std::int64_t time, std::function<void()> action) {
  actions_.emplace(time, std::move(action));
}

void ScriptScreen::runEventsUntil(std::int64_t time) {
  processEvents();
  while (now() < time) {
    time_.sleepUntil(nextStop(time));
    processEvents();
  }
}

std::int64_t ScriptScreen::nextStop(std::int64_t deadline) const {
  return actions_.empty() ? deadline : std::min(deadline, actions_.begin()->first);
}

void ScriptScreen::throwIfEnded() const {
  if (ended_) throw ProgramEnded{};
}

}  // namespace tessarine::script
