// The kinds of control.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
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

class Label : public Control {
 public:
  Label(Container& in, std::string name, int index, std::string caption);
  [[nodiscard]] std::string value() const override { return Caption; }
  Effect onClick() override { return handled(Click); }

  Property<std::string> Caption{*this, Aspect::Caption};
  Property<std::optional<std::uint32_t>> BackColor{*this, Aspect::BackColor};  // red + 256 green + 65536 blue
  Look look = Look::plain;

 protected:
  void changed(Aspect aspect) override;  // Caption raises Change
};

class TextBox : public Control {
 public:
  TextBox(Container& in, std::string name, int index, std::string text);
  [[nodiscard]] std::string value() const override { return Text; }
  Effect onType(std::string_view text) override;

  Property<std::string> Text{*this, Aspect::Text};

 protected:
  void changed(Aspect aspect) override;  // Text raises Change
};

class CommandButton : public Control {
 public:
  CommandButton(Container& in, std::string name, int index, std::string caption);
  [[nodiscard]] std::string value() const override { return Caption; }
  Effect onClick() override { return handled(Click); }

  Property<std::string> Caption{*this, Aspect::Caption};  // "&" marks the access key
  bool Default = false;                                   // Enter clicks it
  bool Cancel = false;                                    // Escape clicks it
};

class CheckBox : public Control {
 public:
  CheckBox(Container& in, std::string name, int index, std::string caption);
  [[nodiscard]] std::string value() const override { return std::to_string(Value.get()); }
  Effect onClick() override;
  Effect onSet(std::string_view value) override;

  Property<std::string> Caption{*this, Aspect::Caption};
  Property<int> Value{*this, Aspect::Value};  // 0 or 1

 protected:
  void changed(Aspect aspect) override;  // Value raises Click
};

// One of the option buttons of its container can be selected at a time.
class OptionButton : public Control {
 public:
  OptionButton(Container& in, std::string name, int index, std::string caption);
  [[nodiscard]] std::string value() const override { return Value ? "1" : "0"; }
  Effect onClick() override;
  Effect onSet(std::string_view value) override;

  Property<std::string> Caption{*this, Aspect::Caption};
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
class ComboBox : public ListControl {
 public:
  ComboBox(Container& in, std::string name, int index, std::string text);
  [[nodiscard]] std::string value() const override { return Text; }
  Effect onType(std::string_view text) override;
  Effect onSet(std::string_view value) override { return onType(value); }
  // Puts a new list in place of the old one; the text goes with it. Raises nothing.
  void rebuild(std::vector<std::string> items);
  // Picks an item: its text is taken over and Click is raised.
  void pick(int item);

  Property<std::string> Text{*this, Aspect::Text};

 protected:
  void changed(Aspect aspect) override;  // Text raises Change
  void take(int item) override { pick(item); }

 private:
  bool picking_ = false;
};

// A pick-only list.
class DropList : public ListControl {
 public:
  DropList(Container& in, std::string name, int index, std::string ignored);
  [[nodiscard]] std::string value() const override { return Text(); }
  [[nodiscard]] std::string Text() const { return picked(); }

 protected:
  void changed(Aspect aspect) override;  // ListIndex raises Click
};

class Frame : public Container {
 public:
  Frame(Container& in, std::string name, int index, std::string caption);
  [[nodiscard]] std::string value() const override { return Caption; }
  Effect onClick() override { return handled(Click); }

  Property<std::string> Caption{*this, Aspect::Caption};
};

class PictureBox : public Container {
 public:
  PictureBox(Container& in, std::string name, int index, std::string ignored);
  Effect onClick() override { return handled(Click); }
};

class Line : public Control {
 public:
  Line(Container& in, std::string name, int index, std::string ignored);
};

// A menu or a menu entry; the caption "-" is a separator.
class Menu : public Container {
 public:
  Menu(Container& in, std::string name, int index, std::string caption);
  [[nodiscard]] std::string value() const override { return Caption; }
  Effect onClick() override { return isSeparator() ? Container::onClick() : handled(Click); }
  [[nodiscard]] bool isSeparator() const { return Caption == "-"; }

  Property<std::string> Caption{*this, Aspect::Caption};
  Property<bool> Checked{*this, Aspect::Checked};
  std::string shortcut;  // "Ctrl+C"
};

}  // namespace tessarine::forms
