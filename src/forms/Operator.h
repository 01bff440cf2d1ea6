// The one door of the operator's actions. The desktop, scripts and tests come in here alike.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Form.h"
#include "platform/Platform.h"

namespace tessarine::forms {

enum class Deed { click, doubleClick, set, pick, activate, close };

// What the operator does: to a control, or to a form as a whole. `value` is what a field is set to: a text,
// "0" or "1"; or the text of the item that is picked.
struct Action {
  Deed deed;
  Control& control;
  std::string value = {};
};

// Watches the door. Actions nest: a handler may wait, and so let another action in.
class DoorWatch {
 public:
  virtual ~DoorWatch() = default;
  // Let in, and about to run.
  virtual void begins(const Action& action) = 0;
  // The innermost one is over, whatever it threw, its message included.
  virtual void ends() = 0;
};

class Operator {
 public:
  Operator(FormList& forms, Screen& screen) : forms_(forms), screen_(screen) {}

  // Why an action could not be carried out ("VCOText is not visible"); nothing when it was.
  using Refusal = std::optional<std::string>;

  // Clicks a button, label, menu entry, option button or check box.
  Refusal click(Control& control);
  Refusal doubleClick(Control& control);
  // Types a whole text into a text box or an editable combo box.
  Refusal type(Control& control, std::string_view text);
  // Picks the item of a list by its position.
  Refusal pick(Control& control, int item);
  // Sets whatever the control holds: a text, an item, "0" or "1".
  Refusal set(Control& control, std::string_view value);
  // The operator brings a window to the front, or closes it.
  Refusal activate(Form& form);
  Refusal close(Form& form);

  // Runs what is no action of the operator the way a handler runs: what it throws ends here. A fault becomes
  // one message box. Beyond a hundred actions begun in the waits of one another a message, once, stands in
  // place of the action.
  void run(const Event& handler);

  void watch(DoorWatch& watch) { watches_.push_back(&watch); }
  void unwatch(DoorWatch& watch) { std::erase(watches_, &watch); }

 private:
  void run(const Action& action, const Event& handler);
  Refusal carryOut(const Action& action, const Control::Effect& effect);
  [[nodiscard]] Refusal refusal(const Control& control) const;

  class Depth;

  FormList& forms_;
  Screen& screen_;
  std::vector<DoorWatch*> watches_;
  int depth_ = 0;  // actions that wait for those begun in their waits
  bool toldTooDeep_ = false;
};

}  // namespace tessarine::forms
