#include "forms/Operator.h"

#include <cstddef>
#include <exception>
#include <utility>

#include "forms/FileControls.h"
#include "platform/Fault.h"

namespace tessarine::forms {

namespace {

// Far above what a hand can do, and far below what the stack holds.
constexpr int kDeepest = 100;

// Whether a control takes a click of its own.
bool takesClicks(Kind kind) {
  switch (kind) {
    case Kind::Label:
    case Kind::CommandButton:
    case Kind::CheckBox:
    case Kind::OptionButton:
    case Kind::Menu:
    case Kind::PictureBox:
    case Kind::Frame:
      return true;
    default:
      return false;
  }
}

bool isList(Kind kind) {
  switch (kind) {
    case Kind::ComboBox:
    case Kind::DropList:
    case Kind::DriveListBox:
    case Kind::DirListBox:
    case Kind::FileListBox:
      return true;
    default:
      return false;
  }
}

int itemWith(const ListControl& list, std::string_view text) {
  const auto& texts = list.List.get();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i] == text) return static_cast<int>(i);
  }
  return -1;
}

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

Operator::Refusal Operator::click(Control& control) {
  if (auto why = refusal(control)) return why;
  const bool separates = control.kind() == Kind::Menu && static_cast<const Menu&>(control).isSeparator();
  if (separates || !takesClicks(control.kind())) return forms_.nameOf(control) + " is not for clicking";
  run({Deed::click, control}, [&] {
    if (control.kind() == Kind::CheckBox) {
      auto& box = static_cast<CheckBox&>(control);
      box.Value = box.Value ? 0 : 1;
    } else if (control.kind() == Kind::OptionButton && !static_cast<OptionButton&>(control).Value) {
      static_cast<OptionButton&>(control).Value = true;
    } else if (control.Click) {
      // A copy: the handler may end with the control's handler replaced.
      const Event handler = control.Click;
      handler();
    }
  });
  return {};
}

Operator::Refusal Operator::doubleClick(Control& control) {
  if (auto why = refusal(control)) return why;
  if (!isList(control.kind()) && !control.DblClick) {
    return forms_.nameOf(control) + " is not for double-clicking";
  }
  run({Deed::doubleClick, control}, [&] {
    if (control.kind() == Kind::DirListBox) {
      auto& directories = static_cast<DirListBox&>(control);
      directories.enterItem(directories.ListIndex);
    }
    if (const Event handler = control.DblClick) handler();
  });
  return {};
}

Operator::Refusal Operator::type(Control& control, std::string_view text) {
  if (auto why = refusal(control)) return why;
  if (control.kind() != Kind::TextBox && control.kind() != Kind::ComboBox) {
    return forms_.nameOf(control) + " takes no text";
  }
  run({Deed::set, control, std::string(text)}, [&] {
    if (control.kind() == Kind::TextBox) {
      static_cast<TextBox&>(control).Text = std::string(text);
    } else {
      static_cast<ComboBox&>(control).Text = std::string(text);
    }
    if (const Event handler = control.KeyUp) handler();
  });
  return {};
}

Operator::Refusal Operator::pick(Control& control, int item) {
  if (auto why = refusal(control)) return why;
  if (!isList(control.kind())) return forms_.nameOf(control) + " is no list";
  auto& list = static_cast<ListControl&>(control);
  if (item < 0 || static_cast<std::size_t>(item) >= list.List.get().size()) {
    return forms_.nameOf(control) + " has no item " + std::to_string(item);
  }
  run({Deed::pick, control, list.List.get()[static_cast<std::size_t>(item)]}, [&] {
    if (control.kind() == Kind::ComboBox) {
      static_cast<ComboBox&>(control).pick(item);
    } else if (control.kind() == Kind::FileListBox && list.ListIndex == item) {
      // A click on the file that is selected already counts: its name may have been cleared since.
      if (const Event handler = control.Click) handler();
    } else {
      list.ListIndex = item;
    }
  });
  return {};
}

Operator::Refusal Operator::set(Control& control, std::string_view value) {
  const std::string name = forms_.nameOf(control);
  switch (control.kind()) {
    case Kind::CheckBox:
      if (value != "0" && value != "1") return name + " takes 0 or 1";
      if (auto why = refusal(control)) return why;
      run({Deed::set, control, std::string(value)},
          [&] { static_cast<CheckBox&>(control).Value = value == "1" ? 1 : 0; });
      return {};
    case Kind::OptionButton:
      if (value != "1") return name + " takes 1";
      return click(control);
    case Kind::DirListBox:
      if (auto why = refusal(control)) return why;
      if (const int item = itemWith(static_cast<ListControl&>(control), value); item >= 0) {
        run({Deed::set, control, std::string(value)},
            [&] { static_cast<DirListBox&>(control).enterItem(item); });
      } else if (const std::string path(value); DirListBox::canEnter(path)) {
        run({Deed::set, control, path}, [&] { static_cast<DirListBox&>(control).enter(path); });
      } else {
        return name + " cannot enter \"" + path + '"';
      }
      return {};
    case Kind::DropList:
    case Kind::DriveListBox:
    case Kind::FileListBox: {
      const int item = itemWith(static_cast<ListControl&>(control), value);
      if (item < 0) return name + " has no item \"" + std::string(value) + "\"";
      return pick(control, item);
    }
    default:
      return type(control, value);
  }
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
