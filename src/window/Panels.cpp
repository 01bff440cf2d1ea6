// The advanced panels: opening and closing them, and the bits and choices on them. Nothing here computes or
// sends.
#include <string>

#include "engine/ChipType.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "platform/Platform.h"
#include "window/PllForm1.h"

namespace tessarine {

namespace {

// The places that opened panels take.
constexpr Twips kFrame11Place = at(50, 100, 10500, 2750);
constexpr Twips kFrame12Place = at(0, 0, 10500, 2500);
constexpr Twips kFrame13Place = at(0, 0, 9500, 3000);
constexpr Twips kFrame17Place = at(0, 0, 9000, 4000);
constexpr Twips kFrame24Place = at(0, 0, 11300, 2650);

void flip(Label& bitLabel) { bitLabel.Caption = bitLabel.Caption == "0" ? "1" : "0"; }

void alternate(Label& label, const char* first, const char* second) {
  label.Caption = label.Caption == first ? second : first;
}

}  // namespace

void PllForm1::ACommand_Click() {
  if (!(ACommand.Caption == "Advanced")) {
    hidePanels();
    Frame24.Visible = false;
    return;
  }
  showPrescalerBits(false);
  if (const ChipType* const chip = ChipType::named(module_.CurrentModel)) {
    openPanel(chip->panel);
    if (chip->panelCloses) ACommand.Caption = "Close";
  }
  module_.platform.screen.processEvents();
}

bool PllForm1::hasPanel(ChipPanel panel) const {
  const ChipType* const chip = ChipType::named(module_.CurrentModel);
  return chip && chip->panel == panel;
}

TextBox* PllForm1::bandFileField() {
  if (hasPanel(ChipPanel::SKY72300)) return &Text47;
  return hasPanel(ChipPanel::ADF4113) ? &Text40 : nullptr;
}

void PllForm1::openPanel(ChipPanel panel) {
  switch (panel) {
    case ChipPanel::none:
      break;
    case ChipPanel::LMX:
      Frame16.Visible = true;
      break;
    case ChipPanel::ADF4113:
      togglePanel(Frame11, kFrame11Place);
      break;
    case ChipPanel::ADF4252:
      togglePanel(Frame12, kFrame12Place);
      break;
    case ChipPanel::ADF4153:
      togglePanel(Frame13, kFrame13Place);
      break;
    case ChipPanel::ADF4193:
      togglePanel(Frame17, kFrame17Place);
      break;
    case ChipPanel::SKY72300:
      Frame24.Visible = true;
      Frame24.Place = kFrame24Place;
      break;
  }
}

void PllForm1::togglePanel(Frame& panel, Twips place) {
  panel.Visible = !panel.Visible;
  panel.Place = place;
  panel.container()->bringToFront(panel);
}

void PllForm1::hidePanels() {
  ACommand.Caption = "Advanced";
  for (Frame* panel :
       {static_cast<Frame*>(&Frame11), static_cast<Frame*>(&Frame12), static_cast<Frame*>(&Frame13),
        static_cast<Frame*>(&Frame16), static_cast<Frame*>(&Frame17)}) {
    panel->Visible = false;
  }
}

void PllForm1::Label17_Click() { hidePanels(); }

void PllForm1::Label76_Click() {
  Frame24.Visible = false;
  ACommand.Caption = "Advanced";
}

void PllForm1::showPrescalerBits(bool zeroWithoutMatch) {
  const double value = leadingNumber(PrescalarText.Text.get());
  const auto show = [this](const char* db23, const char* db22) {
    Label33(2).Caption = db23;
    Label33(3).Caption = db22;
  };
  if (value == 64 || value == 65) {
    show("1", "1");
  } else if (value == 32 || value == 33) {
    show("1", "0");
  } else if (value == 16 || value == 17) {
    show("0", "1");
  } else if (value == 8 || value == 9 || zeroWithoutMatch) {
    show("0", "0");
  }
}

void PllForm1::PrescalarText_Change() {
  showPrescalerBits(true);
  module_.platform.screen.processEvents();
}

void PllForm1::Label31_Click(int Index) { flip(Label31(Index)); }
void PllForm1::Label45_Click(int Index) { flip(Label45(Index)); }
void PllForm1::Label48_Click(int Index) { flip(Label48(Index)); }
void PllForm1::Label73_Click(int Index) { flip(Label73(Index)); }
void PllForm1::Label75_Click(int Index) { flip(Label75(Index)); }
void PllForm1::MRLabel_Click(int Index) { flip(MRLabel(Index)); }
void PllForm1::XLabel_Click() { flip(XLabel); }

void PllForm1::Label33_Click(int Index) {
  if (Index == 1) flip(Label33(Index));
}

void PllForm1::Label74_Click(int Index) {
  if (Index > 3) flip(Label74(Index));
}

void PllForm1::CRLabel_Click(int Index) {
  // The three noise and spur bits follow Option4 alone.
  if (Index != 0 && Index != 4 && Index != 9) flip(CRLabel(Index));
}

void PllForm1::CRLabel_Change(int /*Index*/) {
  const std::string bits = CRLabel(0).Caption.get() + CRLabel(4).Caption.get() + CRLabel(9).Caption.get();
  Option4(0).Value = bits == "000";
  Option4(1).Value = bits == "001";
  Option4(2).Value = bits == "111";
}

void PllForm1::Option4_Click(int Index) {
  CRLabel(0).Caption = Index == 2 ? "1" : "0";
  CRLabel(4).Caption = Index == 2 ? "1" : "0";
  CRLabel(9).Caption = Index == 0 ? "0" : "1";
}

void PllForm1::Label43_Click() { alternate(Label43, "Normal Mode", "LCD Mode"); }
void PllForm1::Label70_Click() { alternate(Label70, "Main: PS/Lock Detect", "Main: Power Steering/LD"); }
void PllForm1::Label71_Click() { alternate(Label71, "Aux: PS/Lock Detect", "Aux: Power Steering/LD"); }

void PllForm1::LDPCheck_Click() { LDPCheck.Caption = LDPCheck.Value == 1 ? "LDP=5" : "LDP=3"; }

void PllForm1::Check1_Click() { module_.PolarityNegative = Check1.Value == 0 ? kTrue : kFalse; }

void PllForm1::Option7_Click(int /*Index*/) { module_.ThePLL().GoBit = Option7(1).Value ? "1" : "0"; }

}  // namespace tessarine
