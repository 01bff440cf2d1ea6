#include "forms/Operator.h"

#include <cstddef>
#include <exception>
#include <utility>

#include "forms/Controls.h"
#include "platform/Fault.h"

namespace tessarine::forms {

namespace {

// Far above what a hand can do, and far below what the stack holds.
constexpr int kDeepest = 100;

}  // namespace

Operator::Refusal Operator::refusal(const Control& control) const {
  const std::string name = forms_.nameOf(control);
  if (!control.isVisible()) return name + " is not visible";
  if (!control.isEnabled()) return name + " is disabled";
  if (const Form* modal = forms_.modal(); modal && modal != &control.form()) {
    return name + " takes no input while " + modal->name() + " is open";
  }
  return {};
}

// An action begun in the waits of others adds to their stack; counted here, whatever it throws.
class Operator::Depth {
 public:
  explicit Depth(Operator& door) : door_(door) { ++door_.depth_; }
  ~Depth() {
    if (--door_.depth_ == 0) door_.toldTooDeep_ = false;
  }
  Depth(const Depth&) = delete;
  Depth& operator=(const Depth&) = delete;

 private:
  Operator& door_;
};

void Operator::run(const Action& action, const Event& handler) {
  for (DoorWatch* const watch : watches_) watch->begins(action);
  run([&] {
    if (action.deed != Deed::close) forms_.activate(action.control.form());
    if (handler) handler();
  });
  for (DoorWatch* const watch : watches_) watch->ends();
}

void Operator::run(const Event& handler) {
  const Depth depth(*this);
  try {
    if (depth_ > kDeepest) {
      if (!std::exchange(toldTooDeep_, true)) {
        screen_.messageBox("More than " + std::to_string(kDeepest) +
                               " actions wait for one another: what is begun now is left out until they end",
                           Icon::critical);
      }
      return;
    }
    try {
      if (handler) handler();
    } catch (const std::exception& fault) {
      screen_.messageBox(fault.what(), Icon::critical);
    }
  } catch (const ProgramEnded&) {
    // The program ends: whoever runs the windows' events sees it there.
  }
}

Operator::Refusal Operator::carryOut(const Action& action, const Control::Effect& effect) {
  if (auto why = refusal(action.control)) return why;
  if (!effect.refusal.empty()) return forms_.nameOf(action.control) + ' ' + effect.refusal;
  run(action, effect.run);
  return {};
}

Operator::Refusal Operator::click(Control& control) {
  return carryOut({Deed::click, control}, control.onClick());
}

Operator::Refusal Operator::doubleClick(Control& control) {
  return carryOut({Deed::doubleClick, control}, control.onDoubleClick());
}

Operator::Refusal Operator::type(Control& control, std::string_view text) {
  return carryOut({Deed::set, control, std::string(text)}, control.onType(text));
}

Operator::Refusal Operator::pick(Control& control, int item) {
  const auto* const list = dynamic_cast<const ListControl*>(&control);
  return carryOut({Deed::pick, control, list ? list->itemText(item) : ""}, control.onPick(item));
}

Operator::Refusal Operator::set(Control& control, std::string_view value) {
  return carryOut({Deed::set, control, std::string(value)}, control.onSet(value));
}

Operator::Refusal Operator::activate(Form& form) {
  if (auto why = refusal(form)) return why;
  run({Deed::activate, form}, {});
  return {};
}

Operator::Refusal Operator::close(Form& form) {
  if (auto why = refusal(form)) return why;
  run({Deed::close, form}, [&] { form.Form_QueryUnload(); });
  return {};
}

}  // namespace tessarine::forms
