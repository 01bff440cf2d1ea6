// The language itself, on a window made for it. Whole-program runs stand in tests/scripts/.
#include "script/Interpreter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "engine/Module1.h"
#include "forms/Build.h"
#include "script/ScriptScreen.h"
#include "script/ScriptTime.h"
#include "support/FakePlatform.h"
#include "transport/PortAccess.h"

namespace tessarine::script {
namespace {

using namespace forms;

struct Dialog : Form {
  explicit Dialog(FormList& forms) : Form(forms, "Dialog", "Ask") {}
  void accept() { Hide(); }
  void cancel() {
    Answer.Text = "cancelled";
    Hide();
  }
  One<TextBox> Answer{*this, "Answer", "", {}};
  One<CommandButton> OK{*this, "OK", "O.K", {}, isDefault, click(this, &Dialog::accept)};
  One<CommandButton> Cancel{*this, "Cancel", "Cancel", {}, isCancel, click(this, &Dialog::cancel)};
};

// A window with one control of each kind that scripts treat differently, and handlers that wait.
struct Window : Form {
  Window(FormList& forms, Module1& with) : Form(forms, "Window", "Bench"), dialog(forms), module(with) {}
  void log(const char* mark) { Log.Caption = Log.Caption.get() + mark; }
  void load() {
    log("(");
    DelayMs(module, 100);
    log(")");
  }
  void mark() { log("!"); }
  void ask() {
    module.platform.screen.showModal(dialog);
    module.platform.screen.messageBox("answer " + dialog.Answer.Text.get(), Icon::plain);
  }
  void exit() { module.platform.screen.endProgram(); }
  void fail() { throw std::runtime_error("N = 300\tdoes not fit"); }
  void Form_QueryUnload() override { exit(); }

  One<Menu> pModel{*this, "pModel", 0, "Model", {}};
  Array<Menu> pllM{"pllM", {{1, pModel, "LMX2306", {}}, {2, pModel, "-", {}}, {3, pModel, "ADF4113", {}}}};
  One<Frame> Panel{*this, "Panel", "", {}, hidden};
  One<TextBox> Inner{Panel, "Inner", "deep", {}};
  One<TextBox> Field{*this, "Field", "10", {}, tip("MHz")};
  Array<Label> Bit{"Bit", {{3, *this, "0", {}}}};
  One<CheckBox> Box{*this, "Box", "Check", {}};
  One<DropList> List{*this, "List", "", {}, items({"Low", "High"})};
  One<Label> Log{*this, "Log", "", {}};
  One<CommandButton> Load{*this, "Load", "Load", {}, click(this, &Window::load)};
  One<CommandButton> Mark{*this, "Mark", "Mark", {}, click(this, &Window::mark)};
  One<CommandButton> Ask{*this, "Ask", "Ask", {}, click(this, &Window::ask)};
  One<CommandButton> Exit{*this, "Exit", "Exit", {}, click(this, &Window::exit)};
  One<CommandButton> Fail{*this, "Fail", "Fail", {}, click(this, &Window::fail)};
  One<CommandButton> Off{*this, "Off", "Off", {}, disabled};
  Dialog dialog;
  Module1& module;
};

struct Result {
  int status = 0;
  std::string out;
  std::string errors;
};

class Script : public testing::Test {
 protected:
  Result run(const std::string& text) {
    std::ostringstream out;
    std::ostringstream errors;
    VirtualTime time;
    ScriptScreen screen(time, out);
    Platform platform{host.port, host.port, host.usb, host.host, time, screen};
    Module1 module(platform);
    FormList forms;
    Window window(forms, module);
    Operator door(forms, screen);
    window.Show();
    std::istringstream script(text);
    Interpreter interpreter({forms, door, screen, nullptr, out, errors}, script, "t");
    const int status = interpreter.run();
    return {status, out.str(), errors.str()};
  }

