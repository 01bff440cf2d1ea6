// The operator at the door of a program.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>

#include "window/Program.h"

namespace tessarine {

struct Hand {
  explicit Hand(Program& program) : program_(program) {}

  // Past the first screen by "LPT1" (0) or "USB" (1).
  void open(int wayOut = 0) {
    click("IOOption(" + std::to_string(wayOut) + ")");
    click("ContinueCommand");
  }
  void pick(const std::string& model) {
    for (auto& [index, entry] : program_.window.pllM.members())
      if (entry.Caption == model) expectDone(program_.door.click(entry));
  }
  void click(const std::string& name) { expectDone(program_.door.click(control(name))); }
  void set(const std::string& name, const std::string& value) {
    expectDone(program_.door.set(control(name), value));
  }
  void set(std::initializer_list<std::pair<const char*, std::string>> values) {
    for (const auto& [name, value] : values) set(name, value);
  }
  // The four numbers of the general panel.
  void tune(const std::string& vco = "900", const std::string& prescaler = "8/9",
            const std::string& reference = "10", const std::string& step = "200") {
    set({{"RefText", reference}, {"CompText", step}, {"PrescalarText", prescaler}, {"VCOText", vco}});
  }

  [[nodiscard]] forms::Control& control(const std::string& name) const {
    forms::Control* const found = program_.forms.find(name);
    if (!found) throw std::runtime_error("no control " + name);
    return *found;
  }
  [[nodiscard]] std::string value(const std::string& name) const { return control(name).value(); }
  [[nodiscard]] bool visible(const std::string& name) const { return control(name).isVisible(); }

 private:
  static void expectDone(const forms::Operator::Refusal& refusal) { EXPECT_FALSE(refusal) << *refusal; }

  Program& program_;
};

}  // namespace tessarine
