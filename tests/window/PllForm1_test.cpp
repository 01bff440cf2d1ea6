#include <string>
#include <utility>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

const Texts kTopLevel = {"Picture1",  "Frame24",   "Frame4193", "Frame17",   "GeneralFrame",
                         "DataFrame", "Frame2(0)", "Frame2(1)", "Frame2(2)", "Frame11"};
const Texts kWorkingScreen = {"GeneralFrame", "DataFrame", "Frame2(0)"};

TEST(MainWindow, ShowsTheFirstScreenAloneThenTheWorkingScreen) {
  ProgramBench bench;
  EXPECT_EQ(bench.window.Caption.get(), "Tessarine  Rev. C0");
  EXPECT_EQ(bench.shown(kTopLevel), Texts{"Picture1"});
  EXPECT_EQ(bench.window.Picture1.Place.get(), (Twips{1000, 1000, 9700, 2000}));
  EXPECT_EQ(bench.window.Frame2(0).Place.get().Width, 7215);
  EXPECT_EQ(bench.value("Combo10(4)"), "SW1/SW2");
  EXPECT_EQ(bench.value("PrescalarText"), "");
  EXPECT_EQ(bench.window.PrescalarText.List.get().size(), 6U);
  EXPECT_TRUE(bench.host.port.accesses.empty());

  bench.click("ContinueCommand");
  EXPECT_EQ(bench.shown(kTopLevel), kWorkingScreen);
  EXPECT_EQ(bench.value("GeneralFrame"), "  ");
  EXPECT_TRUE(bench.window.ACommand.Enabled);
  EXPECT_EQ(bench.value("LDLabel"), "Lock Detect Off");
}

TEST(MainWindow, OneModeIsOnAtATimeAndTheHopEntryAloneEndsAHop) {
  const struct {
    const char* entry;
    const char* frame;
    bool hopGoesOn;
  } modes[] = {{"Sweep1", "Frame2(2)", true}, {"Gen1", "Frame2(0)", true}, {"Hop1", "Frame2(1)", false}};
  ProgramBench bench;
  bench.open();
  bench.window.HopRunning = true;
  bench.window.SweepRunning = kTrue;
  for (const auto& mode : modes) {
    bench.click(mode.entry);
    EXPECT_EQ(bench.shown({"Frame2(0)", "Frame2(1)", "Frame2(2)"}), Texts{mode.frame});
    for (const auto& other : modes)
      EXPECT_EQ(static_cast<Menu&>(bench.control(other.entry)).Checked, other.entry == mode.entry);
    EXPECT_EQ(bench.window.HopRunning, mode.hopGoesOn);
    EXPECT_EQ(bench.window.SweepRunning, kTrue);
  }
}

TEST(MainWindow, BecomingActiveAgainResetsLampAndPolarity) {
  ProgramBench bench("LMX2326", 1);
  bench.host.usb.lockPin = 1;
  bench.tune("900", "32/33");
  bench.click("AllCommand");
  bench.click("ACommand");
  bench.click("Check1");
  ASSERT_EQ(bench.value("LDLabel"), "Lock Detect On");
  ASSERT_EQ(bench.program.module.PolarityNegative, kTrue);
  bench.window.Move(300, 300, 900, 900);

  bench.click("About1");
  bench.click("frmAbout.cmdOK");
  EXPECT_EQ(bench.value("LDLabel"), "Lock Detect Off");
  EXPECT_EQ(bench.program.module.PolarityNegative, kFalse);
  EXPECT_EQ(bench.value("Check1"), "0");
  EXPECT_EQ(bench.window.Place.get(), (Twips{0, 0, 900, 900}));
  EXPECT_FALSE(bench.visible("Picture1"));

  bench.set("Check1", "1");
  bench.click("About1");
  bench.set("Check1", "0");
  bench.set("VCOText", "901");
  EXPECT_EQ(bench.program.module.PolarityNegative, kTrue) << "the window was active before the box changed";
}

TEST(MainWindow, ExitEndsInTheMiddleOfALoadAndOnlyClosingClosesUsb) {
  for (const bool byExit : {true, false}) {
    ProgramBench bench("ADF4113", 1);
    bench.tune();
    bench.host.screen.at(15, [&] {
      if (byExit) {
        bench.click("Exit1");
      } else {
        bench.program.door.close(bench.window);
      }
    });
    bench.click("AllCommand");
    EXPECT_EQ(bench.host.usb.calls.back() == "close", !byExit);
    EXPECT_EQ(bench.value("Nregister"), "000000000000000000000000") << "the load was cut off";
  }
}

