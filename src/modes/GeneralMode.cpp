// The commands of the general mode. Each of them sends the whole set of the model's words.
#include "engine/BitStrings.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "platform/Platform.h"
#include "platform/Text.h"
#include "window/PllForm1.h"

namespace tessarine {

void PllForm1::readFrequencies() {
  PLL& pll = module_.ThePLL();
  pll.PreScalar = leadingInteger(trimmed(PrescalarText.Text.get()), "PreScalar");
  pll.Fvco = leadingNumber(VCOText.Text.get());
  pll.Fosc = leadingNumber(RefText.Text.get());
  pll.Fcomp = leadingNumber(CompText.Text.get());
}

void PllForm1::showWords() {
  showThreeWords();
  Mregister.Caption = ReverseStr(module_.ThePLL().MStr);
}

void PllForm1::readLockDetect() {
  if (module_.PortType == "USB") showLockDetect(module_.platform.usb.UsbReadPin("A3") == 1);
}

void PllForm1::CalculateCommand_Click() {
  FracRegister();
  readFrequencies();
  module_.ThePLL().SetPLL(false);
  showWords();
  module_.platform.screen.processEvents();
}

void PllForm1::AllCommand_Click() {
  FracRegister();
  readFrequencies();
  module_.ThePLL().SetPLL(false);
  showWords();
  readLockDetect();
}

// The four register buttons are one command: the frequencies stay as the last reading of the panel left them.
void PllForm1::sendRegisters() {
  FracRegister();
  module_.ThePLL().SetPLL(false);
  showWords();
}

void PllForm1::FCommand_Click() { sendRegisters(); }
void PllForm1::RCommand_Click() { sendRegisters(); }
void PllForm1::NCommand_Click() { sendRegisters(); }
void PllForm1::MCommand_Click() { sendRegisters(); }

}  // namespace tessarine
