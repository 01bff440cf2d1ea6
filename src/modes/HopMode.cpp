// Hop mode: back and forth between two frequencies. Every send is a complete load.
#include <exception>
#include <string>

#include "engine/BitStrings.h"
#include "engine/ChipType.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"
#include "window/PllForm1.h"

namespace tessarine {

namespace {

constexpr const char* kHopEnded = "    Current Hop            ";
// The display of the first frequency of a pass has a colon, that of the second has none.
constexpr const char* kFirstHead = "Current Hop: ";
constexpr const char* kSecondHead = "Current Hop ";
constexpr int kFrequencyDigits = 15;

}  // namespace

void PllForm1::StartHop_Click() {
  if (leadingNumber(VCOText.Text.get()) < 0) return;
  try {
    readFrequencies();
    if (hasPanel(ChipPanel::ADF4193)) {
      hopADF4193();
    } else {
      hopOthers();
    }
  } catch (const std::exception&) {
    HopRunning = false;
    Label8.Caption = kHopEnded;
    throw;
  }
}

// The loop notices at its next test.
void PllForm1::StopHop_Click() { HopRunning = false; }

void PllForm1::hopADF4193() {
  PLL& pll = module_.ThePLL();
  Screen& screen = module_.platform.screen;
  Integer HopsLeft = leadingInteger(HopText.Text.get(), "Number of Hops");
  HopRunning = true;
  // Before any command has copied the panels the reference counter is empty, and nothing could be calculated.
  if (pll.R1_RFCounter.empty()) FracRegister();
  pll.Fvco = leadingNumber(VcoText1.Text.get());
  startADF4193();
  while (HopsLeft > 0 && HopRunning) {
    screen.processEvents();
    pll.Fvco = leadingNumber(VcoText1.Text.get());
    pll.SetPLL(false);
    showHop(kFirstHead, HopsLeft);
    if (HopRunning) {
      pll.Fvco = leadingNumber(VcoText2.Text.get());
      pll.SetPLL(false);
      showHop(kSecondHead, HopsLeft);
    }
    --HopsLeft;
  }
  Label8.Caption = kHopEnded;
}

void PllForm1::hopOthers() {
  PLL& pll = module_.ThePLL();
  Screen& screen = module_.platform.screen;
  const Integer HopDelay = leadingInteger(DelayText.Text.get(), "Delay Between Hops");
  Integer HopsLeft = leadingInteger(HopText.Text.get(), "Number of Hops");
  showThreeWords();
  if (hasPanel(ChipPanel::ADF4113)) takeFunctionLatch();
  HopRunning = true;
  while (HopsLeft > 0 && HopRunning) {
    screen.processEvents();
    pll.Fvco = leadingNumber(VcoText1.Text.get());
    pll.SetPLL(false);
    showHop(kFirstHead, HopsLeft);
    showThreeWords();
    DelayMs(module_, HopDelay);
    if (HopRunning) {
      pll.Fvco = leadingNumber(VcoText2.Text.get());
      pll.SetPLL(false);
      showHop(kSecondHead, HopsLeft);
      showThreeWords();
      DelayMs(module_, HopDelay);
    }
    --HopsLeft;
  }
  Label8.Caption = kHopEnded;
}

void PllForm1::showHop(const char* head, Integer hopsLeft) {
  Label8.Caption = std::string(head) + "\r\n " + std::to_string(hopsLeft) + "\r\n\r\nFrequency:\r\n" +
                   plainDecimal(module_.ThePLL().Fvco, kFrequencyDigits) + " MHz";
  module_.platform.screen.repaint(Label8);
}

// A hop leaves the caption of the fourth word alone.
void PllForm1::showThreeWords() {
  const PLL& pll = module_.ThePLL();
  Fregister.Caption = ReverseStr(pll.FStr);
  Nregister.Caption = ReverseStr(pll.Nstr);
  Rregister.Caption = ReverseStr(pll.Rstr);
}

}  // namespace tessarine