TEST(ModelMenu, TurnsTheWindowIntoThePanelOfTheChip) {
  struct Look {
    const char* prescalers;
    Texts buttons;
    bool words;  // DataFrame, else Frame4193
    bool fourRows;
    const char* panel;
  };
  const Texts five = {"CalculateCommand", "AllCommand", "FCommand", "NCommand", "RCommand"};
  const Texts two = {"CalculateCommand", "AllCommand"};
  const Texts ownThree = {"Command14(0)", "Command14(1)", "Command14(2)"};
  const char* const all = "4/5 8/9 16/17 32/33 64/65 128/129 ";
  const std::pair<Look, Texts> rows[] = {
      {{"32/33 ", five, true, false, "Frame16"}, {"LMX2306", "LMX2316", "LMX2326"}},
      {{"8/9 16/17 32/33 64/65 ", five, true, false, "Frame11"},
       {"ADF4106", "ADF4110", "ADF4111", "ADF4112", "ADF4113"}},
      {{all, five, true, false, "Frame16"}, {"ADF4118"}},
      {{"4/5 8/9 ", two, true, true, "Frame13"}, {"ADF4153", "ADF4156"}},
      {{"4/5 8/9 ", ownThree, false, false, "Frame17"}, {"ADF4193"}},
      {{"4/5 8/9 ", two, true, true, "Frame12"}, {"ADF4251", "ADF4252"}},
      {{all, five, false, false, "Frame24"}, {"SKY72300-362"}},
  };
  for (const auto& [look, models] : rows) {
    for (const std::string& model : models) {
      SCOPED_TRACE(model);
      ProgramBench bench(model);
      EXPECT_EQ(bench.program.module.CurrentModel, model == "ADF4106" ? "ADF4113" : model);
      EXPECT_EQ(bench.value("GeneralFrame"), "    PLL Model :  " + model + "    ");
      std::string prescalers;
      for (const auto& item : bench.window.PrescalarText.List.get()) prescalers += item + " ";
      EXPECT_EQ(prescalers, look.prescalers);
      EXPECT_EQ(bench.shown({"CalculateCommand", "AllCommand", "FCommand", "NCommand", "RCommand", "MCommand",
                             "Command14(0)", "Command14(1)", "Command14(2)"}),
                look.buttons);
      EXPECT_EQ(bench.shown({"DataFrame", "Frame4193"}), Texts{look.words ? "DataFrame" : "Frame4193"});
      EXPECT_EQ(bench.visible("Mregister"), look.fourRows);
      EXPECT_EQ(bench.value("Label16(1)"), look.fourRows ? "R1:" : "R Register:");
      const Texts setupRow = {"SetupLabel", "Text38", "Command13"};
      EXPECT_EQ(bench.shown(setupRow), model == "ADF4193" ? setupRow : Texts{});
      bench.click("ACommand");
      EXPECT_EQ(bench.shown({"Frame11", "Frame12", "Frame13", "Frame16", "Frame17", "Frame24"}),
                Texts{look.panel});
      EXPECT_EQ(bench.value("ACommand"), model.starts_with("LMX") ? "Advanced" : "Close");
      bench.pick("ADF4113");
      EXPECT_EQ(bench.shown({"Frame11", "Frame12", "Frame13", "Frame17", "Frame24", "Text38", "Frame4193"}),
                Texts{});
    }
  }
}

TEST(ModelMenu, KeepsItsQuirksFromOneModelToTheNext) {
  ProgramBench bench("ADF4252");
  bench.set("PrescalarText", "4/5");
  bench.pick("ADF4118");
  EXPECT_EQ(bench.value("PrescalarText"), "4/5") << "the list and its text stay";
  EXPECT_EQ(bench.value("Label16(0)"), "R0:") << "the prompts stay once a fractional chip was picked";
  EXPECT_FALSE(bench.visible("Mregister"));
  for (int again = 0; again < 2; ++again) {
    bench.pick("ADF4118");
    EXPECT_FALSE(bench.window.pllM(10).Checked) << "picking the checked entry takes its mark";
  }
  EXPECT_EQ(bench.window.CurrentModelIndex, 10);
  bench.pick("SKY72300-362");
  EXPECT_TRUE(bench.visible("Frame24")) << "visible from the pick on, one twip small";
  EXPECT_EQ(bench.window.Frame24.Place.get(), (Twips{1, 1, 1, 1}));
}

TEST(ModelMenu, WorksOnTheFirstScreen) {
  ProgramBench bench;
  bench.pick("ADF4193");
  EXPECT_EQ(bench.shown(kTopLevel), (Texts{"Picture1", "Frame4193"}));
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.value("GeneralFrame"), "  ");
  EXPECT_TRUE(bench.visible("DataFrame"));
}

TEST(ModelMenu, SendsNothingButReappliesTheWiring) {
  ProgramBench bench;
  bench.open();
  bench.forget();
  bench.pick("ADF4113");
  EXPECT_EQ(bench.host.port.bytes(), (std::vector<int>{0, 0})) << "control register, then all lines low";
  EXPECT_EQ(bench.pll.CLOCKbit, 1);
  bench.window.parallelForm.LPTwText(1).Text = "10";
  bench.pick("ADF4112");
  EXPECT_EQ(bench.messages(), Texts{"Pin number between 2-9 only !!"});
  EXPECT_EQ(bench.program.module.CurrentModel, "ADF4112");
  EXPECT_EQ(bench.pll.DATAbit, 2);
}

TEST(Prescaler, ShowsItsBitsInTheFunctionLatch) {
  const struct {
    const char* text;
    const char* onChange;   // DB23 and DB22 after the text changed
    const char* onOpening;  // after 64/65 was shown and the panel opened with the text
  } rows[] = {{"64/65", "11", "11"}, {"32/33", "10", "10"}, {" 16/17 ", "01", "01"}, {"9", "00", "00"},
              {"4/5", "00", "11"},   {"8.5", "00", "11"},   {"", "00", "11"},        {"128/129", "00", "11"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    ProgramBench bench("ADF4113");
    const auto bits = [&] { return bench.value("Label33(2)") + bench.value("Label33(3)"); };
    bench.set("PrescalarText", "64");
    bench.set("PrescalarText", row.text);
    EXPECT_EQ(bits(), row.onChange);
    bench.window.Label33(2).Caption = "1";
    bench.window.Label33(3).Caption = "1";
    bench.click("ACommand");
    EXPECT_EQ(bits(), row.onOpening);
  }
}

}  // namespace
}  // namespace tessarine