  FakePlatform host;
};

TEST_F(Script, SetsAndShowsEachKindOfControl) {
  const auto result =
      run("# comment\n\n"
          "set Field  \"12.5\"\nshow Field\n"
          "set Field \"a\\b\"\nset List High\nset Box 1\nclick Bit(3)\n"
          "show Field List Box Bit Window pllM(1)\n"
          "set Field\nshow Field\n"
          "visible Field Inner Panel\nenabled Off Mark\nitems List\nchecked pllM(3)\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out,
            "Field\t \"12.5\"\n"  // the value starts behind one blank
            "Field\ta\\\\b\nList\tHigh\nBox\t1\nBit\t0\nWindow\tBench\npllM(1)\tLMX2306\n"
            "Field\t\n"
            "Field\t1\nInner\t0\nPanel\t0\nOff\t0\nMark\t1\nList\tLow\tHigh\npllM(3)\t0\n");
}

TEST_F(Script, ALineThatCannotBeCarriedOutEndsTheRun) {
  const std::pair<const char*, const char*> cases[] = {
      {"click Nothing", "there is no control \"Nothing\""},
      {"click Dialog.Nothing", "there is no control \"Dialog.Nothing\""},
      {"set Inner 1", "Inner is not visible"},
      {"click Dialog.OK", "Dialog.OK is not visible"},
      {"set List Middle", "List has no item \"Middle\""},
      {"set Box 2", "Box takes 0 or 1"},
      {"pick ADF9999", "the model menu has no entry \"ADF9999\""},
      {"pick -", "the model menu has no entry \"-\""},
      {"frobnicate", "there is no command \"frobnicate\""},
      {"click", "the command is: click CONTROL"},
      {"click Mark Load", "the command is: click CONTROL"},
      {"wait soon", "\"soon\" is no number of milliseconds (0 up to a year)"},
      {"at 5", "the command is: at MS COMMAND"},
      {"at 5 wait 5", "\"wait\" has no place behind at"},
      {"at 5 click Nothing", "there is no control \"Nothing\""},
      {"latches now", "the command is: latches"},
      {"checked Field", "Field is no menu entry"},
      {"items Field", "Field is no list"},
      {"close Field", "there is no window \"Field\""},
      {"board", "there is no virtual board"},
      {"board fault", "the command is: board, board history, board reach, or board fault NAME"},
  };
  for (const auto& [line, why] : cases) {
    const auto result = run("click Mark\n\n" + std::string(line) + "\nshow Log\n");
    EXPECT_EQ(result.errors, "t:3: " + std::string(why) + "\n") << line;
    EXPECT_EQ(result.status, 2) << line;
    EXPECT_EQ(result.out, "") << line;
  }
}

TEST_F(Script, AFailedExpectGoesOnAndSpoilsTheStatus) {
  const auto result =
      run("expect Field 10\nexpect Field 11\nexpect Field \"10\"\nset Field \"a \"\nexpect Field a \n"
          "show Field\nset Field a\\b\nexpect Field a\\\\b\n");
  EXPECT_EQ(result.errors, "t:2: Field is \"10\", not \"11\"\n");
  EXPECT_EQ(result.out, "Field\ta \n");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(run("expect Field 11\nclick Off\n").status, 2);
}

TEST_F(Script, ActionsFallInsideWaitsAtTheirTime) {
  const auto result =
      run("at 150 show Log\nat 60 show Log\nat 60 click Mark\nat 60.5 time\nat 0 click Mark\n"
          "show Log\n"  // between lines no events run
          "click Load\nshow Log\ntime\nwait 49.5\ntime\nwait 0.5\nwait 70000\ntime\n");
  EXPECT_EQ(result.out,
            "Log\t\nLog\t(!\ntime\t60.5\nLog\t(!!)\ntime\t100\ntime\t149.5\nLog\t(!!)\ntime\t70150\n");
  EXPECT_EQ(result.errors, "");
}

TEST_F(Script, AnActionMayWaitItselfAndAFaultIsPrinted) {
  const auto result = run("at 40 click Load\nat 90 click Mark\nclick Load\nshow Log\ntime\nclick Fail\n");
  EXPECT_EQ(result.out, "Log\t((!))\ntime\t140\nmessage\tcritical\tTessarine\tN = 300\\tdoes not fit\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(Script, AnActionRefusedInsideAWaitEndsTheRunWithItsOwnLine) {
  for (const char* const waits : {"click Load", "wait 100"}) {
    const auto result = run("at 10 click Off\nat 20 show Log\n" + std::string(waits) + "\nshow Log\n");
    EXPECT_EQ(result.errors, "t:1: Off is disabled\n") << waits;
    EXPECT_EQ(result.out, "") << waits;
    EXPECT_EQ(result.status, 2) << waits;
  }
}

TEST_F(Script, ActionsBeyondTheEndAreReported) {
  const auto result = run("at 500 click Mark\nat 10 click Mark\nwait 20\n");
  EXPECT_EQ(result.errors, "t:1: not carried out: the script ended before its time\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(Script, TheProgramsEndIsTheScriptsEnd) {
  for (const char* const end : {"click Exit", "close Window", "at 5 click Exit\nat 5 show Log\nclick Load",
                                "at 5 close Window\nat 5 show Log\nwait 10"}) {
    const auto result = run("expect Field 11\n" + std::string(end) + "\nclick Off\nshow Log\n");
    EXPECT_EQ(result.status, 1) << end;
    EXPECT_EQ(result.out, "") << end;
  }
}

TEST_F(Script, LinesOperateAModalDialogUntilItCloses) {
  EXPECT_EQ(run("click Ask\nset Dialog.Answer 42\nshow Log\nclick Dialog.OK\nshow Log\n").out,
            "Log\t\nmessage\tplain\tTessarine\tanswer 42\nLog\t\n");
  EXPECT_EQ(run("at 5 click Ask\nwait 10\nset Dialog.Answer 42\nclick Dialog.OK\ntime\n").out,
            "message\tplain\tTessarine\tanswer 42\ntime\t10\n");
}

TEST_F(Script, AModalDialogKeepsTheOthersShut) {
  for (const char* const line : {"click Mark", "close Window", "at 1 click Mark\nwait 2"}) {
    const auto result = run("click Ask\n" + std::string(line) + "\n");
    EXPECT_THAT(result.errors, testing::HasSubstr(" takes no input while Dialog is open")) << line;
    EXPECT_EQ(result.status, 2) << line;
  }
}

TEST_F(Script, TheScriptsEndCancelsAModalDialog) {
  for (const char* const opening : {"click Ask", "at 5 click Ask\nwait 10"}) {
    const auto result = run(std::string(opening) + "\nset Dialog.Answer 42\n");
    EXPECT_EQ(result.out, "message\tplain\tTessarine\tanswer cancelled\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
  }
}

TEST_F(Script, PrintsTheWholeTree) {
  const auto result = run("controls\n");
  const auto has = [&](const char* line) { EXPECT_THAT(result.out, testing::HasSubstr(line)); };
  has("Window\tpModel(0)\tMenu\tWindow\t1\t1\tModel\t\nWindow\tpllM(1)\tMenu\tpModel(0)\t1\t1\tLMX2306\t\n");
  has("Window\tPanel\tFrame\tWindow\t0\t1\t\t\nWindow\tInner\tTextBox\tPanel\t1\t1\tdeep\t\n");
  has("Window\tField\tTextBox\tWindow\t1\t1\t10\tMHz\n");
  has("Dialog\tCancel\tCommandButton\tDialog\t1\t1\tCancel\t\n");
}

}  // namespace
}  // namespace tessarine::script
