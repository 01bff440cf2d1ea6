// What the recorder makes of sessions. That recordings do again what was done is shown in tests/scripts/.
#include "script/Recorder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "script/Interpreter.h"
#include "script/ScriptScreen.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine::script {
namespace {

// The recording of a script, without its first line.
std::string recorded(const std::string& text) {
  FakePlatform host;
  std::ostringstream out;
  VirtualTime time;
  ScriptScreen screen(time, out);
  Platform platform{host.port, host.port, host.usb, host.host, time, screen};
  Program program(platform);
  WaitedTime waited([&time] { return time.now(); }, true);
  Recorder recorder(program.forms, program.door, waited);
  std::string followed = recorder.text();
  recorder.onChange = [&](std::size_t from) {
    followed.replace(from, std::string::npos, recorder.text(), from);
  };
  program.start();
  std::istringstream script("click ContinueCommand\npick ADF4113\n" + text);
  Interpreter({program.forms, program.door, screen, nullptr, out, out}, script, "t").run();
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(followed, recorder.text());
  const std::string start = headLine() + "click ContinueCommand\npick ADF4113\n";
  EXPECT_EQ(recorder.text().substr(0, start.size()), start);
  return recorder.text().substr(start.size());
}

TEST(Recorder, WritesEachActionSoThatItComesAgain) {
  const std::string hop =
      "set RefText 10\nset CompText 200\nset VCOText 900\nset PrescalarText 8/9\n"
      "click Hop1\nset VcoText1 900\nset VcoText2 901\nset HopText 9\nset DelayText 100\n";
  const std::string panel = "click ACommand\n";
  const std::string cancel = "click BrowseForm.Command2\n";
  const struct {
    const char* what;
    std::string script;
    std::string recording = {};  // empty: the same
  } cases[] = {
      {"typing on in a field", "set RefText 1\nset RefText 10\nset CompText 2\nset RefText 1\n",
       "set RefText 10\nset CompText 2\nset RefText 1\n"},
      {"typing where each key acts", "set PrescalarText 8\nset PrescalarText 8/9\n"},
      {"values whose ends do not show", "set RefText \" a \"\nset CompText\nset VCOText \"\"5\"\"\n"},
      {"windows", "click Parallel\nactivate PllForm1\nactivate ParallelForm\nclose ParallelForm\n"},
      {"time between lines", "wait 500\nclick Sweep1\nwait 500\nclick Gen1\n", "click Sweep1\nclick Gen1\n"},
      {"actions in waits, and in theirs",
       hop + "at 250.5 click Gen1\nat 251 click AllCommand\nat 600 click Hop1\nclick StartHop\n"},
      {"a modal window",
       panel + "click Command1\nwait 300\nset BrowseForm.Text1 *\nset BrowseForm.Text1 *.x\n" + cancel,
       panel + "click Command1\nset BrowseForm.Text1 *\nset BrowseForm.Text1 *.x\n" + cancel},
      {"a modal window in a wait",
       panel + hop + "at 150 click Command1\nat 900 click StopHop\nclick StartHop\nwait 400\n" +
           "set BrowseForm.Text2 x\nwait 100\n" + cancel},
      {"one that the end of the script closes",
       panel + hop + "at 150 click Command1\nclick StartHop\nwait 400\n"},
  };
  for (const auto& [what, script, recording] : cases) {
    EXPECT_EQ(recorded(script), recording.empty() ? script : recording) << what;
  }
}

TEST(Recorder, CountsNoMoreOfAWaitThanItWasAskedFor) {
  std::int64_t wall = 0;
  WaitedTime time([&wall] { return wall; }, false);
  const auto at = [&](std::int64_t moment) {
    wall = moment;
    return time.now();
  };
  EXPECT_EQ(at(5000), 0);  // work
  time.waitBegins(1);
  EXPECT_EQ(at(5400), 400);
  EXPECT_EQ(at(6300), 1000);  // it ends late
  time.waitEnds();
  time.waitBegins(2);
  EXPECT_EQ(at(6800), 1500);
  time.waitBegins(10);  // in an action of its events
  EXPECT_EQ(at(16800), 11500);
  time.waitEnds();
  EXPECT_EQ(at(17000), 11500);  // the outer one is over
  time.waitEnds();
  time.beginOpen();
  EXPECT_EQ(at(18000), 12500);
  time.waitEnds();
  EXPECT_EQ(at(19000), 12500);
}

}  // namespace
}  // namespace tessarine::script
