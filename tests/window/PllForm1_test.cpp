#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Names = std::vector<std::string>;

const Names kTopLevel = {"Picture1",  "Frame24",   "Frame4193", "Frame17",   "GeneralFrame",
                         "DataFrame", "Frame2(0)", "Frame2(1)", "Frame2(2)", "Frame11"};

TEST(MainWindow, ShowsTheFirstScreenAloneThenTheWorkingScreen) {
  ProgramBench bench;
  EXPECT_EQ(bench.window.Caption.get(), "Tessarine  Rev. C0");
  EXPECT_EQ(bench.shown(kTopLevel), Names{"Picture1"});
  EXPECT_EQ(bench.window.Picture1.Place.get(), (Twips{1000, 1000, 9700, 2000}));
  EXPECT_EQ(bench.window.Frame2(0).Place.get().Width, 7215);
  EXPECT_EQ(bench.value("Combo10(4)"), "SW1/SW2");
  EXPECT_EQ(bench.value("PrescalarText"), "");
  EXPECT_EQ(bench.window.PrescalarText.List.get().size(), 6U);
  EXPECT_TRUE(bench.host.port.accesses.empty());

  bench.click("ContinueCommand");
  EXPECT_EQ(bench.shown(kTopLevel), (Names{"GeneralFrame", "DataFrame", "Frame2(0)"}));
  EXPECT_EQ(bench.value("GeneralFrame"), "  ");
  EXPECT_TRUE(bench.window.ACommand.Enabled);
  EXPECT_EQ(bench.value("LDLabel"), "Lock Detect Off");
}

TEST(MainWindow, OneModeIsOnAtATime) {
  ProgramBench bench;
  bench.open();
  const struct {
    const char* entry;
    const char* frame;
  } modes[] = {{"Hop1", "Frame2(1)"}, {"Sweep1", "Frame2(2)"}, {"Gen1", "Frame2(0)"}};
  for (const auto& mode : modes) {
    bench.click(mode.entry);
    EXPECT_EQ(bench.shown({"Frame2(0)", "Frame2(1)", "Frame2(2)"}), Names{mode.frame});
    for (const char* entry : {"Gen1", "Hop1", "Sweep1"}) {
      EXPECT_EQ(static_cast<Menu&>(bench.control(entry)).Checked, std::string(entry) == mode.entry) << entry;
    }
  }
}

TEST(MainWindow, HopMenuEntryAloneClearsTheHopFlag) {
  ProgramBench bench;
  bench.open();
  bench.window.HopRunning = true;
  bench.window.SweepRunning = kTrue;
  bench.click("Sweep1");
  bench.click("Gen1");
  EXPECT_TRUE(bench.window.HopRunning);
  bench.click("Hop1");
  EXPECT_FALSE(bench.window.HopRunning);
  EXPECT_EQ(bench.window.SweepRunning, kTrue);
}

TEST(MainWindow, ClosePausesOnTheFirstScreenAndClearsTheWorkingScreen) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4113");
  bench.tune();
  bench.click("AllCommand");
  bench.click("ACommand");
  bench.click("Hop1");
  Names during;
  bool modeMenu = true;
  bench.host.screen.at(1500, [&] {
    during = bench.shown(kTopLevel);
    modeMenu = bench.window.Mode1.Enabled;
  });
  const auto before = bench.host.clock.elapsed;
  bench.click("Close1");
  EXPECT_EQ(bench.host.clock.elapsed - before, 3 * FakeClock::kSecond);
  EXPECT_EQ(during, (Names{"Picture1", "Frame11"}));
  EXPECT_FALSE(modeMenu);
  EXPECT_EQ(bench.shown(kTopLevel), (Names{"GeneralFrame", "DataFrame", "Frame2(0)"}));
  for (const char* emptied : {"CompText", "PrescalarText", "RefText", "VCOText", "Rregister", "Nregister"}) {
    EXPECT_EQ(bench.value(emptied), "") << emptied;
  }
  EXPECT_TRUE(bench.window.Hop1.Checked) << "the mode's check mark survives";
  EXPECT_TRUE(bench.window.pllM(9).Checked) << "so does the model's";
  EXPECT_EQ(bench.value("ACommand"), "Close");
  bench.pick("ADF4112");
  EXPECT_TRUE(bench.window.pllM(9).Checked && bench.window.pllM(8).Checked);
}

TEST(MainWindow, BecomingActiveAgainResetsLampAndPolarity) {
  ProgramBench bench;
  bench.open(1);
  bench.host.usb.lockPin = 1;
  bench.pick("LMX2326");
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
}

TEST(MainWindow, ExitEndsInTheMiddleOfALoadAndOnlyClosingClosesUsb) {
  for (const bool byExit : {true, false}) {
    ProgramBench bench;
    bench.open(1);
    bench.pick("ADF4113");
    bench.tune();
    bench.host.screen.at(15, [&] {
      if (byExit) {
        bench.program.door.click(bench.window.Exit1);
      } else {
        bench.program.door.close(bench.window);
      }
    });
    bench.click("AllCommand");
    const auto& calls = bench.host.usb.calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "close"), byExit ? 0 : 1);
    EXPECT_EQ(bench.value("Nregister"), "000000000000000000000000") << "the load was cut off";
  }
}

// What each entry of the model menu makes of the window.
struct ModelRow {
  const char* caption;
  const char* model;
  const char* prescalers;
  Names buttons;
  bool words;  // DataFrame, else Frame4193
  bool fourRows;
  const char* panel;
};

