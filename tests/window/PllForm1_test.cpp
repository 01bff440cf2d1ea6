#include "window/PllForm1.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

// All that a form's header says of its controls, a line each.
std::string listing(const Form& form) {
  std::ostringstream out;
  for (const Control* const c : form.controls()) {
    const auto& [left, top, width, height] = c->Place.get();
    out << kindName(c->kind()) << ' ' << c->name() << " in " << c->container()->name() << ": " << c->value()
        << " at " << left << ' ' << top << ' ' << width << ' ' << height << (c->Visible ? "" : " hidden")
        << (c->Enabled ? "" : " disabled") << (c->Click ? " clicks" : "") << ' ' << c->ToolTip.get();
    if (const auto* const label = dynamic_cast<const Label*>(c)) out << " look " << int(label->look);
    if (const auto* const check = dynamic_cast<const CheckBox*>(c)) out << ' ' << check->Caption.get();
    if (const auto* const option = dynamic_cast<const OptionButton*>(c)) out << ' ' << option->Caption.get();
    if (const auto* const button = dynamic_cast<const CommandButton*>(c))
      out << (button->Default ? " Enter" : "") << (button->Cancel ? " Escape" : "");
    if (const auto* const menu = dynamic_cast<const Menu*>(c))
      out << ' ' << menu->shortcut << (menu->Checked ? " checked" : "");
    if (const auto* const list = dynamic_cast<const ListControl*>(c))
      for (const std::string& item : list->List.get()) out << " | " << item;
    out << '\n';
  }
  return out.str();
}

// A sum for each form as it was looked over on the screen. Who changes a caption, a place or a look there
// looks at it again (TESSARINE_DRAW_INTO), reads the listing and takes the new sum.
TEST(Forms, AreAsTheyWereLookedOver) {
  ProgramBench bench;
  std::vector<std::pair<std::string, std::uint32_t>> sums;
  std::string all;
  for (const Form* const form : bench.program.forms.all()) {
    std::uint32_t sum = 2166136261U;  // FNV-1a
    const std::string text = form->Caption.get() + '\n' + listing(*form);
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
    sums.emplace_back(form->name(), sum);
    all += text;
  }
  const decltype(sums) expected = {{"PllForm1", 1610949628U},
                                   {"ParallelForm", 473557852U},
                                   {"BrowseForm", 335341048U},
                                   {"frmAbout", 1341296523U}};
  EXPECT_EQ(sums, expected) << all;
}

TEST(MainWindow, ShowsTheFirstScreenAloneThenTheWorkingScreen) {
  ProgramBench bench;
  const std::string topLevel =
      "Picture1 Frame24 Frame4193 Frame17 GeneralFrame DataFrame Frame2(0) Frame2(1) Frame2(2) Frame11";
  EXPECT_EQ(bench.shown(topLevel), "Picture1");
  EXPECT_TRUE(bench.host.port.accesses.empty());
  bench.open();
  EXPECT_EQ(bench.shown(topLevel), "GeneralFrame DataFrame Frame2(0)");
  EXPECT_EQ(bench.value("GeneralFrame"), "  ");
  EXPECT_TRUE(bench.window.ACommand.Enabled);
}

TEST(MainWindow, CloseClearsTheScreenAfterAPauseAndLeavesTheMarks) {
  const std::string all = "Picture1 GeneralFrame DataFrame Frame2(0) Frame2(1) Mregister Label16(3)";
  ProgramBench bench("ADF4153");
  bench.tune();
  bench.click("AllCommand");
  bench.click("ACommand");
  bench.click("Hop1");
  bench.forget();
  bench.host.screen.at(2999, [&] {
    EXPECT_EQ(bench.shown(all), "Picture1");
    EXPECT_FALSE(bench.control("Mode1").Enabled);
  });
  bench.click("Close1");
  EXPECT_EQ(bench.milliseconds(), 3000);
  EXPECT_EQ(bench.shown(all), "GeneralFrame DataFrame Frame2(0)");
  EXPECT_TRUE(bench.control("Mode1").Enabled);
  for (const char* const cleared : {"RefText", "CompText", "PrescalarText", "VCOText", "Fregister",
                                    "Rregister", "Nregister", "Mregister"}) {
    EXPECT_EQ(bench.value(cleared), "") << cleared;
  }
  EXPECT_EQ(bench.value("GeneralFrame"), "  ");
  EXPECT_EQ(bench.value("ACommand"), "Close");
  EXPECT_TRUE(bench.window.Hop1.Checked);
  bench.pick("ADF4113");
  EXPECT_TRUE(bench.window.pllM(11).Checked) << "the next pick does not clear it";
}

