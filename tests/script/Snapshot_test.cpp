// Snapshots of random sessions: run by a fresh program, each brings back all settings and sends nothing.
#include "script/Snapshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>

#include "script/ScriptBench.h"
#include "script/StandIn.h"
#include "support/AnyHand.h"
#include "support/Sum.h"

namespace tessarine::script {
namespace {

using forms::Control;

// All but what commands have shown, a line for each control.
std::string settings(const Program& program, bool isCopy) {
  static constexpr std::string_view kShown[] = {"Fregister", "Rregister", "Nregister",
                                                "Mregister", "Label21(",  "PFDLabel",
                                                "LDLabel",   "Label8",    "Label15"};
  static constexpr std::string_view kFiles[] = {"Text38", "Text40", "Text47"};
  std::string lines;
  for (const forms::Form* const form : program.forms.all()) {
    lines += form->name() + (form->Visible ? " is open" : "") +
             (program.forms.active() == form ? ", active" : "") + '\n';
    if (form != &program.window && form != &program.window.parallelForm) continue;
    for (const Control* const control : form->controls()) {
      const auto isNamed = [&](std::string_view name) { return control->name().starts_with(name); };
      std::string value = std::ranges::any_of(kShown, isNamed) ? "" : control->value();
      // A copy names files wherever it runs.
      if (!isCopy && std::ranges::any_of(kFiles, isNamed) && !value.empty())
        value = std::filesystem::absolute(value);
      const bool checked =
          control->container() == &program.window.Mode1 && static_cast<const forms::Menu*>(control)->Checked;
      lines += control->name() + (control->Visible ? " v" : " -") + (control->Enabled ? "e " : "- ") +
               (checked ? "checked " : "") + value + '\n';
    }
  }
  return lines;
}

TEST(Snapshot, GoesThereOnTheShortestWay) {
  ScriptBench session;
  const std::string way = lines(
      "click IOOption(1); click ContinueCommand; click Parallel; set ParallelForm.ParallelText 278; "
      "click ParallelForm.OKButton; pick ADF4251; click ACommand; click MRLabel(4); click Option4(2); "
      "pick ADF4113; click ACommand; click Sweep1; set RefText 10; set PrescalarText 8/9; "
      "set StartText1 900; click ACommand; set Text40 /x y/z; click ACommand");
  EXPECT_EQ(session.run(way), "");
  const std::string script = snapshot(session.program);
  EXPECT_EQ(script.substr(script.find('\n') + 1), way);
}

bool hasSent(const FakePlatform& host) {
  return std::ranges::any_of(host.port.bytes(), [](int byte) { return byte != 0; }) ||
         std::ranges::any_of(host.usb.calls, [](const auto& call) { return call.starts_with("shift"); });
}

TEST(Snapshot, BringsBackTheSettingsOfAnySession) {
  std::string all;
  for (unsigned seed = 0; seed < 200 && !HasFailure(); ++seed) {
    std::mt19937 random(seed);
    StandIn session;
    session.screen.operateModal = [](forms::Form& form) { form.Unload(); };
    if (seed % 16 != 0) session.program.door.click(session.program.window.ContinueCommand);
    for (auto actions = random() % 600; actions > 0; --actions)
      (void)actAtRandom(session.program, random, false);
    const std::string script = snapshot(session.program);
    all += script.substr(script.find('\n'));  // without the day
    ScriptBench fresh;
    EXPECT_EQ(fresh.run(script).find("t:"), std::string::npos) << fresh.out.str();
    EXPECT_EQ(settings(fresh.program, true), settings(session.program, false)) << seed << '\n' << script;
    EXPECT_FALSE(hasSent(fresh.host)) << seed << '\n' << script;
  }
  expectSum("snapshots", anywhere(all), 2952188293);
}

}  // namespace
}  // namespace tessarine::script