const Names kS1 = {"CalculateCommand", "AllCommand", "FCommand", "NCommand", "RCommand"};
const Names kS2 = {"CalculateCommand", "AllCommand"};
const Names kS3 = {"Command14(0)", "Command14(1)", "Command14(2)"};
const char* const kLMX = "32/33 ";
const char* const kADF = "8/9 16/17 32/33 64/65 ";
const char* const kFrac = "4/5 8/9 ";
const char* const kAll = "4/5 8/9 16/17 32/33 64/65 128/129 ";

TEST(ModelMenu, TurnsTheWindowIntoThePanelOfTheChip) {
  const ModelRow rows[] = {
      {"LMX2306", "LMX2306", kLMX, kS1, true, false, "Frame16"},
      {"LMX2316", "LMX2316", kLMX, kS1, true, false, "Frame16"},
      {"LMX2326", "LMX2326", kLMX, kS1, true, false, "Frame16"},
      {"ADF4106", "ADF4113", kADF, kS1, true, false, "Frame11"},
      {"ADF4110", "ADF4110", kADF, kS1, true, false, "Frame11"},
      {"ADF4111", "ADF4111", kADF, kS1, true, false, "Frame11"},
      {"ADF4112", "ADF4112", kADF, kS1, true, false, "Frame11"},
      {"ADF4113", "ADF4113", kADF, kS1, true, false, "Frame11"},
      {"ADF4118", "ADF4118", kAll, kS1, true, false, "Frame16"},
      {"ADF4153", "ADF4153", kFrac, kS2, true, true, "Frame13"},
      {"ADF4156", "ADF4156", kFrac, kS2, true, true, "Frame13"},
      {"ADF4193", "ADF4193", kFrac, kS3, false, false, "Frame17"},
      {"ADF4251", "ADF4251", kFrac, kS2, true, true, "Frame12"},
      {"ADF4252", "ADF4252", kFrac, kS2, true, true, "Frame12"},
      {"SKY72300-362", "SKY72300-362", kAll, kS1, false, false, "Frame24"},
  };
  for (const ModelRow& row : rows) {
    SCOPED_TRACE(row.caption);
    ProgramBench bench;
    bench.open();
    bench.pick(row.caption);
    EXPECT_EQ(bench.program.module.CurrentModel, row.model);
    EXPECT_EQ(bench.value("GeneralFrame"), "    PLL Model :  " + std::string(row.caption) + "    ");
    std::string prescalers;
    for (const auto& item : bench.window.PrescalarText.List.get()) prescalers += item + " ";
    EXPECT_EQ(prescalers, row.prescalers);
    EXPECT_EQ(bench.shown({"CalculateCommand", "AllCommand", "FCommand", "NCommand", "RCommand", "MCommand",
                           "Command14(0)", "Command14(1)", "Command14(2)"}),
              row.buttons);
    EXPECT_EQ(bench.visible("DataFrame"), row.words);
    EXPECT_EQ(bench.visible("Frame4193"), !row.words);
    EXPECT_EQ(bench.visible("Mregister"), row.fourRows);
    EXPECT_EQ(bench.value("Label16(1)"), row.fourRows ? "R1:" : "R Register:");
    const bool setupRow = std::string(row.model) == "ADF4193";
    EXPECT_EQ(bench.shown({"SetupLabel", "Text38", "Command13"}).size(), setupRow ? 3U : 0U);
    bench.click("ACommand");
    const Names panels = {"Frame11", "Frame12", "Frame13", "Frame16", "Frame17", "Frame24"};
    EXPECT_EQ(bench.shown(panels), Names{row.panel});
    EXPECT_EQ(bench.value("ACommand"), std::string(row.caption).starts_with("LMX") ? "Advanced" : "Close");
  }
}

TEST(ModelMenu, KeepsItsQuirksFromOneModelToTheNext) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4252");
  bench.set("PrescalarText", "4/5");
  bench.pick("ADF4118");
  EXPECT_EQ(bench.value("PrescalarText"), "4/5") << "the list and its text stay";
  EXPECT_EQ(bench.value("Label16(0)"), "R0:") << "the prompts stay once a fractional chip was picked";
  EXPECT_FALSE(bench.visible("Mregister"));
  bench.pick("ADF4118");
  EXPECT_FALSE(bench.window.pllM(10).Checked) << "picking the checked entry takes its mark";
  bench.pick("ADF4118");
  EXPECT_FALSE(bench.window.pllM(10).Checked);
  EXPECT_EQ(bench.window.CurrentModelIndex, 10);
  bench.pick("SKY72300-362");
  EXPECT_TRUE(bench.visible("Frame24")) << "visible from the pick on, one twip small";
  EXPECT_EQ(bench.window.Frame24.Place.get(), (Twips{1, 1, 1, 1}));
}

TEST(ModelMenu, WorksOnTheFirstScreen) {
  ProgramBench bench;
  bench.pick("ADF4193");
  EXPECT_EQ(bench.shown(kTopLevel), (Names{"Picture1", "Frame4193"}));
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.value("GeneralFrame"), "  ");
  EXPECT_TRUE(bench.visible("DataFrame"));
}

TEST(ModelMenu, SendsNothingButReappliesTheWiring) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4113");
  EXPECT_EQ(bench.host.port.bytes(), (std::vector<int>{0, 0})) << "control register, then all lines low";
  EXPECT_EQ(bench.pll.CLOCKbit, 1);
  bench.window.parallelForm.LPTwText(1).Text = "10";
  bench.forget();
  bench.pick("ADF4112");
  EXPECT_EQ(bench.messages(), Names{"Pin number between 2-9 only !!"});
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
    ProgramBench bench;
    bench.open();
    bench.pick("ADF4113");
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
