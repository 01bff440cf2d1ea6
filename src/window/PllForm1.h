// The main window, from top to bottom: its menus, its containers and the controls in each. A control is one
// line: its name, its caption or text, its place in twips, and its options and handlers. A line added here
// appears on the screen and in scripts by itself.
//
// The handlers live with their subjects: window/ (start, modes, model menu, panels, prescaler), transport/
// (the way out) and modes/ (the commands).
#pragma once

#include "dialogs/BrowseForm.h"
#include "dialogs/frmAbout.h"
#include "engine/EngineView.h"
#include "engine/Module1.h"
#include "forms/Build.h"
#include "forms/Form.h"
#include "transport/ParallelForm.h"

namespace tessarine {

using namespace forms;

class PllForm1 : public Form, public EngineView {
 public:
  PllForm1(FormList& forms, Module1& module);

  // ------------------------------------------------------------------------------------------------------
  // Handlers
  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload() override;

  // The first screen.
  void ContinueCommand_Click();

  // Menus.
  void Close1_Click();
  void Exit1_Click();
  void Gen1_Click();
  void Hop1_Click();
  void Sweep1_Click();
  void pllM_Click(int Index);
  void Parallel_Click();
  void About1_Click();

  // Panels.
  void ACommand_Click();
  void PrescalarText_Change();
  void Label17_Click();
  void Label76_Click();
  void Label31_Click(int Index);
  void Label33_Click(int Index);
  void MRLabel_Click(int Index);
  void CRLabel_Click(int Index);
  void CRLabel_Change(int Index);
  void XLabel_Click();
  void Option4_Click(int Index);
  void Label43_Click();
  void Label45_Click(int Index);
  void Label48_Click(int Index);
  void LDPCheck_Click();
  void Check1_Click();
  void Option7_Click(int Index);
  void Label70_Click();
  void Label71_Click();
  void Label73_Click(int Index);
  void Label74_Click(int Index);
  void Label75_Click(int Index);
  void Command1_Click();
  void Command13_Click();
  void Command18_Click();
  void FracRegister();

  // Commands.
  void CalculateCommand_Click();
  void AllCommand_Click();
  void FCommand_Click();
  void RCommand_Click();
  void NCommand_Click();
  void MCommand_Click();
  void Command14_Click(int Index);
  void StartHop_Click();
  void StopHop_Click();
  void StartSweepCommand_Click(int Index);
  void StopSweepCommand_Click(int Index);
  void NextCommand_Click();
  void PrevCommand_Click();
  void AutoOption1_Click();
  void StepOption_Click();

  // What the engine shows and asks.
  void showDetectorFrequency(const std::string& text) override { PFDLabel.Caption = text; }
  void showWord(int index, const std::string& text) override { Label21(index).Caption = text; }
  [[nodiscard]] bool lockDetectPrecisionChecked() const override { return LDPCheck.Value == 1; }

  // ---------------------------------------------------------------------------------------------------------
  // State
  bool FirstActivationDone = false;
  Integer CurrentModelIndex = 0;  // the `pllM` entry that last got the check mark; 0: none
  bool HopRunning = false;        // the only channel between a hop and its Stop button
  Integer SweepRunning = kFalse;  // the same for a sweep

