// The link to the board: the ways out of a program, and the board that sees what goes out on them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "apps/BoardSocket.h"
#include "apps/Options.h"
#include "board/VirtualBoard.h"
#include "platform/Platform.h"
#include "window/Program.h"

namespace tessarine {

// The time and the bell of a program.
struct TimeOfProgram {
  std::function<std::int64_t()> microseconds;  // never goes back
  Clock* clock = nullptr;                      // null: that of this computer
  std::function<void()> bell;                  // of this computer's clock; empty: the terminal's
};

class BoardLink {
 public:
  BoardLink() = default;
  virtual ~BoardLink() = default;
  BoardLink(const BoardLink&) = delete;
  BoardLink& operator=(const BoardLink&) = delete;

  // For the making of a program.
  [[nodiscard]] virtual Platform& platform() = 0;
  // The board takes no part in any call of a real way out before it is listening.
  [[nodiscard]] virtual board::EvaluationBoard& board() = 0;
  virtual void listen() {}
  // The board that can be asked for its pulses and made faulty; null on a real way out.
  [[nodiscard]] virtual board::VirtualBoard* virtualBoard() { return nullptr; }
  // Takes what the operator is to know of a real way out that works.
  virtual void onNotice(std::function<void(const std::string&)> /*tell*/) {}
  // Why a real way out does not work, with the line to type; empty while it does.
  [[nodiscard]] virtual std::string whyNotOpen() const { return {}; }

  // From now on the board follows this program, which may end first.
  void connect(Program& program) { socket_.connect(program, board()); }
  [[nodiscard]] std::optional<double> askedMHz() const { return socket_.askedMHz(); }
  [[nodiscard]] std::uint64_t fieldsVersion() const { return socket_.fieldsVersion(); }

 protected:
  BoardSocket socket_;
};

// The one place that builds it, for a program that shows on `screen`.
[[nodiscard]] std::unique_ptr<BoardLink> linkToBoard(const Options& options, Screen& screen,
                                                     const TimeOfProgram& time);

}  // namespace tessarine
