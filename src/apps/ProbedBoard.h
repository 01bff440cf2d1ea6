// What a script sees and sets of the virtual board.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/NumberText.h"
#include "board/VirtualBoard.h"
#include "script/BoardProbe.h"
#include "script/ScriptText.h"

namespace tessarine {

class ProbedBoard : public script::BoardProbe {
 public:
  explicit ProbedBoard(board::VirtualBoard& board) : board_(board) {}

  std::vector<std::string> takeLatches() override { return board_.board().takeLatches(); }
  std::string describe() override { return board_.describe(); }

  // "history", milliseconds since the start of the script, output frequency and lock: a line for each
  // change.
  std::string history() override {
    const auto& points = board_.board().history();
    std::string text;
    for (std::size_t i = 0; i < points.size(); ++i) {
      text += "history\t" + script::millisecondText(board_.board().firstWrite() + points[i].time) + '\t' +
              board::fixedText(points[i].outputMHz, 6) + " MHz\t" + (points[i].locked ? "1\n" : "0\n");
    }
    return text;
  }

  std::optional<std::string> fault(std::string_view name) override {
    if (const auto fault = board::boardFaultNamed(name)) {
      board_.setFault(*fault);
      return {};
    }
    std::string known;
    for (const auto& each : board::boardFaults()) known += ' ' + std::string(each.name);
    return "there is no fault \"" + std::string(name) + "\" among" + known;
  }

 private:
  board::VirtualBoard& board_;
};

}  // namespace tessarine
