// The base of the forms kit: a named control with its place, its flags and its events. No toolkit stands
// behind it; a face (the desktop, a script, a test) watches it through Observer and acts on it through
// Operator.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Property.h"

namespace tessarine::forms {

class Container;
class Form;

enum class Kind {
  Label,
  TextBox,
  ComboBox,  // editable
  DropList,  // pick-only
  CheckBox,
  OptionButton,
  CommandButton,
  Frame,
  PictureBox,
  Line,
  Menu,
  DriveListBox,
  DirListBox,
  FileListBox,
  Form,
};

[[nodiscard]] std::string_view kindName(Kind kind);

// A place in its container, in twips: 15 to a pixel at 96 dots per inch.
struct Twips {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  bool operator==(const Twips&) const = default;
};

using Event = std::function<void()>;

// How the operator sets what a control holds.
enum class Setting { none, byValue, byClick };

inline constexpr int kNoIndex = -1;

class Control {
 public:
  // `container` is null for a form alone; `index` is kNoIndex outside a control array.
  Control(Kind kind, Container* container, std::string name, int index);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] Kind kind() const { return kind_; }
  [[nodiscard]] const std::string& name() const { return name_; }  // "VCOText", "Label31(3)"
  [[nodiscard]] int index() const { return index_; }
  [[nodiscard]] Container* container() const { return container_; }
  [[nodiscard]] Form& form() const { return *form_; }

  // Itself and all its containers, the form included.
  [[nodiscard]] bool isVisible() const;
  [[nodiscard]] bool isEnabled() const;

  // What the control shows: its caption, its text, or "0" and "1".
  [[nodiscard]] virtual std::string value() const { return {}; }
  [[nodiscard]] virtual Setting setting() const { return Setting::none; }
  [[nodiscard]] Property<std::string>* captionProperty() const { return caption_; }  // null where it has none

  // What an action of the operator comes to; or why the control does not take it, to stand behind its name.
  struct Effect {
    Event run = {};
    std::string refusal = {};
  };
  // The rules of each kind. The door (Operator) alone acts by them.
  virtual Effect onClick();
  virtual Effect onDoubleClick();
  virtual Effect onType(std::string_view text);
  virtual Effect onPick(int item);
  // The value as a whole: a text, an item, "0" or "1".
  virtual Effect onSet(std::string_view value) { return onType(value); }

  void Move(int left, int top, int width, int height) { Place = Twips{left, top, width, height}; }

  Property<bool> Visible{*this, Aspect::Visible, true};
  Property<bool> Enabled{*this, Aspect::Enabled, true};
  Property<std::string> ToolTip{*this, Aspect::ToolTip};
  Property<Twips> Place{*this, Aspect::Place};

  Event Click;
  Event Change;
  Event DblClick;
  Event KeyUp;

 protected:
  friend void detail::tellChanged(Control& owner, Aspect aspect);
  // Called after each change of a property; raises the event that goes with it, after the observers were
  // told.
  virtual void changed(Aspect aspect) { tellObservers(aspect); }
  void tellObservers(Aspect aspect);
  static void raise(const Event& event);
  // The effect of a control that does nothing by itself. The handler may end with the event replaced.
  [[nodiscard]] static Effect handled(const Event& event);

  Property<std::string>* caption_ = nullptr;

 private:
  friend class Form;
  Kind kind_;
  Container* container_;
  Form* form_;
  std::string name_;
  int index_;
};

// A control that holds others.
class Container : public Control {
 public:
  using Control::Control;
  [[nodiscard]] const std::vector<Control*>& children() const { return children_; }  // back to front
  // Brings a child to the front.
  void bringToFront(Control& child);

 private:
  friend class Control;
  std::vector<Control*> children_;
};

}  // namespace tessarine::forms
