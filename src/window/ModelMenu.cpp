// The model menu: the switch that turns the one window into the front panel of one chip. It computes and
// sends nothing.
#include <array>
#include <string>
#include <vector>

#include "engine/ChipType.h"
#include "window/PllForm1.h"

namespace tessarine {

void PllForm1::pllM_Click(int Index) {
  showCommonState();
  const std::string entry = pllM(Index).Caption;
  const ChipType* const chip = ChipType::inMenu(entry);
  module_.CurrentModel = chip ? String(chip->name) : entry;

  // In this order: picking the checked entry again leaves it without its mark.
  pllM(Index).Checked = true;
  if (CurrentModelIndex != 0) pllM(CurrentModelIndex).Checked = false;
  CurrentModelIndex = static_cast<Integer>(Index);

  GeneralFrame.Caption = "    PLL Model :  " + entry + "    ";
  showRegisterRows(chip && chip->rows == WordRows::four);
  if (chip) showModelControls(*chip);
  parallelForm.OKButton_Click();
}

void PllForm1::showCommonState() {
  Frame11.Visible = false;
  Frame12.Visible = false;
  Frame13.Visible = false;
  Frame17.Visible = false;
  Frame24.Visible = false;
  DataFrame.Visible = true;
  Frame4193.Visible = false;
  for (CommandButton* button :
       {static_cast<CommandButton*>(&CalculateCommand), static_cast<CommandButton*>(&AllCommand),
        static_cast<CommandButton*>(&FCommand), static_cast<CommandButton*>(&NCommand),
        static_cast<CommandButton*>(&RCommand)}) {
    button->Visible = true;
  }
  for (auto& [index, button] : Command14.members()) button.Visible = false;
  showSetupFileRow(false);
}

void PllForm1::showSetupFileRow(bool visible) {
  SetupLabel.Visible = visible;
  Text38.Visible = visible;
  Command13.Visible = visible;
}

void PllForm1::showRegisterRows(bool fractional) {
  Label16(3).Visible = fractional;
  Mregister.Visible = fractional;
  if (!fractional) return;
  // The prompts stay so for every model picked afterwards.
  Label16(0).Caption = "R0:";
  Label16(1).Caption = "R1:";
  Label16(2).Caption = "R2:";
  Label16(3).Caption = "R3:";
  FCommand.Visible = false;
  NCommand.Visible = false;
  RCommand.Visible = false;
}

// Shows the bits by itself: the handler of a change lets events run, and another pick must not come in
// between.
void PllForm1::offerPrescalers(const std::vector<std::string>& items) {
  PrescalarText.rebuild(items);
  showPrescalerBits(true);
}

void PllForm1::showModelControls(const ChipType& chip) {
  if (!chip.prescalers.empty()) offerPrescalers({chip.prescalers.begin(), chip.prescalers.end()});
  if (chip.panel == ChipPanel::ADF4193) showADF4193Controls();
  if (chip.panel == ChipPanel::SKY72300) {
    // Visible, but without room until ACommand places it.
    Frame24.Move(1, 1, 1, 1);
    Frame24.Visible = true;
    DataFrame.Visible = false;
    Frame4193.Visible = true;
  }
}

void PllForm1::showADF4193Controls() {
  showSetupFileRow(true);
  CalculateCommand.Visible = false;
  AllCommand.Visible = false;
  FCommand.Visible = false;
  NCommand.Visible = false;
  RCommand.Visible = false;
  DataFrame.Visible = false;
  for (auto& [index, button] : Command14.members()) button.Visible = true;
  Text36(0).Text = "2";
  Combo10(1).ListIndex = 1;   // "Enable"
  Combo10(3).ListIndex = 1;   // "Positive"
  Combo10(10).ListIndex = 1;  // "Digital Lock Detect"
  Frame4193.Visible = true;
}

}  // namespace tessarine