  // clang-format off
  // --------------------------------------------------------------------------------------------------------- Menus
  One<Menu> File1      {*this,   "File1",    0, "File", {}};
  One<Menu> Close1     {File1,   "Close1",  12, "Close", {}, shortcut("Ctrl+C"), click(this, &PllForm1::Close1_Click)};
  One<Menu> L1         {File1,   "L1",      19, "-", {}};
  One<Menu> Exit1      {File1,   "Exit1",   13, "Exit", {}, shortcut("Ctrl+X"), click(this, &PllForm1::Exit1_Click)};
  One<Menu> Mode1      {*this,   "Mode1",    1, "Mode", {}};
  One<Menu> Gen1       {Mode1,   "Gen1",    21, "General Mode", {}, checked, click(this, &PllForm1::Gen1_Click)};
  One<Menu> Hop1       {Mode1,   "Hop1",    22, "Hop Mode", {}, click(this, &PllForm1::Hop1_Click)};
  One<Menu> Sweep1     {Mode1,   "Sweep1",  23, "Sweep Mode", {}, click(this, &PllForm1::Sweep1_Click)};
  One<Menu> pModel     {*this,   "pModel",   0, "Pll Model", {}};
  Array<Menu> pllM{"pllM", {
      { 1, pModel, "LMX2306", {}},
      { 2, pModel, "LMX2316", {}},
      { 3, pModel, "LMX2326", {}},
      { 4, pModel, "-", {}},
      { 5, pModel, "ADF4106", {}},
      { 6, pModel, "ADF4110", {}},
      { 7, pModel, "ADF4111", {}},
      { 8, pModel, "ADF4112", {}},
      { 9, pModel, "ADF4113", {}},
      {10, pModel, "ADF4118", {}},
      {11, pModel, "ADF4153", {}},
      {12, pModel, "ADF4156", {}},
      {13, pModel, "ADF4193", {}},
      {14, pModel, "ADF4251", {}},
      {15, pModel, "ADF4252", {}},
      {16, pModel, "-", {}},
      {17, pModel, "SKY72300-362", {}},
    }, click(this, &PllForm1::pllM_Click)};
  One<Menu> Config1    {*this,   "Config1",  2, "Config", {}};
  One<Menu> Parallel   {Config1, "Parallel",31, "Parallel Port", {}, click(this, &PllForm1::Parallel_Click)};
  One<Menu> Help1      {*this,   "Help1",    3, "Help", {}};
  One<Menu> About1     {Help1,   "About1",  41, "About", {}, click(this, &PllForm1::About1_Click)};

  // ---------------------------------------------------------------------------------------------------- Containers
  One<PictureBox> Picture1  {*this, "Picture1", "", {}};
  One<Frame> Frame24        {*this, "Frame24", "SKY72300-362", {}, hidden};
  One<Frame> Frame4193      {*this, "Frame4193", " Data ", {}, hidden};
  One<Frame> Frame17        {*this, "Frame17", "Analog Device - ADF4193 Config", {}, hidden};
  One<Frame> GeneralFrame   {*this, "GeneralFrame", "  Pll Model   ", {}, hidden};
  One<Frame> DataFrame      {*this, "DataFrame", "  Data   ", {}, hidden};
  Array<Frame> Frame2{"Frame2", {
      {0, *this, "   General Mode    ", {}},
      {1, *this, "   Hop Mode   ", {}},
      {2, *this, "   Sweep Mode    ", {}},
    }, hidden};
  One<Frame> Frame11        {*this, "Frame11", "  PLL Function Latch:", {}, hidden};
  One<Frame> Frame12        {GeneralFrame, "Frame12", "  Analog Device PLL Function Latch Master reg & RF control Reg:  ", {}, hidden};
  One<Frame> Frame13        {GeneralFrame, "Frame13", "  Analog Device Fractional PLL:  ", {}, hidden};
  One<Frame> Frame16        {GeneralFrame, "Frame16", "LMX/ADF4118", {}, hidden};
  One<Frame> Frame10        {Frame12, "Frame10", "Noise & Spur", {}};
  One<Frame> Frame23        {Frame13, "Frame23", "Noise & Spur", {}};

  // -------------------------------------------------------------------------------------------------- First screen
  Array<OptionButton> IOOption{"IOOption", {
      {0, Picture1, "LPT1", {}, {selected}},
      {1, Picture1, "USB", {}},
    }};
  One<CommandButton> ContinueCommand{Picture1, "ContinueCommand", "Continue ...", {}, click(this, &PllForm1::ContinueCommand_Click)};

  // ------------------------------------------------------------------------------------------------- General frame
  One<Label>   Label1       {GeneralFrame, "Label1", "Reference Frequency:", {}};
  One<TextBox> RefText      {GeneralFrame, "RefText", "", {}};
  One<Label>   Label4       {GeneralFrame, "Label4", "Step Resolution:", {}};
  One<TextBox> CompText     {GeneralFrame, "CompText", "", {}};
  One<Label>   Label23      {GeneralFrame, "Label23", "PFD:", {}};
  One<Label>   PFDLabel     {GeneralFrame, "PFDLabel", "0", {}, word};
  Array<Label> Label13{"Label13", {
      {1, GeneralFrame, "PreScalar:", {}},
    }};
  One<ComboBox> PrescalarText{GeneralFrame, "PrescalarText", "", {}, click(this, &PllForm1::PrescalarText_Change), change(this, &PllForm1::PrescalarText_Change)};
  One<Label>   SetupLabel   {GeneralFrame, "SetupLabel", "Setup File Name:", {}, hidden};
  One<TextBox> Text38       {GeneralFrame, "Text38", "", {}, hidden};
  One<CommandButton> Command13{GeneralFrame, "Command13", "Browse", {}, hidden, click(this, &PllForm1::Command13_Click)};
  One<CommandButton> ACommand{GeneralFrame, "ACommand", "Advanced", {}, disabled, click(this, &PllForm1::ACommand_Click)};
  Array<Label> Label3{"Label3", {  // the units behind the frequencies
      {0, GeneralFrame, "MHz", {}},
      {1, GeneralFrame, "KHz", {}},
      {7, GeneralFrame, "KHz", {}},
      {2, Frame2(1), "MHz", {}},
      {3, Frame2(1), "MHz", {}},
      {4, Frame2(2), "MHz", {}},
      {5, Frame2(2), "MHz", {}},
      {6, Frame2(2), "KHz", {}},
    }};

