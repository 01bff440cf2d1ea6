// Copies all panels, whatever the model, into the engine just before a command computes, and reads both setup
// files anew.
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "engine/BitStrings.h"
#include "engine/ChipType.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "window/PllForm1.h"

namespace tessarine {

namespace {

// The captions of a row of bits, the highest index first.
String bitRow(const Array<Label>& row, int highest) {
  String bits;
  for (int i = highest; i >= 0; --i) bits += row(i).Caption.get();
  return bits;
}

String choice(const DropList& list, std::string_view text, const char* whenChosen = "1",
              const char* otherwise = "0") {
  return list.Text() == text ? whenChosen : otherwise;
}

Integer integerOf(const TextBox& box, std::string_view field) {
  return leadingInteger(box.Text.get(), field);
}

String lockDetectEnable(const Label& label) {
  return label.Caption.get().find("Lock D") != std::string::npos ? "0" : "1";
}

// Names the setup file of a field and reads it. A file that is refused leaves the name as well as the values
// of the one before; the message tells the field's prompt, since it may stand on a panel that is not in
// sight.
template <class Read>
void readSetup(String& name, const TextBox& field, const Label& prompt, Read&& read) {
  const String before = std::exchange(name, field.Text.get());
  try {
    read();
  } catch (const Fault& fault) {
    name = before;
    throw withPrompt(fault, prompt.Caption);
  }
}

}  // namespace

void PllForm1::FracRegister() {
  PLL& pll = module_.ThePLL();
  pll.PreScalar = leadingInteger(trimmed(PrescalarText.Text.get()), "PreScalar");
  takeFunctionLatch();
  takeADF425xPanel();
  takeADF415xPanel();
  takeADF4193Panel();

  readSetup(pll.SetupFileName, Text38, SetupLabel, [&] { pll.UpdateSetup_Frac(); });
  readSetup(pll.SetupFile_ADF4113, Text40, Label62(7), [&] { pll.UpdateSetup_ADF4113(); });

  if (hasPanel(ChipPanel::SKY72300)) takeSKYPanel();
}

void PllForm1::takeFunctionLatch() {
  PLL& pll = module_.ThePLL();
  pll.FAnalogDevice = bitRow(Label31, 19);
  pll.PanelCurrentSet2 = pll.FAnalogDevice.substr(PLL::kCurrentSet2Place, PLL::kCurrentSet2Width);
  pll.FuncInit = Label33(1).Caption;
  pll.CPGain = Option3(1).Value ? "1" : "0";
}

void PllForm1::takeADF425xPanel() {
  PLL& pll = module_.ThePLL();
  pll.MasterReg = bitRow(MRLabel, 10);
  pll.RFcontrolREG = bitRow(CRLabel, 15);
  pll.RFRefDoubler = XLabel.Caption;
  pll.RF_R_Counter = RText.Text;
}

void PllForm1::takeADF415xPanel() {
  PLL& pll = module_.ThePLL();
  const auto check = [this](int index) { return static_cast<Integer>(Check11(index).Value.get()); };
  pll.FastLock_4531 = check(0);
  pll.LoadControlEnabled_4531 = check(1);
  pll.DoublerEnabled_4531 = check(2);
  pll.CounterResetEnabled_4531 = check(3);
  pll.CP3StateON_4531 = check(4);
  pll.RFPowerDownEnabled_4531 = check(5);
  pll.RFPDPolarityPositive_4531 = check(6);
  pll.CPCurrentSetting_4531 = bitRow(Label45, 3);
  pll.MuxOut_4531 = bitRow(Label48, 2);
  for (const auto& [index, option] : Option6.members()) {
    if (option.Value) pll.NoiseSpurMode_4531 = static_cast<Integer>(index);
  }
  pll.Normal_LCD_Mode_4531 = Label43.Caption == "Normal Mode" ? 0 : 1;
  pll.Resync_4531 = integerOf(Text26, "Resync");
  pll.RCounter_4531 = integerOf(Text27, "RF R Counter");
}

void PllForm1::takeADF4193Panel() {
  PLL& pll = module_.ThePLL();
  pll.R1_CP = choice(Combo10(0), "Adjusted");
  pll.R1_REF2 = choice(Combo10(1), "Enable");
  pll.R1_DoublerEnable = Check16.Value == 1 ? "1" : "0";
  pll.R1_RFCounter = PadBits(integerOf(Text36(0), "RF R Counter Divide Ratio"), 4);
  pll.R2_PhaseValue = PadBits(integerOf(Text36(1), "Phase Value"), 12);
  pll.R3_CPO = choice(Combo10(2), "Normal");
  pll.R3_PFD = choice(Combo10(3), "Positive");
  takeTimers();
  pll.R5_PDDiffAmp = choice(Combo10(5), "Enabled", "11", "00");
  pll.R5_PDChargePump = choice(Combo10(6), "Enabled");
  pll.R5_CP3State = choice(Combo10(7), "3-State Enabled");
  pll.R5_CounterReset = choice(Combo10(8), "Counter Reset");
  const std::string mode = Combo10(9).Text();
  pll.R6_SigmaDelte = mode == "Dither On" ? "0011" : mode == "10ns Lock Detect Threshhold" ? "1001" : "0000";
  pll.R6_MuxOut = PadBits(static_cast<Integer>(Combo10(10).ListIndex.get()), 4);
}

void PllForm1::takeTimers() {
  // The chip has one register address for three timers: the timer that the operator names, and the two that
  // follow it with the counter of ICP 7 below the others.
  struct Timers {
    const char* text;
    const char* select;
    const char* select2;
    double offset2;
    const char* select3;
    double offset3;
  };
  static constexpr Timers kTimers[] = {
      // text      this    second       third
      {"SW1/SW2", "00", "01", 0, "10", -7},
      {"SW3", "01", "00", 0, "10", -7},
      {"ICP", "10", "00", 7, "01", 7},
  };
  constexpr int kCounterBits = 9;
  PLL& pll = module_.ThePLL();
  const double counter = leadingNumber(Text36(2).Text.get());
  const auto padded = [&](double offset) {
    return PadBits(toInteger(counter + offset, "Time Out Counter"), kCounterBits);
  };
  pll.R4_TimeOutCounter = padded(0);
  if (Combo10(4).Text() == "Not Used") pll.R4_TimerSelect = "11";
  for (const Timers& timers : kTimers) {
    if (Combo10(4).Text() != timers.text) continue;
    const String second = padded(timers.offset2);
    const String third = padded(timers.offset3);
    pll.R4_TimerSelect = timers.select;
    pll.R4_TimerSelect_2 = timers.select2;
    pll.R4_TimeOutCounter_2 = second;
    pll.R4_TimerSelect_3 = timers.select3;
    pll.R4_TimeOutCounter_3 = third;
  }
}

void PllForm1::takeSKYPanel() {
  PLL& pll = module_.ThePLL();
  readSetup(pll.SetupFile_SKY72300, Text47, Label62(9), [&] { pll.UpdateSetup_SKY72300(); });
  if (!Text47.Text.get().empty()) pll.SetupFileName = Text47.Text;
  pll.Main_ChrgPump = integerOf(Text46(2), "Main: chrg pump");
  pll.Aux_ChrgPump = integerOf(Text46(3), "Aux: chrg pump");
  pll.Main_LDEnable = lockDetectEnable(Label70);
  pll.Aux_LDEnable = lockDetectEnable(Label71);
  pll.Main_RefDiv = integerOf(Text46(0), "Main: Ref Div Value");
  pll.Aux_RefDiv = integerOf(Text46(1), "Aux: Ref Div Value");
  pll.MultiplexerReg = bitRow(Label73, 9);
  pll.ModulationControlReg = bitRow(Label74, 9);
  pll.ModulationDataReg = bitRow(Label75, 11);
}

}  // namespace tessarine
