#include "window/PllForm1.h"

#include <cstdint>

#include "platform/Fault.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"
#include "transport/WayOut.h"

namespace tessarine {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr Integer kClosePauseMs = 3000;

}  // namespace

PllForm1::PllForm1(FormList& forms, Module1& module)
    : Form(forms, "PllForm1", "Tessarine  Rev. C0"),
      parallelForm(forms, module),
      browseForm(forms, module),
      aboutForm(forms, module),
      module_(module) {
  module.view = this;
  Place.start(at(0, 0, 11520, 6840));
  // Opened without being brought to the front, it must cover the general frame all the same.
  bringToFront(Frame24);
}

void PllForm1::Form_Load() {
  module_.PortType = "LPT";
  Picture1.Move(1000, 1000, 9700, 2000);
  const Twips general = Frame2(0).Place;
  Frame2(0).Move(general.Left, general.Top, 7215, general.Height);
  PrescalarText.List = {"4/5", "8/9", "16/17", "32/33", "64/65", "128/129"};
  for (auto& [index, list] : Combo10.members()) list.ListIndex = 0;
}

void PllForm1::Form_Activate() {
  showLockDetect(false);
  const Twips place = Place;
  Move(0, 0, place.Width, place.Height);
  module_.PolarityNegative = kFalse;
  if (FirstActivationDone) return;
  FirstActivationDone = true;
  Screen& screen = module_.platform.screen;
  Picture1.Visible = true;
  screen.repaint(*this);
  screen.processEvents();
  CurrentModelIndex = 0;
  screen.processEvents();
}

void PllForm1::ContinueCommand_Click() {
  Picture1.Visible = false;
  ignoringErrors("painting early is a courtesy", [&] { module_.platform.screen.repaint(*this); });
  GeneralFrame.Visible = true;
  Frame2(0).Visible = true;
  DataFrame.Visible = true;
  Mode1.Enabled = true;
  GeneralFrame.Caption = "  ";
  pModel.Enabled = true;
  ACommand.Enabled = true;
  if (IOOption(0).Value) {
    openParallelPort(module_,
                     [this](bool busy) { MousePointer = busy ? Pointer::hourglass : Pointer::arrow; });
  } else {
    openUsb(module_);
  }
  showLockDetect(false);
}

void PllForm1::showLockDetect(bool locked) {
  LDLabel.Caption = locked ? "Lock Detect On" : "Lock Detect Off";
  LDLabel.BackColor = locked ? kGreen : kWhite;
}

void PllForm1::showMode(const Menu& entry, const Frame& frame) {
  for (Menu* mode : {static_cast<Menu*>(&Gen1), static_cast<Menu*>(&Hop1), static_cast<Menu*>(&Sweep1)}) {
    mode->Checked = mode == &entry;
  }
  for (auto& [index, panel] : Frame2.members()) panel.Visible = &panel == &frame;
}

void PllForm1::Gen1_Click() { showMode(Gen1, Frame2(0)); }

void PllForm1::Hop1_Click() {
  showMode(Hop1, Frame2(1));
  HopRunning = false;
}

void PllForm1::Sweep1_Click() { showMode(Sweep1, Frame2(2)); }

void PllForm1::Close1_Click() {
  GeneralFrame.Visible = false;
  for (auto& [index, panel] : Frame2.members()) panel.Visible = false;
  DataFrame.Visible = false;
  Mode1.Enabled = false;
  bringToFront(Picture1);  // a panel may be open
  Picture1.Visible = true;
  module_.platform.screen.processEvents();

  DelayMs(module_, kClosePauseMs);

  CompText.Text = "";
  PrescalarText.Text = "";
  RefText.Text = "";
  VCOText.Text = "";
  for (Label* shown : {&Rregister, &Fregister, &Mregister, &Nregister}) shown->Caption = "";
  Frame11.Visible = false;
  Frame12.Visible = false;
  Frame13.Visible = false;
  CurrentModelIndex = 0;

  Picture1.Visible = false;
  GeneralFrame.Visible = true;
  Frame2(0).Visible = true;
  DataFrame.Visible = true;
  Mode1.Enabled = true;
  GeneralFrame.Caption = "  ";
  ACommand.Enabled = true;
  MCommand.Visible = false;
  Label16(3).Visible = false;
  Mregister.Visible = false;
}

void PllForm1::Exit1_Click() { module_.platform.screen.endProgram(); }

void PllForm1::Form_QueryUnload() {
  if (module_.PortType == "USB") {
    ignoringErrors("the program ends either way", [&] { module_.platform.usb.UsbClose(); });
  }
  module_.platform.screen.endProgram();
}

void PllForm1::Parallel_Click() { parallelForm.Show(); }

void PllForm1::About1_Click() { aboutForm.Show(); }

void PllForm1::browseInto(TextBox& field) {
  module_.BrowseResult = field.Text;
  module_.platform.screen.showModal(browseForm);
  field.Text = module_.BrowseResult;
}

void PllForm1::Command1_Click() { browseInto(Text40); }
void PllForm1::Command13_Click() { browseInto(Text38); }
void PllForm1::Command18_Click() { browseInto(Text47); }

}  // namespace tessarine