  // -------------------------------------------------------------------------------------------- The register words
  Array<Label> Label14{"Label14", {
      {0, DataFrame, "MSB", {}},
      {1, DataFrame, "LSB", {}},
    }};
  Array<Label> Label16{"Label16", {
      {0, DataFrame, "F Register:", {}},
      {1, DataFrame, "R Register:", {}},
      {2, DataFrame, "N Register:", {}},
      {3, DataFrame, "M Register:", {}, {hidden}},
    }};
  One<Label> Fregister      {DataFrame, "Fregister", "000000000000000000000000", {}, word};
  One<Label> Rregister      {DataFrame, "Rregister", "000000000000000000000000", {}, word};
  One<Label> Nregister      {DataFrame, "Nregister", "000000000000000000000000", {}, word};
  One<Label> Mregister      {DataFrame, "Mregister", "000000000000000000000000", {}, word, hidden};
  Array<Label> Label21{"Label21", {
      {0, Frame4193, "00", {}},
      {1, Frame4193, "00", {}},
      {2, Frame4193, "00", {}},
      {3, Frame4193, "00", {}},
      {4, Frame4193, "00", {}},
      {5, Frame4193, "00", {}},
      {6, Frame4193, "00", {}},
      {7, Frame4193, "00", {}},
      {8, Frame4193, "00", {}},
      {9, Frame4193, "00", {}},
    }, word};

  // -------------------------------------------------------------------------------------------------- General mode
  One<Label>   Label2       {Frame2(0), "Label2", "VCO Output Frequency:", {}};
  One<TextBox> VCOText      {Frame2(0), "VCOText", "", {}};
  One<Label>   Label5       {Frame2(0), "Label5", "(MHz)", {}};
  One<CommandButton> CalculateCommand{Frame2(0), "CalculateCommand", "Calculate", {}, tip("Calculate pattern "), click(this, &PllForm1::CalculateCommand_Click)};
  One<Label>   LDLabel      {Frame2(0), "LDLabel", "Lock Detect Off", {}, lamp};
  One<CommandButton> FCommand{Frame2(0), "FCommand", " F register ", {}, tip("Send control register"), click(this, &PllForm1::FCommand_Click)};
  One<CommandButton> RCommand{Frame2(0), "RCommand", " R register ", {}, tip("R register"), click(this, &PllForm1::RCommand_Click)};
  One<CommandButton> NCommand{Frame2(0), "NCommand", " N register ", {}, tip("send N register (AB)"), click(this, &PllForm1::NCommand_Click)};
  One<CommandButton> MCommand{Frame2(0), "MCommand", " M register ", {}, tip("send N register (AB)"), hidden, click(this, &PllForm1::MCommand_Click)};
  One<CommandButton> AllCommand{Frame2(0), "AllCommand", "Send All registers ", {}, tip("Send F R N registers"), isDefault, click(this, &PllForm1::AllCommand_Click)};
  Array<CommandButton> Command14{"Command14", {
      {0, Frame2(0), "Update All Registers", {}},
      {1, Frame2(0), "Initialization", {}},
      {2, Frame2(0), "Update R2 register (phase) ", {}},
    }, hidden, click(this, &PllForm1::Command14_Click)};

