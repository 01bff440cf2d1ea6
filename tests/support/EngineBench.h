// An engine on fakes: the parallel port on a host of the NT family, and the wiring that the program starts
// with (clock 1, data 2, load enable 4).
#pragma once

#include <map>
#include <string>

#include "engine/EngineView.h"
#include "engine/Module1.h"
#include "engine/PLL.h"
#include "support/FakePlatform.h"

namespace tessarine {

struct FakeView : EngineView {
  void showDetectorFrequency(const std::string& text) override { detectorFrequency = text; }
  void showWord(int index, const std::string& text) override { words[index] = text; }
  [[nodiscard]] bool lockDetectPrecisionChecked() const override { return false; }

  std::string detectorFrequency;
  std::map<int, std::string> words;
};

struct EngineBench {
  EngineBench() {
    module.view = &view;
    module.PortAddress = 888;
    module.PortType = "LPT";
    module.UseDlPort = kTrue;
    pll.CLOCKbit = 1;
    pll.DATAbit = 2;
    pll.LEbit = 4;
  }

  FakePlatform host;
  FakeView view;
  Module1 module{host.platform};
  PLL& pll = module.ThePLL();
};

}  // namespace tessarine
