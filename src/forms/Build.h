// The words that a form's header is written in: one line declares a control with its name, its caption or
// text, its place and its options.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/Controls.h"

namespace tessarine::forms {

[[nodiscard]] constexpr Twips at(int left, int top, int width, int height) {
  return {left, top, width, height};
}

// Options. Each is applied to the control it stands in the line of.
inline constexpr auto hidden = [](Control& c) { c.Visible.start(false); };
inline constexpr auto disabled = [](Control& c) { c.Enabled.start(false); };
inline constexpr auto selected = [](auto& c) { c.Value.start(true); };
inline constexpr auto checked = [](Menu& c) { c.Checked.start(true); };
inline constexpr auto isDefault = [](CommandButton& c) { c.Default = true; };
inline constexpr auto isCancel = [](CommandButton& c) { c.Cancel = true; };
inline constexpr auto bit = [](Label& c) { c.look = Look::bit; };
inline constexpr auto fixedBit = [](Label& c) { c.look = Look::fixedBit; };
inline constexpr auto clickable = [](Label& c) { c.look = Look::clickable; };
inline constexpr auto word = [](Label& c) { c.look = Look::word; };
inline constexpr auto lamp = [](Label& c) { c.look = Look::lamp; };
inline constexpr auto heading = [](Label& c) { c.look = Look::heading; };
inline constexpr auto caption = [](Label& c) { c.look = Look::caption; };
[[nodiscard]] inline auto tip(const char* text) {
  return [text](Control& c) { c.ToolTip.start(text); };
}
[[nodiscard]] inline auto shortcut(const char* keys) {
  return [keys](Menu& c) { c.shortcut = keys; };
}
[[nodiscard]] inline auto items(std::initializer_list<const char*> texts) {
  return
      [list = std::vector<std::string>(texts.begin(), texts.end())](ListControl& c) { c.List.start(list); };
}

// Handlers: a member of the form, with the index where the control stands in an array.
template <class Owner>
[[nodiscard]] Event bound(Owner* owner, void (Owner::*handler)(), int) {
  return [owner, handler] { (owner->*handler)(); };
}
template <class Owner>
[[nodiscard]] Event bound(Owner* owner, void (Owner::*handler)(int), int index) {
  return [owner, handler, index] { (owner->*handler)(index); };
}
template <class Owner, class Handler>
[[nodiscard]] auto click(Owner* owner, Handler handler) {
  return [=](Control& c) { c.Click = bound(owner, handler, c.index()); };
}
template <class Owner, class Handler>
[[nodiscard]] auto change(Owner* owner, Handler handler) {
  return [=](Control& c) { c.Change = bound(owner, handler, c.index()); };
}
template <class Owner, class Handler>
[[nodiscard]] auto doubleClick(Owner* owner, Handler handler) {
  return [=](Control& c) { c.DblClick = bound(owner, handler, c.index()); };
}
template <class Owner, class Handler>
[[nodiscard]] auto keyUp(Owner* owner, Handler handler) {
  return [=](Control& c) { c.KeyUp = bound(owner, handler, c.index()); };
}

// A control that stands alone: `One<Label> Label1{GeneralFrame, "Label1", "Reference Frequency:", at(...),
// ...};`
template <class T>
class One : public T {
 public:
  template <class... Options>
  One(Container& in, const char* name, const char* start, Twips place, Options&&... options)
      : T(in, name, kNoIndex, start) {
    this->Place.start(place);
    (options(*this), ...);
  }
  // A control whose name carries an index although it stands alone, as menu entries do.
  template <class... Options>
  One(Container& in, const char* name, int index, const char* start, Twips place, Options&&... options)
      : T(in, name, index, start) {
    this->Place.start(place);
    (options(*this), ...);
  }
};

// One line of a control array.
template <class T>
struct Row {
  int index;
  Container& in;
  const char* start;
  Twips place;
  std::vector<std::function<void(T&)>> options = {};
};

// A control array: `Name(i)` is its member of index i. Its indices may have gaps, its members may stand in
// different containers. The options behind the rows apply to every member.
template <class T>
class Array {
 public:
  template <class... Options>
  Array(const char* name, std::initializer_list<Row<T>> rows, const Options&... options) {
    for (const Row<T>& row : rows) {
      add(name, row.in, row.index, row.start, row.place, options...);
      for (const auto& option : row.options) option((*this)(row.index));
    }
  }
  // A row of bits from the left: the captions of `bits`, the indices from `first` in steps of `step`, each
  // `pitch` twips right of the one before. A blank leaves half a pitch between groups.
  template <class... Options>
  Array(const char* name, Container& in, std::string_view bits, int first, int step, Twips place, int pitch,
        const Options&... options) {
    for (const char character : bits) {
      if (character == ' ') {
        place.Left += pitch / 2;
        continue;
      }
      add(name, in, first, std::string(1, character), place, options...);
      first += step;
      place.Left += pitch;
    }
  }
  Array(const Array&) = delete;
  Array& operator=(const Array&) = delete;

  // Throws std::out_of_range where the array has no member.
  [[nodiscard]] T& operator()(int index) { return members_.at(index); }
  [[nodiscard]] const T& operator()(int index) const { return members_.at(index); }
  [[nodiscard]] std::map<int, T>& members() { return members_; }
  [[nodiscard]] const std::map<int, T>& members() const { return members_; }

 private:
  template <class... Options>
  void add(const char* name, Container& in, int index, const std::string& start, Twips place,
           const Options&... options) {
    T& member = members_.try_emplace(index, in, name, index, start).first->second;
    member.Place.start(place);
    (options(member), ...);
  }

  std::map<int, T> members_;
};

}  // namespace tessarine::forms
