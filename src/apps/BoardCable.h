// The virtual board on the program's bench: wired as the wiring dialog says, with the chip that the model
// menu names and a crystal of the reference frequency that the operator states.
#pragma once

#include <cstdint>
#include <functional>

#include "board/VirtualBoard.h"
#include "forms/Form.h"
#include "window/Program.h"

namespace tessarine {

// How the program's wiring dialog says that the board hangs on the parallel port.
[[nodiscard]] board::Cable wiringOf(Program& program);

class BoardCable : public forms::Observer {
 public:
  // `microseconds` is the time on the bench; it never goes back.
  explicit BoardCable(std::function<std::int64_t()> microseconds);
  BoardCable(const BoardCable&) = delete;
  BoardCable& operator=(const BoardCable&) = delete;

  // The ways out of the program's Platform.
  [[nodiscard]] board::VirtualBoard& board() { return board_; }

  // From now on the board follows this program, which may end first.
  void connect(Program& program);

  void changed(forms::Control& control, forms::Aspect aspect) override;

 private:
  [[nodiscard]] double crystalMHz() const;

  Program* program_ = nullptr;
  Integer pluggedIndex_ = 0;  // of the model menu's entry
  board::VirtualBoard board_;
};

}  // namespace tessarine
