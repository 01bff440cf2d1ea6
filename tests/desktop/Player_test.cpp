// Scripts that are played in the windows one after the other.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <memory>
#include <string>

#include "apps/BoardLink.h"
#include "apps/Options.h"
#include "apps/ScriptPlayer.h"
#include "apps/SteadyTime.h"
#include "desktop/Bench.h"

namespace tessarine::desktop {
namespace {

struct Played : ScriptRun {
  void comesTo(int line) override { said += std::to_string(line) + ' '; }
  void prints(const std::string& text) override { said += text; }
  void complains(const std::string& text) override { said += "! " + text; }
  [[nodiscard]] bool isStopped() const override { return said.find("Step") != std::string::npos; }
  std::string said;
};

TEST(ScriptPlayer, PlaysOneBehindTheOtherAsEachStands) {
  Desktop desktop;
  const auto link = linkToBoard(Options(), desktop, {steadyMicroseconds, nullptr, {}});
  Program program(link->platform());
  link->connect(program);
  script::WaitedTime time(steadyMicroseconds, false);
  program.module.waitWatch = &time;
  desktop.remark = [](const std::string&) { return std::string("why"); };
  desktop.attach(program.forms, program.door);
  program.start();
  ScriptPlayer player(desktop, program, *link, time);
  const std::string tuned =
      "set RefText 10\nset CompText 200\nset PrescalarText 8/9\nset VCOText 900\nclick AllCommand\nlatches\n";
  const struct {
    std::string script;
    ScriptEnd end;
    std::string said;
  } plays[] = {
      {"click ContinueCommand\npick ADF4113\nat 20 click Nothing\n", ScriptEnd::refused,
       "1 2 3 ! t:3: there is no control \"Nothing\"\n"},
      {"at 1 show Check1\nat 60 show Label4\nat 5 click Text27\nwait 30\nshow Label4\n", ScriptEnd::refused,
       "1 2 3 4 Check1\t1\n! t:3: Text27 is not visible\n"},
      {tuned + "board fault none\nexpect VCOText 9\nat 10 show RefText\nwait 5\nshow VCOText\nwait 40\n",
       ScriptEnd::expectFailed,
       "1 2 3 4 5 6 latch\t000000111000000010010010\nlatch\t000000000000000011001000\n"
       "latch\t000000100011001000010001\n7 8 ! t:8: VCOText is \"900\", not \"9\"\n"
       "9 10 11 VCOText\t900\n12 RefText\t10\n"},
      {"set PrescalarText 0\nclick AllCommand\nclick AllCommand\nat 10 show Label4\nwait 60000\nshow "
       "VCOText\n",
       ScriptEnd::done,
       "1 2 message\tplain\tTessarine\tPls. set Prescalar\nwhy\n"
       "3 message\tplain\tTessarine\tPls. set Prescalar\n4 5 Label4\tStep Resolution:\n"},
      {"click ACommand\nclick Command1\nset BrowseForm.Text2 x\nclick BrowseForm.Command2\nshow VCOText\n",
       ScriptEnd::done, "1 2 3 4 5 VCOText\t900\n"},
  };
  QElapsedTimer watch;
  watch.start();
  for (const auto& [script, end, said] : plays) {
    Played played;
    EXPECT_EQ(player.play(script, "t", played), end) << script;
    EXPECT_EQ(played.said, said) << script;
    EXPECT_FALSE(desktop.answer) << "a message of the operator's own opens its box again";
  }
  EXPECT_LT(watch.elapsed(), 30'000) << "a wait ends where it is stopped, at the time of what stops it";
  desktop.detach();
}

}  // namespace
}  // namespace tessarine::desktop