  // ------------------------------------------------------------------------------------------------------ Hop mode
  Array<Label> Label6{"Label6", {
      {0, Frame2(1), "Lock Frequency 1:", {}},
      {1, Frame2(1), "Lock Frequency 2:", {}},
    }};
  One<TextBox> VcoText1     {Frame2(1), "VcoText1", "", {}};
  One<TextBox> VcoText2     {Frame2(1), "VcoText2", "", {}};
  One<Label>   Label7       {Frame2(1), "Label7", "Number of Hops:", {}};
  One<TextBox> HopText      {Frame2(1), "HopText", "", {}};
  One<Label>   Label9       {Frame2(1), "Label9", "Delay Between Hops:", {}};
  One<TextBox> DelayText    {Frame2(1), "DelayText", "", {}};
  One<Label>   Label10      {Frame2(1), "Label10", "mSec", {}};
  One<CheckBox> NCheck1     {Frame2(1), "NCheck1", "N Register Only", {}};
  One<CommandButton> StartHop{Frame2(1), "StartHop", "Start", {}, tip("Start Hop Sequence "), click(this, &PllForm1::StartHop_Click)};
  One<CommandButton> StopHop{Frame2(1), "StopHop", "Stop", {}, tip("Start Hop Sequence "), click(this, &PllForm1::StopHop_Click)};
  One<Label>   Label8       {Frame2(1), "Label8", "    Current Hop", {}};

  // ---------------------------------------------------------------------------------------------------- Sweep mode
  Array<Label> Label11{"Label11", {
      {0, Frame2(2), "Start Lock Frequency ", {}},
      {1, Frame2(2), "Stop Lock Frequency ", {}},
    }};
  One<TextBox> StartText1   {Frame2(2), "StartText1", "", {}};
  One<TextBox> StopText1    {Frame2(2), "StopText1", "", {}};
  One<Label>   Label12      {Frame2(2), "Label12", "Step Size", {}};
  One<TextBox> StepText1    {Frame2(2), "StepText1", "", {}};
  One<OptionButton> StepOption{Frame2(2), "StepOption", "Step mode", {}, selected, click(this, &PllForm1::StepOption_Click)};
  One<OptionButton> AutoOption1{Frame2(2), "AutoOption1", "Auto Mode", {}, click(this, &PllForm1::AutoOption1_Click)};
  One<Label>   DLabel       {Frame2(2), "DLabel", "Delay", {}, hidden};
  One<TextBox> DelaySweepText1{Frame2(2), "DelaySweepText1", "", {}, hidden};
  One<Label>   msLabel      {Frame2(2), "msLabel", "mSec", {}, hidden};
  Array<CommandButton> StartSweepCommand{"StartSweepCommand", {
      {0, Frame2(2), "Start Sweep", {}},
    }, tip("start sweep sequence"), click(this, &PllForm1::StartSweepCommand_Click)};
  Array<CommandButton> StopSweepCommand{"StopSweepCommand", {
      {1, Frame2(2), "Stop Sweep", {}},
    }, tip("stop sweep sequence"), click(this, &PllForm1::StopSweepCommand_Click)};
  One<CommandButton> NextCommand{Frame2(2), "NextCommand", ">> ", {}, tip("Next Step"), click(this, &PllForm1::NextCommand_Click)};
  One<CommandButton> PrevCommand{Frame2(2), "PrevCommand", "<<", {}, tip("Previous  Step"), disabled, click(this, &PllForm1::PrevCommand_Click)};
  One<Label>   Label15      {Frame2(2), "Label15", "  Current  Freq", {}};

