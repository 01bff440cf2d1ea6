#include "apps/BoardCable.h"

#include <utility>

#include "engine/Numbers.h"
#include "engine/PLL.h"

namespace tessarine {

BoardCable::BoardCable(std::function<std::int64_t()> microseconds)
    : board_({std::move(microseconds), [this] { return crystalMHz(); }},
             [this] { return program_ ? wiringOf(*program_) : board::Cable(); }) {}

void BoardCable::connect(Program& program) {
  program_ = &program;
  program.forms.observe(*this);
}

// The entry's own caption: the window says ADF4106 where the engine works with the words of an ADF4113. Close
// takes no chip off the board.
void BoardCable::changed(forms::Control& /*control*/, forms::Aspect /*aspect*/) {
  const Integer index = program_->window.CurrentModelIndex;
  if (index == pluggedIndex_ || index == 0) return;
  pluggedIndex_ = index;
  board_.board().plug(program_->window.pllM(index).Caption.get());
}

board::Cable wiringOf(Program& program) {
  const PLL& pll = program.module.ThePLL();
  return {.port = static_cast<std::uint16_t>(program.module.PortAddress),
          .clock = static_cast<std::uint8_t>(pll.CLOCKbit),
          .data = static_cast<std::uint8_t>(pll.DATAbit),
          .loadEnable = static_cast<std::uint8_t>(pll.LEbit)};
}

double BoardCable::crystalMHz() const {
  return program_ ? leadingNumber(program_->window.RefText.Text.get()) : 0;
}

}  // namespace tessarine
