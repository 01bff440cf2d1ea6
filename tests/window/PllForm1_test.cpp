#include "window/PllForm1.h"

#include <sstream>
#include <string>
#include <vector>

#include "support/ProgramBench.h"
#include "support/Sum.h"

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

// As they were looked over on the screen. Who changes a caption, a place or a look there looks at it again
// (TESSARINE_DRAW_INTO), reads the listing and takes the new sum.
TEST(Forms, AreAsTheyWereLookedOver) {
  ProgramBench bench;
  std::string all;
  for (const Form* const form : bench.program.forms.all()) all += form->Caption.get() + '\n' + listing(*form);
  expectSum("forms", all, 3216880038);
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

}  // namespace
}  // namespace tessarine
