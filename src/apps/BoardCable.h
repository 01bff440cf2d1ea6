// The virtual board on the program's bench.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "apps/BoardSocket.h"
#include "board/VirtualBoard.h"

namespace tessarine {

class BoardCable {
 public:
  // `microseconds` is the time on the bench; it never goes back.
  explicit BoardCable(std::function<std::int64_t()> microseconds);

  // The ways out of the program's Platform.
  [[nodiscard]] board::VirtualBoard& board() { return board_; }

  // From now on the board follows this program, which may end first.
  void connect(Program& program) { socket_.connect(program, board_.board()); }
  [[nodiscard]] std::optional<double> askedMHz() const { return socket_.askedMHz(); }

 private:
  BoardSocket socket_;
  board::VirtualBoard board_;
};

}  // namespace tessarine