  // ------------------------------------------------------------------------- Frame11: the function latch, DB23 to DB0
  Array<Label> Label34{"Label34", {
      {1, Frame11, "DB23", {}},
      {0, Frame11, "DB0", {}},
    }};
  Array<Label> Label33{"Label33", {
      {2, Frame11, "0", {}, {fixedBit}},  // DB23
      {3, Frame11, "0", {}, {fixedBit}},  // DB22
      {0, Frame11, "1", {}, {fixedBit}},  // DB1
      {1, Frame11, "0", {}, {bit}},       // DB0
    }, click(this, &PllForm1::Label33_Click)};
  Array<Label> Label31{"Label31", Frame11, "0" "000" "111" "0000" "0" "0" "0" "1" "001" "0" "0", 0, 1, {}, 0,  // DB21 to DB2
    bit, click(this, &PllForm1::Label31_Click)};
  Array<Label> Label32{"Label32", {
      { 0, Frame11, "Prescaler", {}},
      { 1, Frame11, "PD2", {}},
      { 2, Frame11, "Current Set2", {}},
      { 3, Frame11, "Current Set1", {}},
      { 4, Frame11, "TCC", {}},
      { 5, Frame11, "FLM", {}},
      { 6, Frame11, "FLE", {}},
      { 7, Frame11, "CP3", {}},
      { 8, Frame11, "Pol", {}},
      { 9, Frame11, "Muxout", {}},
      {10, Frame11, "PD1", {}},
      {11, Frame11, "CR", {}},
      {12, Frame11, "0=Fun  1=Init", {}},
    }};
  Array<OptionButton> Option3{"Option3", {
      {0, Frame11, "CP Gain=0 Current Set1 Chosen", {}, {selected}},
      {1, Frame11, "CP Gain=1 Current Set2 Chosen", {}},
    }};
  One<TextBox> Text40       {Frame11, "Text40", "", {}};
  One<CommandButton> Command1{Frame11, "Command1", "Browse", {}, click(this, &PllForm1::Command1_Click)};
  One<Label>   Label18      {Frame11, "Label18", "X", {}, clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------- Frame12: the master and RF control registers of the ADF425x
  Array<Label> Label338{"Label338", {  // headings of rows and groups
      {2, Frame12, "Master Reg :", {}},
      {1, Frame12, "RF Control Reg :", {}},
      {0, Frame17, "MOD/R (R1) :", {}, {heading}},
      {3, Frame17, "Phase (R2) :", {}, {heading}},
      {4, Frame17, "Function ( R3) :", {}, {heading}},
      {5, Frame17, "Charge Pump  R4 :", {}, {heading}},
      {6, Frame17, "MOD/R (R5) :", {}, {heading}},
      {7, Frame17, "Mux (R6) :", {}, {heading}},
    }};
  Array<Label> MRLabel{"MRLabel", {
      { 0, Frame12, "1", {}, {bit}},
      { 1, Frame12, "1", {}, {bit}},
      { 2, Frame12, "0", {}, {bit}},
      { 3, Frame12, "0", {}, {bit}},
      { 4, Frame12, "0", {}, {bit, tip("XO : 0-ena  1-dis")}},
      { 5, Frame12, "0", {}, {bit, tip("Power Down  : 0-dis  1-ena")}},
      { 6, Frame12, "0", {}, {bit, tip("Cp  -     3 state  : 0-dis  1-3 state")}},
      { 7, Frame12, "0", {}, {bit, tip("Counter reset : 0-dis  1-ena")}},
      { 8, Frame12, "0", {}, {fixedBit, disabled}},
      { 9, Frame12, "1", {}, {fixedBit, disabled}},
      {10, Frame12, "1", {}, {fixedBit, disabled}},
    }, click(this, &PllForm1::MRLabel_Click)};
  Array<Label> CRLabel{"CRLabel", {
      { 0, Frame12, "0", {}, {fixedBit}},
      { 1, Frame12, "0", {}, {fixedBit, disabled}},
      { 2, Frame12, "0", {}, {fixedBit, disabled}},
      { 3, Frame12, "0", {}, {fixedBit, disabled}},
      { 4, Frame12, "0", {}, {fixedBit}},
      { 5, Frame12, "1", {}, {bit}},
      { 6, Frame12, "1", {}, {bit}},
      { 7, Frame12, "0", {}, {fixedBit, disabled}},
      { 8, Frame12, "1", {}, {bit}},
      { 9, Frame12, "0", {}, {fixedBit}},
      {10, Frame12, "0", {}, {bit}},
      {11, Frame12, "0", {}, {bit}},
      {12, Frame12, "0", {}, {bit}},
      {13, Frame12, "0", {}, {fixedBit, disabled}},
      {14, Frame12, "1", {}, {fixedBit, disabled}},
      {15, Frame12, "0", {}, {fixedBit, disabled}},
    }, click(this, &PllForm1::CRLabel_Click), change(this, &PllForm1::CRLabel_Change)};
  Array<Label> Label40{"Label40", {  // the captions under the two rows
      { 0, Frame12, "MuxOut", {}},
      { 1, Frame12, "XO", {}},
      { 2, Frame12, "power down", {}},
      { 3, Frame12, "CP", {}},
      { 4, Frame12, "CR", {}},
      { 5, Frame12, "Cntrol Bits", {}},
      { 6, Frame12, "Noise & Spur", {}},
      { 7, Frame12, "Not used ", {}},
      { 8, Frame12, "Noise & Spur", {}},
      { 9, Frame12, "Current", {}},
      {10, Frame12, "not used", {}},
      {11, Frame12, "RF PD", {}},
      {12, Frame12, "Noise & Spur", {}},
      {13, Frame12, "RF Power down", {}},
      {14, Frame12, "RF CP", {}},
      {15, Frame12, "RF Counter Reset", {}},
      {16, Frame12, "Cntrol Bits", {}},
    }};
  One<Label>   Label41      {Frame12, "Label41", "RF Ref Doubler", {}};
  One<Label>   XLabel       {Frame12, "XLabel", "0", {}, bit, click(this, &PllForm1::XLabel_Click)};
  One<Label>   Label42      {Frame12, "Label42", "RF R Counter", {}};
  One<TextBox> RText        {Frame12, "RText", "1", {}};
  Array<OptionButton> Option4{"Option4", {
      {0, Frame10, "Lowest Spur", {}},
      {1, Frame10, "Low Noise and Spur", {}},
      {2, Frame10, "Lowest Noise", {}},
    }, click(this, &PllForm1::Option4_Click)};
  One<Label>   Label19      {Frame12, "Label19", "X", {}, clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------------------------- Frame13: the panel of the ADF4153, ADF4156
  One<Label>   Label43      {Frame13, "Label43", "Normal Mode", {}, clickable, click(this, &PllForm1::Label43_Click)};
  One<CheckBox> LDPCheck    {Frame13, "LDPCheck", "LDP=3", {}, click(this, &PllForm1::LDPCheck_Click)};
  Array<CheckBox> Check11{"Check11", {
      {0, Frame13, "Fast Lock", {}},
      {1, Frame13, "Load Control Enabled", {}},
      {2, Frame13, "Reference Doubler Enabled", {}},
      {3, Frame13, "Counter Reset Enabled", {}},
      {4, Frame13, "CP 3-State ON", {}},
      {5, Frame13, "RF Power Down Enabled", {}},
      {6, Frame13, "RF PD Polarity Positive", {}, {selected}},
    }};
  One<Label>   Label44      {Frame13, "Label44", "CP Current Setting:", {}};
  Array<Label> Label45{"Label45", Frame13, "0111", 3, -1, {}, 0, bit, click(this, &PllForm1::Label45_Click)};
  One<Label>   Label47      {Frame13, "Label47", "Mux Out:", {}};
  Array<Label> Label48{"Label48", Frame13, "001", 2, -1, {}, 0, bit, click(this, &PllForm1::Label48_Click)};
  Array<Label> Label39{"Label39", {
      {10, Frame13, "cp3", {}},
      { 9, Frame13, "cp2", {}},
      { 8, Frame13, "cp1", {}},
      { 7, Frame13, "cp0", {}},
      {13, Frame13, "M3", {}},
      {12, Frame13, "M2", {}},
      {11, Frame13, "M1", {}},
    }, tip("Cp  -     3 state  : 0-dis  1-3 state")};
  One<Label>   Label46      {Frame13, "Label46", "Resync (0-15):", {}};
  One<TextBox> Text26       {Frame13, "Text26", "0", {}};
  One<Label>   Label49      {Frame13, "Label49", "RF R Counter:", {}};
  One<TextBox> Text27       {Frame13, "Text27", "1", {}};
  Array<OptionButton> Option6{"Option6", {
      {0, Frame23, "Lowest Spur", {}},
      {1, Frame23, "Low Noise and Spur", {}, {selected}},
      {2, Frame23, "Lowest Noise", {}},
    }};
  One<Label>   Label17      {Frame13, "Label17", "X", {}, clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------------------------ Frame16: the panel of the LMX and ADF4118
  Array<OptionButton> Option7{"Option7", {
      {0, Frame16, "CP Gain=0 (250 micro Amp)", {}},
      {1, Frame16, "CP Gain=1 (1mAmp)", {}, {selected}},
    }, click(this, &PllForm1::Option7_Click)};
  One<CheckBox> Check1      {Frame16, "Check1", "Polarity Positive", {}, selected, click(this, &PllForm1::Check1_Click)};
  One<CommandButton> Command10{Frame16, "Command10", "X", {}, tip("Close"), click(this, &PllForm1::Label17_Click)};
  One<Label>   Label20      {Frame16, "Label20", "X", {}, clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------------------------------- Frame17: the panel of the ADF4193
  Array<Label> Label61{"Label61", {  // the prompt of the list of the same index
      { 0, Frame17, "CP ADJ:", {}},
      { 1, Frame17, "Ref/2:", {}},
      { 2, Frame17, "CPO GND:", {}},
      { 3, Frame17, "PFD Polarity:", {}},
      { 4, Frame17, "Timer Select:", {}},
      { 5, Frame17, "PD DIFF AMP:", {}},
      { 6, Frame17, "PD Charge Pump:", {}},
      { 7, Frame17, "CP 3-State", {}},
      { 8, Frame17, "Counter Reset:", {}},
      { 9, Frame17, "Sigma-Delta & Lock Detect Modes:", {}},
      {10, Frame17, "MUX OUT:", {}},
    }};
  Array<DropList> Combo10{"Combo10", {
      { 0, Frame17, "", {}, {items({"Nominal", "Adjusted"})}},
      { 1, Frame17, "", {}, {items({"Disable", "Enable"})}},
      { 2, Frame17, "", {}, {items({"CPO GND", "Normal"})}},
      { 3, Frame17, "", {}, {items({"Negative", "Positive"})}},
      { 4, Frame17, "", {}, {items({"SW1/SW2", "SW3", "ICP", "Not Used"})}},
      { 5, Frame17, "", {}, {items({"Disabled", "Enabled"})}},
      { 6, Frame17, "", {}, {items({"Disabled", "Enabled"})}},
      { 7, Frame17, "", {}, {items({"Normal Operation", "3-State Enabled"})}},
      { 8, Frame17, "", {}, {items({"Normal Operation", "Counter Reset"})}},
      { 9, Frame17, "", {}, {items({"Init State,Dither Off, 3ns", "Dither On", "10ns Lock Detect Threshhold"})}},
      {10, Frame17, "", {}, {items({"3-State", "Digital Lock Detect", "N Divider Output", "Logic High", "R Counter",
                                    "Serial Data Out", "Logic Low", "R Divider/2 Output", "N Divider/2 Output",
                                    "ICP Timeout Signal", "SW1/2 Timeout Signal", "SW3 Timeout Signal"})}},
    }};
  One<CheckBox> Check16     {Frame17, "Check16", "Doubler Enable", {}};
  Array<Label> Label62{"Label62", {  // prompts and limits of the fields of Frame17, prompts of two file names
      {0, Frame17, "RF R Counter Divide Ratio:", {}},
      {1, Frame17, "(value: 1 to 15)", {}},
      {2, Frame17, "Phase Value:", {}},
      {3, Frame17, "(value: 0 to MOD)", {}},
      {4, Frame17, "Time Out Counter:", {}},
      {5, Frame17, "(value: 0 to 511)", {}},
      {7, Frame11, "Current Set 2 from File:", {}},
      {9, Frame24, "chrg pump from File:", {}},
    }};
  Array<TextBox> Text36{"Text36", {
      {0, Frame17, "1", {}},
      {1, Frame17, "0", {}},
      {2, Frame17, "0", {}},
    }};
  One<Line>    Line1        {Frame17, "Line1", "", {}};
  One<Label>   Label22      {Frame17, "Label22", "X", {}, clickable, click(this, &PllForm1::Label17_Click)};

  // -------------------------------------------------------------------------- Frame24: the panel of the SKY72300-362
  Array<Label> Label69{"Label69", {
      {2, Frame24, "Main: Ref Div Value (1 to 32):", {}},
      {3, Frame24, "Aux: Ref Div Value (1 to 32):", {}},
      {4, Frame24, "Main: chrg pump  (0 to 31):", {}},
      {5, Frame24, "Aux: chrg pump     (0 to 31):", {}},
      {6, Frame24, "Power Down & Multiplxer Output Register:", {}},
      {7, Frame24, "Modulation Control Register:", {}},
      {8, Frame24, "Modulation Data Bits:", {}},
    }};
  Array<TextBox> Text46{"Text46", {
      {0, Frame24, "1", {}},
      {1, Frame24, "1", {}},
      {2, Frame24, "31", {}},
      {3, Frame24, "31", {}},
    }};
  One<Label>   Label70      {Frame24, "Label70", "Main: PS/Lock Detect", {}, clickable, tip("click to change"), click(this, &PllForm1::Label70_Click)};
  One<Label>   Label71      {Frame24, "Label71", "Aux: PS/Lock Detect", {}, clickable, tip("click to change"), click(this, &PllForm1::Label71_Click)};
  One<TextBox> Text47       {Frame24, "Text47", "", {}};
  One<CommandButton> Command18{Frame24, "Command18", "Browse", {}, click(this, &PllForm1::Command18_Click)};
  Array<Label> Label72{"Label72", {  // the address bits in front of the three rows
      { 0, Frame24, "0", {}},
      { 1, Frame24, "1", {}},
      { 2, Frame24, "1", {}},
      { 3, Frame24, "1", {}},
      { 4, Frame24, "X", {}},
      { 5, Frame24, "X", {}},
      { 6, Frame24, "1", {}},
      { 7, Frame24, "0", {}},
      { 8, Frame24, "0", {}},
      { 9, Frame24, "0", {}},
      {10, Frame24, "X", {}},
      {11, Frame24, "X", {}},
      {12, Frame24, "1", {}},
      {13, Frame24, "0", {}},
      {14, Frame24, "0", {}},
      {15, Frame24, "1", {}},
    }, fixedBit};
  Array<Label> Label73{"Label73", {
      {9, Frame24, "0", {}, {tip("0=MuxOut pin enabled 1=Mux out pin is tri-stated.")}},
      {8, Frame24, "0", {}},
      {7, Frame24, "0", {}},
      {6, Frame24, "0", {}},
      {5, Frame24, "0", {}, {tip("0=Aux:Fractional-N 1=Aux:Integer-N")}},
      {4, Frame24, "1", {}, {tip("0=AuxlPowerUp 1=AuxPowerDn")}},
      {3, Frame24, "0", {}, {tip("0=Main: 18 Bit 1=Main: 10 Bit")}},
      {2, Frame24, "0", {}, {tip("0=Main:Fractional-N 1=Main:Integer-N")}},
      {1, Frame24, "0", {}, {tip("0=MainlPowerUp 1=MainPowerDn")}},
      {0, Frame24, "0", {}, {tip("0=FullPowerUp 1=FullPowerDn")}},
    }, bit, click(this, &PllForm1::Label73_Click)};
  Array<Label> Label74{"Label74", {
      {9, Frame24, "0", {}, {bit}},
      {8, Frame24, "0", {}, {bit}},
      {7, Frame24, "0", {}, {bit}},
      {6, Frame24, "0", {}, {bit}},
      {5, Frame24, "0", {}, {bit}},
      {4, Frame24, "0", {}, {bit}},
      {3, Frame24, "0", {}, {fixedBit}},
      {2, Frame24, "0", {}, {fixedBit}},
      {1, Frame24, "0", {}, {fixedBit}},
      {0, Frame24, "0", {}, {fixedBit}},
    }, click(this, &PllForm1::Label74_Click)};
  Array<Label> Label75{"Label75", Frame24, "000000000000", 11, -1, {}, 0, bit, click(this, &PllForm1::Label75_Click)};
  One<Label>   Label76      {Frame24, "Label76", "X", {}, clickable, tip("Close"), click(this, &PllForm1::Label76_Click)};
  // clang-format on

  // ------------------------------------------------------------------------------------------------ The
  // other forms
  ParallelForm parallelForm;
  BrowseForm browseForm;
  frmAbout aboutForm;

 private:
  // The window as a whole.
  void showLockDetect(bool locked);
  void showMode(const Menu& entry, const Frame& frame);
  void browseInto(TextBox& field);
  // The model menu.
  void showCommonState();
  void showSetupFileRow(bool visible);
  void showRegisterRows(bool fractional);
  void showModelControls();
  void showADF4193Controls();
  // Panels.
  void togglePanel(Frame& panel, Twips place);
  void hidePanels();
  void showPrescalerBits(bool zeroWithoutMatch);
  void takeFunctionLatch();
  void takeADF425xPanel();
  void takeADF415xPanel();
  void takeADF4193Panel();
  void takeTimers();
  void takeSKYPanel();
  // Commands.
  void readFrequencies();
  void showWords();
  void readLockDetect();
  void sendRegisters();
  void startADF4193();
  void hopADF4193();
  void hopOthers();
  void showHop(const char* head, Integer hopsLeft);
  void showThreeWords();
  void startSweep();
  void runAutoSweep(double SweepFreq, double SweepStop, double SweepStep, Integer SweepDelay);
  void showSweepFrequency();
  void stepTo(double frequency);
  void showStepControls(bool stepMode);

  Module1& module_;
};

}  // namespace tessarine
