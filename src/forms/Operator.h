// The one door of the operator's actions. The desktop, scripts and tests come in here alike.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/Form.h"
#include "platform/Platform.h"

namespace tessarine::forms {

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
  void activate(Form& form);
  Refusal close(Form& form);

  // Runs an action the way a handler runs: what it throws ends here. A fault becomes one message box.
  void run(const Event& action);

 private:
  [[nodiscard]] Refusal refusal(const Control& control) const;

  FormList& forms_;
  Screen& screen_;
};

}  // namespace tessarine::forms
