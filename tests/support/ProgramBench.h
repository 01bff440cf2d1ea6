// The whole program on fakes, worked through the operator's door.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "support/Words.h"
#include "window/Program.h"

namespace tessarine {

using Texts = std::vector<std::string>;

struct ProgramBench : Hand {
  // At the first screen.
  ProgramBench() : Hand(program) { program.start(); }
  // Past it, with a chip picked and nothing recorded yet.
  explicit ProgramBench(const std::string& model, int wayOut = 0) : ProgramBench() {
    open(wayOut);
    pick(model);
    forget();
  }

  // Begins to record anew.
  void forget() {
    host.port.accesses.clear();
    host.usb.calls.clear();
    host.screen.messages.clear();
    start_ = host.clock.elapsed;
  }
  // The operator's click after so many milliseconds.
  void clickAt(int milliseconds, const std::string& name) {
    host.screen.at(milliseconds, [this, name] { click(name); });
  }
  // Those of some names, with blanks between, that are visible.
  [[nodiscard]] std::string shown(const std::string& names) const {
    std::istringstream in(names);
    std::string result;
    for (std::string name; in >> name;)
      if (visible(name)) result += (result.empty() ? "" : " ") + name;
    return result;
  }
  [[nodiscard]] Texts messages() const {
    Texts texts;
    for (const Message& message : host.screen.messages) texts.push_back(message.text);
    return texts;
  }
  [[nodiscard]] Words latches() const { return host.port.latches(); }
  // Since forget().
  [[nodiscard]] std::int64_t milliseconds() const { return (host.clock.elapsed - start_) / 1000; }

  FakePlatform host;
  Program program{host.platform};
  PllForm1& window = program.window;
  PLL& pll = program.module.ThePLL();

 private:
  std::int64_t start_ = 0;
};

}  // namespace tessarine
