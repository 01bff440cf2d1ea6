// What the program says of the board: which chip it carries, how it is wired, its crystal and
// what it is asked for.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "board/Cable.h"
#include "board/EvaluationBoard.h"
#include "forms/Form.h"
#include "window/Program.h"

namespace tessarine {

class BoardSocket : public forms::Observer {
 public:
  BoardSocket() = default;
  BoardSocket(const BoardSocket&) = delete;
  BoardSocket& operator=(const BoardSocket&) = delete;

  // From now on the chip of the model menu sits on `board`. The program may end first.
  void connect(Program& program, board::EvaluationBoard& board);

  // For the making of a board. `microseconds` is the time there; it never goes back. The crystal has
  // the reference frequency that the operator states.
  [[nodiscard]] board::Surroundings surroundings(std::function<std::int64_t()> microseconds) const;
  // As the wiring dialog says.
  [[nodiscard]] board::Cable wiring() const;
  // The output frequency that the last command was for, in MHz; none before the first.
  [[nodiscard]] std::optional<double> askedMHz() const;

  // Another number whenever a control has changed.
  [[nodiscard]] std::uint64_t fieldsVersion() const { return changes_; }

  void changed(forms::Control& control, forms::Aspect aspect) override;

 private:
  Program* program_ = nullptr;
  board::EvaluationBoard* board_ = nullptr;
  std::uint64_t changes_ = 0;
  Integer pluggedIndex_ = 0;  // of the model menu's entry
};

}  // namespace tessarine
