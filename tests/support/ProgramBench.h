// The whole program on fakes, worked through the operator's door.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/Words.h"
#include "window/Program.h"

namespace tessarine {

using Texts = std::vector<std::string>;

struct ProgramBench {
  // At the first screen.
  ProgramBench() { program.start(); }
  // Past it by "LPT1" (0) or "USB" (1), with a chip picked and nothing recorded yet.
  explicit ProgramBench(const std::string& model, int wayOut = 0) : ProgramBench() {
    open(wayOut);
    pick(model);
    forget();
  }

  void open(int wayOut = 0) {
    click("IOOption(" + std::to_string(wayOut) + ")");
    click("ContinueCommand");
    forget();
  }
  // Begins to record anew.
  void forget() {
    host.port.accesses.clear();
    host.usb.calls.clear();
    host.screen.messages.clear();
    start_ = host.clock.elapsed;
  }
  void pick(const std::string& model) {
    for (auto& [index, entry] : window.pllM.members()) {
      if (entry.Caption == model) expectDone(program.door.click(entry));
    }
  }
  void click(const std::string& name) { expectDone(program.door.click(control(name))); }
  // The operator's click after so many milliseconds.
  void clickAt(int milliseconds, const std::string& name) {
    host.screen.at(milliseconds, [this, name] { click(name); });
  }
  void set(const std::string& name, const std::string& value) {
    expectDone(program.door.set(control(name), value));
  }
  void setAll(std::initializer_list<std::pair<const char*, const char*>> values) {
    for (const auto& [name, text] : values) set(name, text);
  }
  // The four numbers of the general panel.
  void tune(const char* vco = "900", const char* prescaler = "8/9", const char* reference = "10",
            const char* step = "200") {
    setAll({{"RefText", reference}, {"CompText", step}, {"PrescalarText", prescaler}, {"VCOText", vco}});
  }
  Control& control(const std::string& name) {
    Control* found = program.forms.find(name);
    if (!found) throw std::runtime_error("no control " + name);
    return *found;
  }

  std::string value(const std::string& name) { return control(name).value(); }
  bool visible(const std::string& name) { return control(name).isVisible(); }
  // The names of those of `names` that are visible.
  Texts shown(const Texts& names) {
    Texts result;
    for (const auto& name : names) {
      if (visible(name)) result.push_back(name);
    }
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
  static void expectDone(const Operator::Refusal& refusal) { EXPECT_FALSE(refusal) << *refusal; }

  std::int64_t start_ = 0;
};

}  // namespace tessarine
