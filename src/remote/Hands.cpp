#include "remote/Hands.h"

#include <algorithm>
#include <utility>

#include "remote/Syntax.h"

namespace tessarine::remote {

using forms::Control;

Hands::Hands(forms::FormList& forms, forms::Operator& door, std::vector<const Control*> starters)
    : forms_(forms), door_(door), starters_(std::move(starters)) {
  door_.watch(*this);
}

Hands::~Hands() { door_.unwatch(*this); }

void Hands::click(Actor& actor, Control& control) {
  act(actor, control, [&] { return door_.click(control); });
}

void Hands::set(Actor& actor, Control& control, std::string_view value) {
  act(actor, control, [&] { return door_.set(control, value); });
}

Control& Hands::control(std::string_view name) const {
  if (Control* const found = forms_.find(name)) return *found;
  throw Refused{-224, "there is no control " + shown(name)};
}

bool Hands::isRunning(const Control& control) const {
  return std::ranges::any_of(running_, [&](const Running& each) { return each.clicked == &control; });
}

void Hands::letOthersIn() {
  if (!running_.empty()) running_.back().holds = false;
}

void Hands::begins(const forms::Action& action) {
  Actor* const actor = std::exchange(next_, nullptr);
  const Control* const clicked = action.deed == forms::Deed::click ? &action.control : nullptr;
  const bool starts = std::ranges::find(starters_, clicked) != starters_.end();
  running_.push_back({.actor = actor, .clicked = clicked, .holds = actor != nullptr && !starts});
}

void Hands::act(Actor& actor, const Control& control,
                const std::function<forms::Operator::Refusal()>& action) {
  awaitOthers();
  const forms::Form* const modal = forms_.modal();
  const bool isShut =
      !control.isVisible() || !control.isEnabled() || (modal != nullptr && modal != &control.form());
  next_ = &actor;
  const auto refusal = action();
  next_ = nullptr;
  if (refusal) throw Refused{isShut ? -221 : -224, *refusal};
}

}  // namespace tessarine::remote
