// What a script sees and sets of the virtual board.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine::script {

class BoardProbe {
 public:
  virtual ~BoardProbe() = default;
  // One for each load-enable pulse since the last call: the bits clocked in since the pulse before.
  virtual std::vector<std::string> takeLatches() = 0;
  // What the chip makes of its registers, and the output over time; whole lines.
  virtual std::string describe() = 0;
  virtual std::string history() = 0;
  // Brings a fault of this name about. Gives why not ("there is no fault ...").
  virtual std::optional<std::string> fault(std::string_view name) = 0;
};

}  // namespace tessarine::script