TEST(MainWindow, BecomingActiveAgainResetsLampAndPolarity) {
  ProgramBench bench("LMX2326", 1);
  bench.host.usb.lockPin = 1;
  bench.tune("900", "32/33");
  bench.click("AllCommand");
  bench.click("ACommand");
  bench.click("Check1");
  ASSERT_EQ(bench.value("LDLabel"), "Lock Detect On");
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

TEST(ModelMenu, TurnsTheWindowIntoThePanelOfTheChip) {
  const std::string five = "CalculateCommand AllCommand FCommand NCommand RCommand";
  const std::string own = "Command14(0) Command14(1) Command14(2) SetupLabel Text38 Command13";
  const std::string three = " DataFrame Label16(0) Label16(1) Label16(2)";
  const std::string four = three + " Label16(3) Mregister";
  const char* const all = "4/5 8/9 16/17 32/33 64/65 128/129 ";
  const struct {
    const char* prescalers;
    std::string shown;  // with its panel open
    Texts models;
  } rows[] = {
      {"32/33 ", five + three + " Frame16", {"LMX2306", "LMX2316", "LMX2326"}},
      {"8/9 16/17 32/33 64/65 ",
       five + three + " Frame11",
       {"ADF4106", "ADF4110", "ADF4111", "ADF4112", "ADF4113"}},
      {all, five + three + " Frame16", {"ADF4118"}},
      {"4/5 8/9 ", "CalculateCommand AllCommand" + four + " Frame13", {"ADF4153", "ADF4156"}},
      {"4/5 8/9 ", own + " Frame4193 Frame17", {"ADF4193"}},
      {"4/5 8/9 ", "CalculateCommand AllCommand" + four + " Frame12", {"ADF4251", "ADF4252"}},
      {all, five + " Frame4193 Frame24", {"SKY72300-362"}},
  };
  const std::string parts =
      five + " MCommand " + own + four + " Frame4193 Frame11 Frame12 Frame13 Frame16 Frame17 Frame24";
  ProgramBench fresh;
  for (const auto& row : rows) {
    for (const std::string& model : row.models) {
      SCOPED_TRACE(model);
      ProgramBench bench(model);
      EXPECT_EQ(bench.program.module.CurrentModel, model == "ADF4106" ? "ADF4113" : model);
      EXPECT_EQ(bench.value("GeneralFrame"), "    PLL Model :  " + model + "    ");
      std::string prescalers;
      for (const auto& item : bench.window.PrescalarText.List.get()) prescalers += item + " ";
      EXPECT_EQ(prescalers, row.prescalers);
      bench.click("ACommand");
      EXPECT_EQ(bench.shown(parts), row.shown);
      const std::string panel = row.shown.substr(row.shown.rfind(' ') + 1);
      EXPECT_EQ(bench.control(panel).Place.get(), fresh.control(panel).Place.get());
      bench.pick("ADF4113");
      const std::string kept = bench.visible("Frame16") ? " Frame16" : "";
      EXPECT_EQ(bench.shown(parts), five + three + kept) << "and back";
    }
  }
}

TEST(ModelMenu, KeepsItsQuirksFromOneModelToTheNext) {
  ProgramBench bench("ADF4252");
  bench.set("PrescalarText", "4/5");
  bench.pick("ADF4118");
  EXPECT_EQ(bench.value("PrescalarText"), "4/5") << "the list and its text stay";
  for (int row = 0; row < 4; ++row)  // the prompts stay once a fractional chip was picked
    EXPECT_EQ(bench.window.Label16(row).value(), 'R' + std::to_string(row) + ':');
  EXPECT_FALSE(bench.visible("Mregister"));
  for (int again = 0; again < 2; ++again) {
    bench.pick("ADF4118");
    EXPECT_FALSE(bench.window.pllM(10).Checked) << "picking the checked entry takes its mark";
  }
  bench.pick("SKY72300-362");
  EXPECT_TRUE(bench.visible("Frame24")) << "visible from the pick on, one twip small";
  EXPECT_EQ(bench.window.Frame24.Place.get(), (Twips{1, 1, 1, 1}));
}

TEST(ModelMenu, SendsNothingButReappliesTheWiring) {
  ProgramBench bench;
  bench.open();
  bench.forget();
  bench.pick("ADF4113");
  EXPECT_EQ(bench.host.port.bytes(), (std::vector<int>{0, 0})) << "control register, then all lines low";
  bench.window.parallelForm.LPTwText(1).Text = "10";
  bench.pick("ADF4112");
  EXPECT_EQ(bench.messages(), Texts{"Pin number between 2-9 only !!"});
  EXPECT_EQ(bench.program.module.CurrentModel, "ADF4112");
  EXPECT_EQ(bench.pll.DATAbit, 2);
}

TEST(Prescaler, ShowsItsBitsInTheFunctionLatch) {
  const struct {
    const char *text, *onChange;  // DB23 and DB22 after the text changed,
    const char* onOpening;        // and after 64/65 was shown and the panel opened with the text
  } rows[] = {{"64/65", "11", "11"}, {"65", "11", "11"},      {"32/33", "10", "10"}, {"33", "10", "10"},
              {"17", "01", "01"},    {" 16/17 ", "01", "01"}, {"9", "00", "00"},     {"8/9", "00", "00"},
              {"4/5", "00", "11"},   {"8.5", "00", "11"},     {"", "00", "11"},      {"128/129", "00", "11"}};
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
