// What the recorder makes of sessions. That recordings do again what was done is shown in tests/scripts/.
#include "script/Recorder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "script/ScriptBench.h"

namespace tessarine::script {
namespace {

// The recording of a script behind the pick of a chip.
std::string recorded(const std::string& script) {
  ScriptBench bench;
  WaitedTime waited([&bench] { return bench.time.now(); }, true);
  Recorder recorder(bench.program.forms, bench.program.door, waited);
  std::string followed = recorder.text();
  recorder.onChange = [&](std::size_t from) {
    followed.replace(from, std::string::npos, recorder.text(), from);
  };
  const std::string start = lines("click ContinueCommand; pick ADF4113");
  EXPECT_EQ(bench.run(start), "");
  EXPECT_EQ(recorder.settled(), recorder.text().size()) << "a pipe would miss it";
  EXPECT_EQ(bench.run(script), "");
  EXPECT_EQ(followed, recorder.text());
  EXPECT_TRUE(followed.starts_with(headLine() + start)) << followed;
  return followed.substr((headLine() + start).size());
}

TEST(Recorder, WritesEachActionSoThatItComesAgain) {
  const std::string hop =
      "set RefText 10; set CompText 200; set VCOText 900; set PrescalarText 8/9; "
      "click Hop1; set VcoText1 900; set VcoText2 901; set HopText 9; set DelayText 100; ";
  const std::string panel = "click ACommand; ";
  const std::string typed =
      "set BrowseForm.Text1 *; set BrowseForm.Text1 *.x; set BrowseForm.Text2 a; set BrowseForm.Text2 ab; ";
  const std::string cancel = "click BrowseForm.Command2";
  const struct {
    const char* what;
    std::string script;
    std::string recording = {};  // empty: the same
  } cases[] = {
      {"typing on in a field", "set RefText 1; set RefText 10; set CompText 2; set RefText 1",
       "set RefText 10; set CompText 2; set RefText 1"},
      {"typing where each key acts", "set PrescalarText 8; set PrescalarText 8/9"},
      {"values whose ends do not show", "set RefText \" a \"; set CompText; set VCOText \"\"5\"\""},
      {"windows", "click Parallel; activate PllForm1; activate ParallelForm; close ParallelForm"},
      {"time between lines", "wait 500; click Sweep1; wait 500; click Gen1", "click Sweep1; click Gen1"},
      {"actions in waits, and in theirs",
       hop + "at 250.5 click Gen1; at 251 click AllCommand; at 600 click Hop1; click StartHop"},
      {"a modal window", panel + "click Command1; wait 300; " + typed + cancel,
       panel + "click Command1; " + typed + cancel},
      {"a modal window in a wait", panel + hop +
                                       "at 150 click Command1; at 900 click StopHop; click StartHop; "
                                       "wait 400; set BrowseForm.Text2 x; wait 100; " +
                                       cancel},
      {"one that the end of the script closes",
       panel + hop + "at 150 click Command1; click StartHop; wait 400"},
  };
  for (const auto& [what, script, recording] : cases) {
    EXPECT_EQ(recorded(lines(script)), lines(recording.empty() ? script : recording)) << what;
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
