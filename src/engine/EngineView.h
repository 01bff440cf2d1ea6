// The few things on the window that the engine shows or asks for.
#pragma once

#include <string>

namespace tessarine {

// Shows nothing by itself: it stands for the window until there is one.
class EngineView {
 public:
  virtual ~EngineView() = default;
  // The caption of `PFDLabel`: the detector frequency in kHz.
  virtual void showDetectorFrequency(const std::string& /*text*/) {}
  // The caption of `Label21(index)`, index 0 to 9: one numbered register.
  virtual void showWord(int /*index*/, const std::string& /*text*/) {}
  // Whether the box `LDPCheck` is checked.
  [[nodiscard]] virtual bool lockDetectPrecisionChecked() const { return false; }
};

}  // namespace tessarine
