// The kinds of control.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/Control.h"

namespace tessarine::forms {

// How a label is drawn and meant.
enum class Look {
  plain,
  bit,        // a clickable bit
  fixedBit,   // a bit that shows a value and takes no click
  clickable,  // a text that a click switches or that acts like a small button
  word,       // a register word, in a fixed-width face
  lamp,       // a status with a background colour
  heading,    // the title of a group
  caption,    // centred over or under the bits that it names
};

// What each kind is declared with: its place in the form, and what it shows at first.
template <Kind kind, class Base = Control>
class Of : public Base {
 public:
  Of(Container& in, std::string name, int index, std::string_view /*shown*/)
      : Base(kind, &in, std::move(name), index) {}
};

template <Kind kind, class Base = Control>
class Captioned : public Of<kind, Base> {
 public:
  Captioned(Container& in, std::string name, int index, std::string text)
      : Of<kind, Base>(in, std::move(name), index, text) {
    Caption.start(std::move(text));
    this->caption_ = &Caption;
  }
  [[nodiscard]] std::string value() const override { return Caption; }

  Property<std::string> Caption{*this, Aspect::Caption};
};

// With a text that the operator types.
template <Kind kind, class Base = Control>
class Typed : public Of<kind, Base> {
 public:
  Typed(Container& in, std::string name, int index, std::string text)
      : Of<kind, Base>(in, std::move(name), index, text) {
    Text.start(std::move(text));
  }
  [[nodiscard]] std::string value() const override { return Text; }
  [[nodiscard]] Setting setting() const override { return Setting::byValue; }
  Control::Effect onType(std::string_view text) override {
    return {.run = [this, typed = std::string(text)] {
      Text = typed;
      Control::raise(this->KeyUp);
    }};
  }

  Property<std::string> Text{*this, Aspect::Text};
};

class Label : public Captioned<Kind::Label> {
 public:
  using Captioned::Captioned;
  [[nodiscard]] Setting setting() const override;
  Effect onClick() override { return handled(Click); }

  Property<std::optional<std::uint32_t>> BackColor{*this, Aspect::BackColor};  // red + 256 green + 65536 blue
  Look look = Look::plain;

 protected:
  void changed(Aspect aspect) override;  // Caption raises Change
};

class TextBox : public Typed<Kind::TextBox> {
 public:
  using Typed::Typed;

 protected:
  void changed(Aspect aspect) override;  // Text raises Change
};

// In the caption "&" marks the access key.
class CommandButton : public Captioned<Kind::CommandButton> {
 public:
  using Captioned::Captioned;
  Effect onClick() override { return handled(Click); }

  bool Default = false;  // Enter clicks it
  bool Cancel = false;   // Escape clicks it
};

class CheckBox : public Captioned<Kind::CheckBox> {
 public:
  using Captioned::Captioned;
  [[nodiscard]] std::string value() const override { return std::to_string(Value.get()); }
  [[nodiscard]] Setting setting() const override { return Setting::byValue; }
  Effect onClick() override;
  Effect onSet(std::string_view value) override;

  Property<int> Value{*this, Aspect::Value};  // 0 or 1

 protected:
  void changed(Aspect aspect) override;  // Value raises Click
};

// One of the option buttons of its container can be selected at a time.
class OptionButton : public Captioned<Kind::OptionButton> {
 public:
  using Captioned::Captioned;
  [[nodiscard]] std::string value() const override { return Value ? "1" : "0"; }
  [[nodiscard]] Setting setting() const override { return Setting::byClick; }
  Effect onClick() override;
  Effect onSet(std::string_view value) override;

  Property<bool> Value{*this, Aspect::Value};

 protected:
  void changed(Aspect aspect) override;  // becoming selected deselects the others and raises Click
};

// A control with a list of texts, one of which may be picked.
class ListControl : public Control {
 public:
  using Control::Control;

  Property<std::vector<std::string>> List{*this, Aspect::List};
  Property<int> ListIndex{*this, Aspect::ListIndex, -1};  // -1: none

  // The text at ListIndex, empty without one.
  [[nodiscard]] std::string picked() const { return itemText(ListIndex); }
  // Empty without that item.
  [[nodiscard]] std::string itemText(int item) const;
  // The place of a text, -1 without it.
  [[nodiscard]] int itemWith(std::string_view text) const;

  Effect onDoubleClick() override { return handled(DblClick); }
  Effect onPick(int item) override;
  Effect onSet(std::string_view value) override;

 protected:
  // The operator picks an item that is there.
  virtual void take(int item) { ListIndex = item; }
};

// An editable combo box.
class ComboBox : public Typed<Kind::ComboBox, ListControl> {
 public:
  using Typed::Typed;
  Effect onSet(std::string_view value) override { return onType(value); }
  // Puts a new list in place of the old one; the text goes with it. Raises nothing.
  void rebuild(std::vector<std::string> items);
  // Picks an item: its text is taken over and Click is raised.
  void pick(int item);

 protected:
  void changed(Aspect aspect) override;  // Text raises Change
  void take(int item) override { pick(item); }

 private:
  bool picking_ = false;
};

// A pick-only list.
class DropList : public Of<Kind::DropList, ListControl> {
 public:
  using Of::Of;
  [[nodiscard]] std::string value() const override { return Text(); }
  [[nodiscard]] std::string Text() const { return picked(); }
  [[nodiscard]] Setting setting() const override { return Setting::byValue; }

 protected:
  void changed(Aspect aspect) override;  // ListIndex raises Click
};

class Frame : public Captioned<Kind::Frame, Container> {
 public:
  using Captioned::Captioned;
  Effect onClick() override { return handled(Click); }
};

class PictureBox : public Of<Kind::PictureBox, Container> {
 public:
  using Of::Of;
  Effect onClick() override { return handled(Click); }
};

using Line = Of<Kind::Line>;

// A menu or a menu entry; the caption "-" is a separator.
class Menu : public Captioned<Kind::Menu, Container> {
 public:
  using Captioned::Captioned;
  Effect onClick() override { return isSeparator() ? Container::onClick() : handled(Click); }
  [[nodiscard]] bool isSeparator() const { return Caption == "-"; }

  Property<bool> Checked{*this, Aspect::Checked};
  std::string shortcut;  // "Ctrl+C"
};

}  // namespace tessarine::forms
