// A board that sees what goes out on the host's own ways, for looking at.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "apps/BoardSocket.h"
#include "board/WireTap.h"

namespace tessarine {

class BoardTap {
 public:
  // `real` has the ways out; they must outlive this. `microseconds` is a time that never goes back.
  BoardTap(const Platform& real, std::function<std::int64_t()> microseconds);

  // `real` with the tap on its ways out.
  [[nodiscard]] Platform platform();
  [[nodiscard]] board::EvaluationBoard& board() { return board_; }

  // The board takes no part in any call before it is listening.
  void listen() { tap_.listen(&board_); }

  // From now on the board follows this program, which may end first.
  void connect(Program& program) { socket_.connect(program, board_); }
  [[nodiscard]] std::optional<double> askedMHz() const { return socket_.askedMHz(); }

 private:
  Platform real_;
  BoardSocket socket_;
  board::EvaluationBoard board_;
  board::WireTap tap_;
};

}  // namespace tessarine
