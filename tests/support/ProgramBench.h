// The whole program on fakes, worked through the operator's door.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine {

struct ProgramBench {
  ProgramBench() { program.start(); }

  // Leaves the first screen by "LPT1" or "USB"; what was recorded until then is forgotten.
  void open(int wayOut = 0) {
    click("IOOption(" + std::to_string(wayOut) + ")");
    click("ContinueCommand");
    forget();
  }
  void forget() {
    host.port.accesses.clear();
    host.usb.calls.clear();
    host.screen.messages.clear();
  }
  void pick(const std::string& model) {
    for (auto& [index, entry] : window.pllM.members()) {
      if (entry.Caption == model) expectDone(program.door.click(entry));
    }
  }
  void click(const std::string& name) { expectDone(program.door.click(control(name))); }
  void set(const std::string& name, const std::string& value) {
    expectDone(program.door.set(control(name), value));
  }
  std::string value(const std::string& name) { return control(name).value(); }
  bool visible(const std::string& name) { return control(name).isVisible(); }
  Control& control(const std::string& name) {
    Control* found = program.forms.find(name);
    if (!found) throw std::runtime_error("no control " + name);
    return *found;
  }
  // The names of those of `names` that are visible.
  std::vector<std::string> shown(const std::vector<std::string>& names) {
    std::vector<std::string> result;
    for (const auto& name : names) {
      if (visible(name)) result.push_back(name);
    }
    return result;
  }
  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const Message& message : host.screen.messages) texts.push_back(message.text);
    return texts;
  }
  // The four numbers of a tuned integer-N board.
  void tune(const std::string& vco = "900", const std::string& prescaler = "8/9") {
    set("RefText", "10");
    set("CompText", "200");
    set("PrescalarText", prescaler);
    set("VCOText", vco);
  }

  FakePlatform host;
  Program program{host.platform};
  PllForm1& window = program.window;
  PLL& pll = program.module.ThePLL();

 private:
  static void expectDone(const Operator::Refusal& refusal) { EXPECT_FALSE(refusal) << *refusal; }
};

}  // namespace tessarine
