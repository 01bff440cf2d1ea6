// The language itself. Whole-program runs stand in tests/scripts/.
#include "script/Interpreter.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "script/ScriptBench.h"
#include "support/Sum.h"

namespace tessarine::script {
namespace {

const std::string kChip = "click ContinueCommand; pick ADF4193; click ACommand; ";
// A load of this chip takes 60 ms.
const std::string kTuned =
    "click IOOption(1); click ContinueCommand; pick ADF4113; set RefText 10; set CompText 200; "
    "set PrescalarText 8/9; set VCOText 900; ";

void expectRun(const std::string& script, const std::string& printed) {
  EXPECT_EQ(ScriptBench().run(lines(script)), lines(printed)) << script;
}

TEST(Interpreter, SetsAndShowsEachKindOfControl) {
  expectRun(kChip + "# comment; ; set VCOText  \"12.5\"; show VCOText", "VCOText\t \"12.5\"");
  expectRun(kChip +
                "set VCOText \"a\\b\"; set Combo10(2) Normal; set Check16 1; "
                "show VCOText Combo10(2) Check16 pllM(1) BrowseForm; checked pllM(13) pllM(1)",
            "VCOText\ta\\\\b; Combo10(2)\tNormal; Check16\t1; pllM(1)\tLMX2306; BrowseForm\tBrowse; "
            "pllM(13)\t1; pllM(1)\t0");
  expectRun(kChip +
                "set VCOText; show VCOText; visible VCOText Text27 Frame13; items Combo10(2); "
                "enabled PrevCommand pModel",
            "VCOText\t; VCOText\t1; Text27\t0; Frame13\t0; Combo10(2)\tCPO GND\tNormal; PrevCommand\t0; "
            "pModel\t1");
}

TEST(Interpreter, ALineThatCannotBeCarriedOutEndsTheRun) {
  const std::pair<std::string, std::string> cases[] = {
      {"click Nothing", "there is no control \"Nothing\""},
      {"set Text27 1", "Text27 is not visible"},
      {"click BrowseForm.Command1", "BrowseForm.Command1 is not visible"},
      {"doubleclick Text27", "Text27 is not visible"},
      {"set Combo10(2) Middle", "Combo10(2) has no item \"Middle\""},
      {"set Check16 2", "Check16 takes 0 or 1"},
      {"pick ADF9999", "the model menu has no entry \"ADF9999\""},
      {"pick -", "the model menu has no entry \"-\""},
      {"frobnicate", "there is no command \"frobnicate\""},
      {"click VCOText Label17", "the command is: click CONTROL"},
      {"wait soon", "\"soon\" is no number of milliseconds (0 up to a year)"},
      {"at 5", "the command is: at MS COMMAND"},
      {"at 5 wait 5", "\"wait\" has no place behind at"},
      {"at 5 at 5 time", "\"at\" has no place behind at"},
      {"at 5 click Nothing", "there is no control \"Nothing\""},
      {"checked VCOText", "VCOText is no menu entry"},
      {"items VCOText", "VCOText is no list"},
      {"close VCOText", "there is no window \"VCOText\""},
      {"activate BrowseForm", "BrowseForm is not visible"},
      {"board", "there is no virtual board"},
      {"board reach", "there is nothing to reach"},
  };
  for (const auto& [line, why] : cases) {
    expectRun(kChip + "; " + line + "; time", "t:5: " + why + "; status 2");
  }
}

TEST(Interpreter, ALineOfOtherWordsIsToldWhatTheCommandIs) {
  for (const std::string usage :
       {"pick CAPTION", "set CONTROL VALUE", "click CONTROL", "doubleclick CONTROL", "activate FORM",
        "close FORM", "show CONTROL...", "visible CONTROL...", "enabled CONTROL...", "checked ENTRY...",
        "items CONTROL...", "controls", "expect CONTROL VALUE", "latches", "snapshot", "time", "wait MS",
        "board, board history, board reach, or board fault NAME", "at MS COMMAND"}) {
    const std::string word = usage.substr(0, usage.find_first_of(" ,"));
    const bool takesNothing = word == usage || word == "board";
    expectRun(takesNothing ? word + " now" : word, "t:1: the command is: " + usage + "; status 2");
  }
}

TEST(Interpreter, AFailedExpectGoesOnAndSpoilsTheStatus) {
  expectRun(kChip + "expect VCOText 1; time; expect Check16 \"0\"; expect VCOText",
            "t:4: VCOText is \"\", not \"1\"; time\t1000; status 1");
  expectRun(kChip + "set VCOText a\\b ; expect VCOText a\\\\b ; expect VCOText a\\b ; expect VCOText a\\b",
            "t:7: VCOText is \"a\\\\b \", not \"a\\b\"; status 1");
  expectRun("expect VCOText 1; click VCOText",
            "t:1: VCOText is \"\", not \"1\"; t:2: VCOText is not visible; status 2");
}

TEST(Interpreter, ActionsFallInsideWaitsAtTheirTime) {
  expectRun(kTuned +
                "at 40 time; at 20.5 show VCOText; at 20.5 time; at 0 set VCOText 901; show VCOText; "
                "click AllCommand; time; wait 49.5; time; wait 0.5; wait 70000; time",
            "VCOText\t900; VCOText\t901; time\t20.5; time\t40; time\t60; time\t109.5; time\t70110");
  expectRun(kTuned + "at 40 click AllCommand; at 50 time; click AllCommand; time", "time\t50; time\t120");
  for (const std::string wait : {"click AllCommand", "wait 100"}) {
    expectRun(kTuned + "at 10 click Text27; at 20 time; " + wait + "; time",
              "t:8: Text27 is not visible; status 2");
  }
  expectRun("at 500 time; at 10 time; wait 20",
            "time\t10; t:1: not carried out: the script ended before its time");
}

TEST(Interpreter, TheProgramsEndIsTheScriptsEnd) {
  for (const std::string end :
       {"click Exit1", "close PllForm1", "at 5 click Exit1; at 5 time; click AllCommand",
        "at 5 close PllForm1; at 5 time; wait 10"}) {
    expectRun(kTuned + "expect VCOText 1; " + end + "; click Nothing; time",
              "t:8: VCOText is \"900\", not \"1\"; status 1");
  }
}

TEST(Interpreter, LinesOperateAModalWindowUntilItCloses) {
  const std::string answer =
      "set BrowseForm.Text2 b; show Text38; click BrowseForm.Command2; show Text38; time";
  expectRun(kChip + "set Text38 a; click Command13; " + answer, "Text38\ta; Text38\ta; time\t1000");
  expectRun(kChip + "set Text38 a; at 5 click Command13; wait 10; " + answer,
            "Text38\ta; Text38\ta; time\t1010");
  for (const std::string line : {"click Sweep1", "at 1 click Sweep1; wait 2"}) {
    expectRun(kChip + "click Command13; " + line,
              "t:5: Sweep1(23) takes no input while BrowseForm is open; status 2");
  }
  expectRun(kChip + "click Command13; close PllForm1",
            "t:5: PllForm1 takes no input while BrowseForm is open; status 2");
  for (const std::string opening : {"click Command13", "at 5 click Command13; wait 10"}) {
    ScriptBench bench;
    EXPECT_EQ(bench.run(lines(kChip + opening)), "");
    EXPECT_FALSE(bench.program.window.browseForm.Visible) << "the script's end closes it";
  }
}

TEST(Interpreter, TellsWhatBelongsToAMessageBehindIt) {
  ScriptBench bench;
  bench.screen.afterMessage = [&bench] { bench.out << "why\n"; };
  EXPECT_EQ(bench.run(lines(kTuned + "set PrescalarText 0; click AllCommand")),
            "message\tplain\tTessarine\tPls. set Prescalar\nwhy\n");
}

TEST(Interpreter, PrintsTheWholeTree) {
  const std::string first = ScriptBench().run("controls\n");
  expectSum("tree", first + ScriptBench().run(lines(kTuned + "click ACommand; controls")), 3084501225);
}

}  // namespace
}  // namespace tessarine::script
