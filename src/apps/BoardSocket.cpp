#include "apps/BoardSocket.h"

#include <utility>

#include "engine/Numbers.h"
#include "engine/PLL.h"

namespace tessarine {

void BoardSocket::connect(Program& program, board::EvaluationBoard& board) {
  program_ = &program;
  board_ = &board;
  program.forms.observe(*this);
}

// The entry's own caption: the window says ADF4106 where the engine works with the words of an ADF4113. Close
// takes no chip off the board.
void BoardSocket::changed(forms::Control& /*control*/, forms::Aspect /*aspect*/) {
  ++changes_;
  const Integer index = program_->window.CurrentModelIndex;
  if (index == pluggedIndex_ || index == 0) return;
  pluggedIndex_ = index;
  board_->plug(program_->window.pllM(index).Caption.get());
}

board::Surroundings BoardSocket::surroundings(std::function<std::int64_t()> microseconds) const {
  return {std::move(microseconds),
          [this] { return program_ ? leadingNumber(program_->window.RefText.Text.get()) : 0; }};
}

board::Cable BoardSocket::wiring() const {
  if (!program_) return {};
  const PLL& pll = program_->module.ThePLL();
  return {.port = static_cast<std::uint16_t>(program_->module.PortAddress),
          .clock = static_cast<std::uint8_t>(pll.CLOCKbit),
          .data = static_cast<std::uint8_t>(pll.DATAbit),
          .loadEnable = static_cast<std::uint8_t>(pll.LEbit)};
}

std::optional<double> BoardSocket::askedMHz() const {
  if (!program_) return {};
  const double asked = program_->module.ThePLL().Fvco;
  return asked > 0 ? std::optional<double>(asked) : std::nullopt;
}

}  // namespace tessarine
