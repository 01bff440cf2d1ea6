// Sweep mode: from a start to a stop frequency in equal steps, by itself or one step a button press. Every
// step is a complete load.
#include <exception>

#include "engine/ChipType.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "platform/Fault.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"
#include "window/PllForm1.h"

namespace tessarine {

namespace {

constexpr double kKHzPerMHz = 1000;
// The steps are added up; the margin keeps their rounding from losing the last one.
constexpr double kStopMarginMHz = 0.000001;
constexpr int kStepDigits = 15;

}  // namespace

void PllForm1::StartSweepCommand_Click(int /*Index*/) {
  try {
    FracRegister();
    SweepRunning = kTrue;
    NextCommand.Enabled = true;
    PrevCommand.Enabled = true;
    startSweep();
  } catch (const std::exception&) {
    SweepRunning = kFalse;
    throw;
  }
}

void PllForm1::startSweep() {
  PLL& pll = module_.ThePLL();
  (void)readPace();  // refused before anything is sent
  readFrequencies();
  pll.Fvco = leadingNumber(StartText1.Text.get());
  if (hasPanel(ChipPanel::ADF4193)) startADF4193();

  // The operator may have typed while the power-up waited.
  const auto [SweepStep, SweepDelay] = readPace();
  const double SweepFreq = leadingNumber(StartText1.Text.get());
  const double SweepStop = leadingNumber(StopText1.Text.get());
  if (SweepStop < SweepFreq) {
    module_.platform.screen.messageBox(" Start should be less  then stop", Icon::plain);
    return;
  }
  if (AutoOption1.Value) {
    runAutoSweep(SweepFreq, SweepStop, SweepStep, SweepDelay);
  } else {
    pll.SetPLL(false);
    showSweepFrequency();
    module_.platform.screen.repaint(Label15);
  }
}

PllForm1::Pace PllForm1::readPace() const {
  const double step = leadingNumber(StepText1.Text.get());
  if (!AutoOption1.Value) return {.step = step, .delay = 0};  // the field of the delay is out of sight
  if (step < 0) {
    throw Fault("Step Size = " + plainDecimal(step, kStepDigits) +
                " kHz leads away from the stop frequency: it must be 0 or above");
  }
  return {.step = step, .delay = leadingInteger(DelaySweepText1.Text.get(), "Delay")};
}

void PllForm1::runAutoSweep(double SweepFreq, double SweepStop, double SweepStep, Integer SweepDelay) {
  PLL& pll = module_.ThePLL();
  Screen& screen = module_.platform.screen;
  while (SweepRunning != kFalse && SweepStop + kStopMarginMHz >= SweepFreq) {
    screen.processEvents();
    pll.Fvco = SweepFreq;
    pll.SetPLL(false);
    showSweepFrequency();
    screen.processEvents();
    DelayMs(module_, SweepDelay);
    SweepFreq += SweepStep / kKHzPerMHz;
  }
}

void PllForm1::showSweepFrequency() {
  Label15.Caption = "Current Freq:\r\n" + sixDecimals(module_.ThePLL().Fvco) + " MHz";
}

// The loop notices at its next test.
void PllForm1::StopSweepCommand_Click(int /*Index*/) { SweepRunning = kFalse; }

void PllForm1::NextCommand_Click() {
  const double target = module_.ThePLL().Fvco + leadingNumber(StepText1.Text.get()) / kKHzPerMHz;
  if (leadingNumber(StopText1.Text.get()) >= target) stepTo(target);
}

void PllForm1::PrevCommand_Click() {
  const double target = module_.ThePLL().Fvco - leadingNumber(StepText1.Text.get()) / kKHzPerMHz;
  if (leadingNumber(StartText1.Text.get()) <= target) stepTo(target);
}

void PllForm1::stepTo(double frequency) {
  PLL& pll = module_.ThePLL();
  pll.Fvco = frequency;
  pll.SetPLL(false);
  Label15.Caption = " Current Freq                 " + plainDecimal(pll.Fvco, kStepDigits);
  module_.platform.screen.repaint(Label15);
}

void PllForm1::AutoOption1_Click() { showStepControls(false); }

void PllForm1::StepOption_Click() { showStepControls(true); }

void PllForm1::showStepControls(bool stepMode) {
  DelaySweepText1.Visible = !stepMode;
  DLabel.Visible = !stepMode;
  msLabel.Visible = !stepMode;
  PrevCommand.Visible = stepMode;
  NextCommand.Visible = stepMode;
}

}  // namespace tessarine
