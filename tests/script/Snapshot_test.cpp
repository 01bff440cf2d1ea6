// Snapshots of random sessions: run by a fresh program, each brings back all settings and sends nothing.
#include "script/Snapshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "script/Interpreter.h"
#include "script/StandIn.h"
#include "support/FakePlatform.h"

namespace tessarine::script {
namespace {

using forms::Control;
using forms::Kind;

// An operator who does anything that the door lets in, but for hops, sweeps and the end.
void actAtRandom(Program& program, std::mt19937& random) {
  static constexpr const char* kTexts[] = {"",     "2",   "3",     "8/9",     "900",
                                           "12.5", " 7 ", "\"a\"", "x.setup", "/x y"};
  const auto pick = [&random](std::size_t count) { return random() % count; };
  const auto& forms = program.forms.all();
  const auto& controls = forms[pick(6) == 0 ? pick(forms.size()) : 0]->controls();
  Control& control = *controls[pick(controls.size())];
  // The menus of models and modes work on the first screen as well, and look like nothing that comes later.
  const bool isFirst = program.window.Picture1.Visible;
  if (isFirst &&
      (control.container() == &program.window.pModel || control.container() == &program.window.Mode1)) {
    return;
  }
  for (const char* const not_now : {"Exit1", "StartHop", "StartSweep"}) {
    if (control.name().starts_with(not_now)) return;
  }
  switch (control.kind()) {
    case Kind::TextBox:
    case Kind::ComboBox:
      (void)program.door.type(control, kTexts[pick(std::size(kTexts))]);
      break;
    case Kind::DropList:
      (void)program.door.pick(control, static_cast<int>(pick(12)));
      break;
    default:
      (void)program.door.click(control);
  }
}

// All but what commands have shown, a line for each control.
std::string settings(const Program& program) {
  static constexpr std::string_view kShown[] = {"Fregister", "Rregister", "Nregister",
                                                "Mregister", "Label21(",  "PFDLabel",
                                                "LDLabel",   "Label8",    "Label15"};
  std::string lines;
  for (const forms::Form* const form : program.forms.all()) {
    lines += form->name() + (form->Visible ? " is open" : "") +
             (program.forms.active() == form ? ", active" : "") + '\n';
    if (form != &program.window && form != &program.window.parallelForm) continue;
    for (const Control* const control : form->controls()) {
      std::string value = control->value();
      const bool isFile = control == &program.window.Text38 || control == &program.window.Text40 ||
                          control == &program.window.Text47;
      if (isFile && !value.empty()) value = std::filesystem::absolute(value).string();
      const auto isShown = [&](std::string_view name) { return control->name().starts_with(name); };
      if (std::ranges::any_of(kShown, isShown)) value.clear();
      const bool isMode = control->container() == &program.window.Mode1;
      const bool checked = isMode && static_cast<const forms::Menu*>(control)->Checked;
      lines += control->name() + (control->Visible ? " v" : " -") + (control->Enabled ? "e " : "- ") +
               (checked ? "checked " : "") + value + '\n';
    }
  }
  return lines;
}

struct Outcome {
  std::string settings;
  std::string output;
  bool sent;
};

Outcome run(const std::string& script) {
  FakePlatform host;
  std::ostringstream out;
  VirtualTime time;
  ScriptScreen screen(time, out);
  Platform platform{host.port, host.port, host.usb, host.host, time, screen};
  Program program(platform);
  program.start();
  std::istringstream lines(script);
  Interpreter({program.forms, program.door, screen, nullptr, out, out}, lines, "snapshot").run();
  const auto isLevel = [](int byte) { return byte != 0; };
  const auto isWord = [](const std::string& call) { return call.starts_with("shift"); };
  return {settings(program), out.str(),
          std::ranges::any_of(host.port.bytes(), isLevel) || std::ranges::any_of(host.usb.calls, isWord)};
}

TEST(Snapshot, GoesThereOnTheShortestWay) {
  StandIn session;
  const std::string way =
      "click IOOption(1)\nclick ContinueCommand\nclick Parallel\nset ParallelForm.ParallelText 278\n"
      "click ParallelForm.OKButton\npick ADF4251\nclick ACommand\nclick MRLabel(4)\nclick Option4(2)\n"
      "pick ADF4113\nclick ACommand\nclick Sweep1\nset RefText 10\nset PrescalarText 8/9\nset StartText1 "
      "900\n"
      "click ACommand\nset Text40 /x y/z\nclick ACommand\n";
  std::istringstream lines(way);
  Interpreter({session.program.forms, session.program.door, session.screen, nullptr, session.unheard,
               session.unheard},
              lines, "way")
      .run();
  const std::string script = snapshot(session.program);
  EXPECT_EQ(script.substr(script.find('\n') + 1), way);
}

// SESSIONS=10000 in the environment makes it as many.
TEST(Snapshot, BringsBackTheSettingsOfAnySession) {
  const char* const asked = std::getenv("SESSIONS");
  const unsigned sessions = asked != nullptr ? static_cast<unsigned>(std::atoi(asked)) : 200;
  std::size_t lines = 0;
  for (unsigned seed = 0; seed < sessions && !HasFailure(); ++seed) {
    std::mt19937 random(seed);
    StandIn session;
    session.screen.operateModal = [](forms::Form& form) { form.Unload(); };
    if (seed % 16 != 0) session.program.door.click(session.program.window.ContinueCommand);
    for (auto actions = random() % 1200; actions > 0; --actions) actAtRandom(session.program, random);
    const std::string script = snapshot(session.program);
    const Outcome outcome = run(script);
    EXPECT_EQ(outcome.settings, settings(session.program)) << seed << '\n' << script << outcome.output;
    EXPECT_FALSE(outcome.sent) << seed << '\n' << script;
    EXPECT_EQ(outcome.output.find("snapshot:"), std::string::npos) << outcome.output;
    lines += static_cast<std::size_t>(std::ranges::count(script, '\n'));
  }
  EXPECT_GT(lines, sessions * 10);
}

}  // namespace
}  // namespace tessarine::script
