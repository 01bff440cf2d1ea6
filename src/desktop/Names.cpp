#include "desktop/Names.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "forms/Controls.h"
#include "platform/Text.h"

namespace tessarine::desktop {

using forms::Control;
using forms::Kind;
using forms::Label;
using forms::Look;
using forms::Twips;

namespace {

bool namesItself(const Control& control) {
  if (control.kind() == Kind::Label) return static_cast<const Label&>(control).look != Look::bit;
  const bool isDrawing = control.kind() == Kind::PictureBox || control.kind() == Kind::Line;
  return isDrawing || control.captionProperty() != nullptr;
}

bool isBit(const Control& control) { return control.kind() == Kind::Label; }

// Whether a label may serve as a name for others.
bool canName(const Control& control) {
  if (control.kind() != Kind::Label) return false;
  const Look look = static_cast<const Label&>(control).look;
  return look == Look::plain || look == Look::caption || look == Look::heading;
}

int overlap(int startA, int lengthA, int startB, int lengthB) {
  return std::min(startA + lengthA, startB + lengthB) - std::max(startA, startB);
}

// How far a label stands from the control it might name, in twips; the largest number where it cannot.
int distance(const Twips& label, const Twips& control, bool bit) {
  constexpr int kNever = std::numeric_limits<int>::max();
  const bool sameRow = overlap(label.Top, label.Height, control.Top, control.Height) > 0;
  const bool sameColumn = overlap(label.Left, label.Width, control.Left, control.Width) > 0;
  if (sameColumn && !sameRow) {
    const int gap = label.Top < control.Top ? control.Top - label.Top - label.Height
                                            : label.Top - control.Top - control.Height;
    // A caption over a list names it too, but a prompt in front of a field comes first.
    return bit ? gap : gap + 5000;
  }
  if (sameRow && label.Left < control.Left) {
    const int gap = std::abs(control.Left - label.Left - label.Width);
    return bit ? gap + 5000 : gap;
  }
  return kNever;
}

}  // namespace

std::string spokenName(const Control& control) {
  if (namesItself(control) || !control.container()) return {};
  const Label* nearest = nullptr;
  int nearestDistance = std::numeric_limits<int>::max();
  for (const Control* sibling : control.container()->children()) {
    if (!canName(*sibling)) continue;
    const int far = distance(sibling->Place, control.Place, isBit(control));
    if (far < nearestDistance) {
      nearest = static_cast<const Label*>(sibling);
      nearestDistance = far;
    }
  }
  const std::string text = nearest ? nearest->Caption.get() : control.ToolTip.get();
  const std::string_view front = trimmedFront(text, " ");
  const std::string name(front.substr(0, front.find_last_not_of(" :") + 1));
  return name.empty() ? control.name() : name + " " + control.name();
}

}  // namespace tessarine::desktop
