// The board in words, for scripts.
#pragma once

#include <string>

#include "board/EvaluationBoard.h"

namespace tessarine::board {

// One line each, of tab-separated parts: "chip", "register" (name, bits with the highest first, hexadecimal,
// then NAME=VALUE or NAME=VALUE (MEANING) for each field), "detector", "divider", "output", "lock" (1, or 0
// and the reason), "pin", "note", "history". Registers that were never loaded have no line.
[[nodiscard]] std::string describeBoard(const EvaluationBoard& board);

}  // namespace tessarine::board
