// The main window, from top to bottom: its menus, its containers and the controls in each. A control is one
// line: its name, its caption or text, its place in twips, and its options and handlers. A line added here
// appears on the screen and in scripts by itself.
//
// The handlers live with their subjects: window/ (start, modes, model menu, panels, prescaler), transport/
// (the way out) and modes/ (the commands).
#pragma once

#include <string>
#include <vector>

#include "dialogs/BrowseForm.h"
#include "dialogs/frmAbout.h"
#include "engine/EngineView.h"
#include "engine/Module1.h"
#include "forms/Build.h"
#include "forms/Form.h"
#include "transport/ParallelForm.h"

namespace tessarine {

struct ChipType;
enum class ChipPanel;

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

  // Whether the chip in use has that panel.
  [[nodiscard]] bool hasPanel(ChipPanel panel) const;
  // Where its panel names a band file; null without one.
  [[nodiscard]] TextBox* bandFileField();

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
  One<PictureBox> Picture1  {*this, "Picture1", "", at(1000, 1000, 9700, 2000)};
  One<Frame> Frame24        {*this, "Frame24", "SKY72300-362", at(0, 0, 11300, 2650), hidden};
  One<Frame> Frame4193      {*this, "Frame4193", " Data ", at(7455, 4080, 3945, 2640), hidden};
  One<Frame> Frame17        {*this, "Frame17", "Analog Device - ADF4193 Config", at(0, 0, 9000, 4000), hidden};
  One<Frame> GeneralFrame   {*this, "GeneralFrame", "  Pll Model   ", at(120, 120, 11280, 3840), hidden};
  One<Frame> DataFrame      {*this, "DataFrame", "  Data   ", at(7455, 4080, 3945, 2640), hidden};
  Array<Frame> Frame2{"Frame2", {
      {0, *this, "   General Mode    ", at(120, 4080, 7215, 2640)},
      {1, *this, "   Hop Mode   ", at(120, 4080, 7215, 2640)},
      {2, *this, "   Sweep Mode    ", at(120, 4080, 7215, 2640)},
    }, hidden};
  One<Frame> Frame11        {*this, "Frame11", "  PLL Function Latch:", at(50, 100, 10500, 2750), hidden};
  One<Frame> Frame12        {GeneralFrame, "Frame12", "  Analog Device PLL Function Latch Master reg & RF control Reg:  ", at(0, 0, 10500, 2500), hidden};
  One<Frame> Frame13        {GeneralFrame, "Frame13", "  Analog Device Fractional PLL:  ", at(0, 0, 9500, 3000), hidden};
  One<Frame> Frame16        {GeneralFrame, "Frame16", "LMX/ADF4118", at(5400, 480, 5640, 1980), hidden};
  One<Frame> Frame10        {Frame12, "Frame10", "Noise & Spur", at(7980, 400, 2340, 1110)};
  One<Frame> Frame23        {Frame13, "Frame23", "Noise & Spur", at(6720, 480, 2520, 1380)};

  // -------------------------------------------------------------------------------------------------- First screen
  Array<OptionButton> IOOption{"IOOption", {
      {0, Picture1, "LPT1", at(5400, 580, 1500, 300), {selected}},
      {1, Picture1, "USB", at(5400, 1060, 1500, 300)},
    }};
  One<CommandButton> ContinueCommand{Picture1, "ContinueCommand", "Continue ...", at(7320, 760, 1860, 480), click(this, &PllForm1::ContinueCommand_Click)};

  // ------------------------------------------------------------------------------------------------- General frame
  One<Label>   Label1       {GeneralFrame, "Label1", "Reference Frequency:", at(240, 560, 1860, 300)};
  One<TextBox> RefText      {GeneralFrame, "RefText", "", at(2160, 560, 1500, 300)};
  One<Label>   Label4       {GeneralFrame, "Label4", "Step Resolution:", at(240, 1100, 1860, 300)};
  One<TextBox> CompText     {GeneralFrame, "CompText", "", at(2160, 1100, 1500, 300)};
  One<Label>   Label23      {GeneralFrame, "Label23", "PFD:", at(240, 1640, 1860, 300)};
  One<Label>   PFDLabel     {GeneralFrame, "PFDLabel", "0", at(2160, 1640, 1500, 300), word};
  Array<Label> Label13{"Label13", {
      {1, GeneralFrame, "PreScalar:", at(240, 2180, 1860, 300)},
    }};
  One<ComboBox> PrescalarText{GeneralFrame, "PrescalarText", "", at(2160, 2180, 1500, 300), click(this, &PllForm1::PrescalarText_Change), change(this, &PllForm1::PrescalarText_Change)};
  One<Label>   SetupLabel   {GeneralFrame, "SetupLabel", "Setup File Name:", at(240, 3280, 1860, 300), hidden};
  One<TextBox> Text38       {GeneralFrame, "Text38", "", at(2160, 3280, 5100, 300), hidden};
  One<CommandButton> Command13{GeneralFrame, "Command13", "Browse", at(7380, 3250, 1200, 360), hidden, click(this, &PllForm1::Command13_Click)};
  One<CommandButton> ACommand{GeneralFrame, "ACommand", "Advanced", at(9660, 3220, 1380, 420), disabled, click(this, &PllForm1::ACommand_Click)};
  Array<Label> Label3{"Label3", {  // the units behind the frequencies
      {0, GeneralFrame, "MHz", at(3740, 560, 600, 300)},
      {1, GeneralFrame, "KHz", at(3740, 1100, 600, 300)},
      {7, GeneralFrame, "KHz", at(3740, 1640, 600, 300)},
      {2, Frame2(1), "MHz", at(3500, 540, 480, 300)},
      {3, Frame2(1), "MHz", at(3500, 1020, 480, 300)},
      {4, Frame2(2), "MHz", at(3500, 540, 480, 300)},
      {5, Frame2(2), "MHz", at(3500, 1020, 480, 300)},
      {6, Frame2(2), "KHz", at(3500, 1500, 480, 300)},
    }};

  // -------------------------------------------------------------------------------------------- The register words
  Array<Label> Label14{"Label14", {
      {0, DataFrame, "MSB", at(1380, 500, 330, 240)},
      {1, DataFrame, "LSB", at(3435, 500, 330, 240)},
    }, caption};
  Array<Label> Label16{"Label16", {
      {0, DataFrame, "F Register:", at(180, 800, 1050, 300)},
      {1, DataFrame, "R Register:", at(180, 1220, 1050, 300)},
      {2, DataFrame, "N Register:", at(180, 1640, 1050, 300)},
      {3, DataFrame, "M Register:", at(180, 2060, 1050, 300), {hidden}},
    }};
  One<Label> Fregister      {DataFrame, "Fregister", "000000000000000000000000", at(1260, 800, 2505, 300), word};
  One<Label> Rregister      {DataFrame, "Rregister", "000000000000000000000000", at(1260, 1220, 2505, 300), word};
  One<Label> Nregister      {DataFrame, "Nregister", "000000000000000000000000", at(1260, 1640, 2505, 300), word};
  One<Label> Mregister      {DataFrame, "Mregister", "000000000000000000000000", at(1260, 2060, 2505, 300), word, hidden};
  Array<Label> Label21{"Label21", {
      {0, Frame4193, "00", at(180, 430, 3585, 213)},
      {1, Frame4193, "00", at(180, 643, 3585, 213)},
      {2, Frame4193, "00", at(180, 856, 3585, 213)},
      {3, Frame4193, "00", at(180, 1069, 3585, 213)},
      {4, Frame4193, "00", at(180, 1282, 3585, 213)},
      {5, Frame4193, "00", at(180, 1495, 3585, 213)},
      {6, Frame4193, "00", at(180, 1708, 3585, 213)},
      {7, Frame4193, "00", at(180, 1921, 3585, 213)},
      {8, Frame4193, "00", at(180, 2134, 3585, 213)},
      {9, Frame4193, "00", at(180, 2347, 3585, 213)},
    }, word};

  // -------------------------------------------------------------------------------------------------- General mode
  One<Label>   Label2       {Frame2(0), "Label2", "VCO Output Frequency:", at(240, 540, 2040, 300)};
  One<TextBox> VCOText      {Frame2(0), "VCOText", "", at(2340, 540, 1500, 300)};
  One<Label>   Label5       {Frame2(0), "Label5", "(MHz)", at(3920, 540, 720, 300)};
  One<CommandButton> CalculateCommand{Frame2(0), "CalculateCommand", "Calculate", at(5400, 510, 1575, 360), tip("Calculate pattern "), click(this, &PllForm1::CalculateCommand_Click)};
  One<Label>   LDLabel      {Frame2(0), "LDLabel", "Lock Detect Off", at(2340, 1020, 1500, 330), lamp};
  One<CommandButton> FCommand{Frame2(0), "FCommand", " F register ", at(240, 1620, 1590, 360), tip("Send control register"), click(this, &PllForm1::FCommand_Click)};
  One<CommandButton> RCommand{Frame2(0), "RCommand", " R register ", at(1935, 1620, 1590, 360), tip("R register"), click(this, &PllForm1::RCommand_Click)};
  One<CommandButton> NCommand{Frame2(0), "NCommand", " N register ", at(3630, 1620, 1590, 360), tip("send N register (AB)"), click(this, &PllForm1::NCommand_Click)};
  One<CommandButton> MCommand{Frame2(0), "MCommand", " M register ", at(5325, 1620, 1590, 360), tip("send N register (AB)"), hidden, click(this, &PllForm1::MCommand_Click)};
  One<CommandButton> AllCommand{Frame2(0), "AllCommand", "Send All registers ", at(240, 2100, 3285, 390), tip("Send F R N registers"), isDefault, click(this, &PllForm1::AllCommand_Click)};
  Array<CommandButton> Command14{"Command14", {
      {0, Frame2(0), "Update All Registers", at(240, 1620, 2160, 360)},
      {1, Frame2(0), "Initialization", at(2520, 1620, 1740, 360)},
      {2, Frame2(0), "Update R2 register (phase) ", at(4380, 1620, 2595, 360)},
    }, hidden, click(this, &PllForm1::Command14_Click)};

  // ------------------------------------------------------------------------------------------------------ Hop mode
  Array<Label> Label6{"Label6", {
      {0, Frame2(1), "Lock Frequency 1:", at(240, 540, 1800, 300)},
      {1, Frame2(1), "Lock Frequency 2:", at(240, 1020, 1800, 300)},
    }};
  One<TextBox> VcoText1     {Frame2(1), "VcoText1", "", at(2100, 540, 1320, 300)};
  One<TextBox> VcoText2     {Frame2(1), "VcoText2", "", at(2100, 1020, 1320, 300)};
  One<Label>   Label7       {Frame2(1), "Label7", "Number of Hops:", at(240, 1500, 1800, 300)};
  One<TextBox> HopText      {Frame2(1), "HopText", "", at(2100, 1500, 1320, 300)};
  One<Label>   Label9       {Frame2(1), "Label9", "Delay Between Hops:", at(240, 1980, 1800, 300)};
  One<TextBox> DelayText    {Frame2(1), "DelayText", "", at(2100, 1980, 1320, 300)};
  One<Label>   Label10      {Frame2(1), "Label10", "mSec", at(3500, 1980, 480, 300)};
  One<CheckBox> NCheck1     {Frame2(1), "NCheck1", "N Register Only", at(4260, 540, 2700, 300)};
  One<CommandButton> StartHop{Frame2(1), "StartHop", "Start", at(4260, 990, 1290, 360), tip("Start Hop Sequence "), click(this, &PllForm1::StartHop_Click)};
  One<CommandButton> StopHop{Frame2(1), "StopHop", "Stop", at(5685, 990, 1290, 360), tip("Start Hop Sequence "), click(this, &PllForm1::StopHop_Click)};
  One<Label>   Label8       {Frame2(1), "Label8", "    Current Hop", at(4260, 1530, 2715, 960)};

  // ---------------------------------------------------------------------------------------------------- Sweep mode
  Array<Label> Label11{"Label11", {
      {0, Frame2(2), "Start Lock Frequency ", at(240, 540, 1800, 300)},
      {1, Frame2(2), "Stop Lock Frequency ", at(240, 1020, 1800, 300)},
    }};
  One<TextBox> StartText1   {Frame2(2), "StartText1", "", at(2100, 540, 1320, 300)};
  One<TextBox> StopText1    {Frame2(2), "StopText1", "", at(2100, 1020, 1320, 300)};
  One<Label>   Label12      {Frame2(2), "Label12", "Step Size", at(240, 1500, 1800, 300)};
  One<TextBox> StepText1    {Frame2(2), "StepText1", "", at(2100, 1500, 1320, 300)};
  One<OptionButton> StepOption{Frame2(2), "StepOption", "Step mode", at(4260, 540, 1290, 300), selected, click(this, &PllForm1::StepOption_Click)};
  One<OptionButton> AutoOption1{Frame2(2), "AutoOption1", "Auto Mode", at(5685, 540, 1290, 300), click(this, &PllForm1::AutoOption1_Click)};
  One<Label>   DLabel       {Frame2(2), "DLabel", "Delay", at(240, 1980, 1800, 300), hidden};
  One<TextBox> DelaySweepText1{Frame2(2), "DelaySweepText1", "", at(2100, 1980, 1320, 300), hidden};
  One<Label>   msLabel      {Frame2(2), "msLabel", "mSec", at(3500, 1980, 480, 300), hidden};
  Array<CommandButton> StartSweepCommand{"StartSweepCommand", {
      {0, Frame2(2), "Start Sweep", at(4260, 990, 1290, 360)},
    }, tip("start sweep sequence"), click(this, &PllForm1::StartSweepCommand_Click)};
  Array<CommandButton> StopSweepCommand{"StopSweepCommand", {
      {1, Frame2(2), "Stop Sweep", at(5685, 990, 1290, 360)},
    }, tip("stop sweep sequence"), click(this, &PllForm1::StopSweepCommand_Click)};
  One<CommandButton> NextCommand{Frame2(2), "NextCommand", ">> ", at(5685, 1470, 1290, 360), tip("Next Step"), click(this, &PllForm1::NextCommand_Click)};
  One<CommandButton> PrevCommand{Frame2(2), "PrevCommand", "<<", at(4260, 1470, 1290, 360), tip("Previous  Step"), disabled, click(this, &PllForm1::PrevCommand_Click)};
  One<Label>   Label15      {Frame2(2), "Label15", "  Current  Freq", at(4260, 1980, 2715, 480)};

  // ------------------------------------------------------------------------- Frame11: the function latch, DB23 to DB0
  Array<Label> Label34{"Label34", {
      {1, Frame11, "DB23", at(180, 1130, 430, 200)},
      {0, Frame11, "DB0", at(9750, 1130, 430, 200)},
    }, caption};
  Array<Label> Label33{"Label33", {
      {2, Frame11, "0", at(240, 790, 310, 310), {fixedBit}},  // DB23
      {3, Frame11, "0", at(570, 790, 310, 310), {fixedBit}},  // DB22
      {0, Frame11, "1", at(9480, 790, 310, 310), {fixedBit}},  // DB1
      {1, Frame11, "0", at(9810, 790, 310, 310), {bit}},       // DB0
    }, click(this, &PllForm1::Label33_Click)};
  Array<Label> Label31{"Label31", Frame11, "0 000 111 0000 0 0 0 1 001 0 0", 0, 1, at(1065, 790, 310, 310), 330,  // DB21 to DB2
    bit, click(this, &PllForm1::Label31_Click)};
  Array<Label> Label32{"Label32", {
      { 0, Frame11, "Prescaler", at(160, 560, 800, 210)},
      { 1, Frame11, "PD2", at(1000, 560, 440, 210)},
      { 2, Frame11, "Current Set2", at(1500, 560, 1090, 210)},
      { 3, Frame11, "Current Set1", at(2655, 560, 1090, 210)},
      { 4, Frame11, "TCC", at(3870, 560, 1300, 210)},
      { 5, Frame11, "FLM", at(5290, 560, 440, 210)},
      { 6, Frame11, "FLE", at(5785, 560, 440, 210)},
      { 7, Frame11, "CP3", at(6280, 560, 440, 210)},
      { 8, Frame11, "Pol", at(6775, 560, 440, 210)},
      { 9, Frame11, "Muxout", at(7335, 560, 970, 210)},
      {10, Frame11, "PD1", at(8425, 560, 440, 210)},
      {11, Frame11, "CR", at(8985, 560, 310, 210)},
      {12, Frame11, "0=Fun  1=Init", at(9300, 560, 1000, 210)},
    }, caption};
  Array<OptionButton> Option3{"Option3", {
      {0, Frame11, "CP Gain=0 Current Set1 Chosen", at(240, 1620, 3900, 300), {selected}},
      {1, Frame11, "CP Gain=1 Current Set2 Chosen", at(240, 2100, 3900, 300)},
    }};
  One<TextBox> Text40       {Frame11, "Text40", "", at(4440, 2100, 4440, 300)};
  One<CommandButton> Command1{Frame11, "Command1", "Browse", at(9000, 2070, 1200, 360), click(this, &PllForm1::Command1_Click)};
  One<Label>   Label18      {Frame11, "Label18", "X", at(10080, 90, 300, 270), clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------- Frame12: the master and RF control registers of the ADF425x
  Array<Label> Label338{"Label338", {  // headings of rows and groups
      {2, Frame12, "Master Reg :", at(180, 430, 1380, 310)},
      {1, Frame12, "RF Control Reg :", at(180, 1540, 1380, 310)},
      {0, Frame17, "MOD/R (R1) :", at(180, 360, 2400, 250), {heading}},
      {3, Frame17, "Phase (R2) :", at(180, 1920, 2400, 250), {heading}},
      {4, Frame17, "Function ( R3) :", at(4440, 360, 2400, 250), {heading}},
      {5, Frame17, "Charge Pump  R4 :", at(180, 2535, 2400, 250), {heading}},
      {6, Frame17, "MOD/R (R5) :", at(4440, 1290, 2400, 250), {heading}},
      {7, Frame17, "Mux (R6) :", at(4440, 2850, 2400, 250), {heading}},
    }};
  Array<Label> MRLabel{"MRLabel", {
      { 0, Frame12, "1", at(1725, 430, 310, 310), {bit}},
      { 1, Frame12, "1", at(2055, 430, 310, 310), {bit}},
      { 2, Frame12, "0", at(2385, 430, 310, 310), {bit}},
      { 3, Frame12, "0", at(2715, 430, 310, 310), {bit}},
      { 4, Frame12, "0", at(3125, 430, 310, 310), {bit, tip("XO : 0-ena  1-dis")}},
      { 5, Frame12, "0", at(3625, 430, 310, 310), {bit, tip("Power Down  : 0-dis  1-ena")}},
      { 6, Frame12, "0", at(4125, 430, 310, 310), {bit, tip("Cp  -     3 state  : 0-dis  1-3 state")}},
      { 7, Frame12, "0", at(4565, 430, 310, 310), {bit, tip("Counter reset : 0-dis  1-ena")}},
      { 8, Frame12, "0", at(4990, 430, 310, 310), {fixedBit, disabled}},
      { 9, Frame12, "1", at(5320, 430, 310, 310), {fixedBit, disabled}},
      {10, Frame12, "1", at(5650, 430, 310, 310), {fixedBit, disabled}},
    }, click(this, &PllForm1::MRLabel_Click)};
  Array<Label> CRLabel{"CRLabel", {
      { 0, Frame12, "0", at(1725, 1540, 310, 310), {fixedBit}},
      { 1, Frame12, "0", at(2275, 1540, 310, 310), {fixedBit, disabled}},
      { 2, Frame12, "0", at(2605, 1540, 310, 310), {fixedBit, disabled}},
      { 3, Frame12, "0", at(2935, 1540, 310, 310), {fixedBit, disabled}},
      { 4, Frame12, "0", at(3505, 1540, 310, 310), {fixedBit}},
      { 5, Frame12, "1", at(4055, 1540, 310, 310), {bit}},
      { 6, Frame12, "1", at(4385, 1540, 310, 310), {bit}},
      { 7, Frame12, "0", at(4955, 1540, 310, 310), {fixedBit, disabled}},
      { 8, Frame12, "1", at(5595, 1540, 310, 310), {bit}},
      { 9, Frame12, "0", at(6235, 1540, 310, 310), {fixedBit}},
      {10, Frame12, "0", at(6875, 1540, 310, 310), {bit}},
      {11, Frame12, "0", at(7515, 1540, 310, 310), {bit}},
      {12, Frame12, "0", at(8155, 1540, 310, 310), {bit}},
      {13, Frame12, "0", at(8705, 1540, 310, 310), {fixedBit, disabled}},
      {14, Frame12, "1", at(9035, 1540, 310, 310), {fixedBit, disabled}},
      {15, Frame12, "0", at(9365, 1540, 310, 310), {fixedBit, disabled}},
    }, click(this, &PllForm1::CRLabel_Click), change(this, &PllForm1::CRLabel_Change)};
  Array<Label> Label40{"Label40", {  // the captions under the two rows
      { 0, Frame12, "MuxOut", at(1725, 750, 1300, 340)},
      { 1, Frame12, "XO", at(3060, 750, 440, 340)},
      { 2, Frame12, "power down", at(3500, 750, 560, 340)},
      { 3, Frame12, "CP", at(4060, 750, 440, 340)},
      { 4, Frame12, "CR", at(4500, 750, 440, 340)},
      { 5, Frame12, "Cntrol Bits", at(4960, 750, 1030, 340)},
      { 6, Frame12, "Noise & Spur", at(1560, 1860, 640, 510)},
      { 7, Frame12, "Not used ", at(2200, 1860, 1140, 510)},
      { 8, Frame12, "Noise & Spur", at(3340, 1860, 640, 510)},
      { 9, Frame12, "Current", at(3980, 1860, 810, 510)},
      {10, Frame12, "not used", at(4790, 1860, 640, 510)},
      {11, Frame12, "RF PD", at(5430, 1860, 640, 510)},
      {12, Frame12, "Noise & Spur", at(6070, 1860, 640, 510)},
      {13, Frame12, "RF Power down", at(6710, 1860, 640, 510)},
      {14, Frame12, "RF CP", at(7350, 1860, 640, 510)},
      {15, Frame12, "RF Counter Reset", at(7990, 1860, 640, 510)},
      {16, Frame12, "Cntrol Bits", at(8630, 1860, 1140, 510)},
    }, caption};
  One<Label>   Label41      {Frame12, "Label41", "RF Ref Doubler", at(6120, 430, 1140, 310)};
  One<Label>   XLabel       {Frame12, "XLabel", "0", at(7300, 430, 310, 310), bit, click(this, &PllForm1::XLabel_Click)};
  One<Label>   Label42      {Frame12, "Label42", "RF R Counter", at(6120, 880, 1140, 300)};
  One<TextBox> RText        {Frame12, "RText", "1", at(7300, 880, 540, 300)};
  Array<OptionButton> Option4{"Option4", {
      {0, Frame10, "Lowest Spur", at(150, 310, 2100, 250)},
      {1, Frame10, "Low Noise and Spur", at(150, 565, 2100, 250)},
      {2, Frame10, "Lowest Noise", at(150, 820, 2100, 250)},
    }, click(this, &PllForm1::Option4_Click)};
  One<Label>   Label19      {Frame12, "Label19", "X", at(10080, 90, 300, 270), clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------------------------- Frame13: the panel of the ADF4153, ADF4156
  One<Label>   Label43      {Frame13, "Label43", "Normal Mode", at(3120, 480, 1500, 330), clickable, click(this, &PllForm1::Label43_Click)};
  One<CheckBox> LDPCheck    {Frame13, "LDPCheck", "LDP=3", at(240, 480, 2700, 270), click(this, &PllForm1::LDPCheck_Click)};
  Array<CheckBox> Check11{"Check11", {
      {0, Frame13, "Fast Lock", at(240, 780, 2700, 270)},
      {1, Frame13, "Load Control Enabled", at(240, 1080, 2700, 270)},
      {2, Frame13, "Reference Doubler Enabled", at(240, 1380, 2700, 270)},
      {3, Frame13, "Counter Reset Enabled", at(240, 1680, 2700, 270)},
      {4, Frame13, "CP 3-State ON", at(240, 1980, 2700, 270)},
      {5, Frame13, "RF Power Down Enabled", at(240, 2280, 2700, 270)},
      {6, Frame13, "RF PD Polarity Positive", at(240, 2580, 2700, 270), {selected}},
    }};
  One<Label>   Label44      {Frame13, "Label44", "CP Current Setting:", at(3120, 1170, 1620, 310)};
  Array<Label> Label45{"Label45", Frame13, "0111", 3, -1, at(4800, 1170, 310, 310), 330, bit, click(this, &PllForm1::Label45_Click)};
  One<Label>   Label47      {Frame13, "Label47", "Mux Out:", at(3120, 1770, 1620, 310)};
  Array<Label> Label48{"Label48", Frame13, "001", 2, -1, at(4800, 1770, 310, 310), 330, bit, click(this, &PllForm1::Label48_Click)};
  Array<Label> Label39{"Label39", {
      {10, Frame13, "cp3", at(4790, 960, 330, 200)},
      { 9, Frame13, "cp2", at(5120, 960, 330, 200)},
      { 8, Frame13, "cp1", at(5450, 960, 330, 200)},
      { 7, Frame13, "cp0", at(5780, 960, 330, 200)},
      {13, Frame13, "M3", at(4790, 1560, 330, 200)},
      {12, Frame13, "M2", at(5120, 1560, 330, 200)},
      {11, Frame13, "M1", at(5450, 1560, 330, 200)},
    }, caption, tip("Cp  -     3 state  : 0-dis  1-3 state")};
  One<Label>   Label46      {Frame13, "Label46", "Resync (0-15):", at(3120, 2190, 1620, 300)};
  One<TextBox> Text26       {Frame13, "Text26", "0", at(4800, 2190, 640, 300)};
  One<Label>   Label49      {Frame13, "Label49", "RF R Counter:", at(3120, 2580, 1620, 300)};
  One<TextBox> Text27       {Frame13, "Text27", "1", at(4800, 2580, 640, 300)};
  Array<OptionButton> Option6{"Option6", {
      {0, Frame23, "Lowest Spur", at(180, 390, 2200, 270)},
      {1, Frame23, "Low Noise and Spur", at(180, 700, 2200, 270), {selected}},
      {2, Frame23, "Lowest Noise", at(180, 1010, 2200, 270)},
    }};
  One<Label>   Label17      {Frame13, "Label17", "X", at(9080, 90, 300, 270), clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------------------------ Frame16: the panel of the LMX and ADF4118
  Array<OptionButton> Option7{"Option7", {
      {0, Frame16, "CP Gain=0 (250 micro Amp)", at(240, 480, 4200, 300)},
      {1, Frame16, "CP Gain=1 (1mAmp)", at(240, 900, 4200, 300), {selected}},
    }, click(this, &PllForm1::Option7_Click)};
  One<CheckBox> Check1      {Frame16, "Check1", "Polarity Positive", at(240, 1320, 4200, 300), selected, click(this, &PllForm1::Check1_Click)};
  One<CommandButton> Command10{Frame16, "Command10", "X", at(4980, 1440, 420, 330), tip("Close"), click(this, &PllForm1::Label17_Click)};
  One<Label>   Label20      {Frame16, "Label20", "X", at(5220, 90, 300, 270), clickable, click(this, &PllForm1::Label17_Click)};

  // ------------------------------------------------------------------------------- Frame17: the panel of the ADF4193
  Array<Label> Label61{"Label61", {  // the prompt of the list of the same index
      { 0, Frame17, "CP ADJ:", at(300, 630, 1900, 280)},
      { 1, Frame17, "Ref/2:", at(300, 945, 1900, 280)},
      { 2, Frame17, "CPO GND:", at(4560, 630, 1740, 280)},
      { 3, Frame17, "PFD Polarity:", at(4560, 945, 1740, 280)},
      { 4, Frame17, "Timer Select:", at(300, 2805, 1900, 280)},
      { 5, Frame17, "PD DIFF AMP:", at(4560, 1560, 1740, 280)},
      { 6, Frame17, "PD Charge Pump:", at(4560, 1875, 1740, 280)},
      { 7, Frame17, "CP 3-State", at(4560, 2190, 1740, 280)},
      { 8, Frame17, "Counter Reset:", at(4560, 2505, 1740, 280)},
      { 9, Frame17, "Sigma-Delta & Lock Detect Modes:", at(4560, 3110, 1740, 340)},
      {10, Frame17, "MUX OUT:", at(4560, 3480, 1740, 280)},
    }};
  Array<DropList> Combo10{"Combo10", {
      { 0, Frame17, "", at(2280, 630, 1860, 280), {items({"Nominal", "Adjusted"})}},
      { 1, Frame17, "", at(2280, 945, 1860, 280), {items({"Disable", "Enable"})}},
      { 2, Frame17, "", at(6360, 630, 2460, 280), {items({"CPO GND", "Normal"})}},
      { 3, Frame17, "", at(6360, 945, 2460, 280), {items({"Negative", "Positive"})}},
      { 4, Frame17, "", at(2280, 2805, 1860, 280), {items({"SW1/SW2", "SW3", "ICP", "Not Used"})}},
      { 5, Frame17, "", at(6360, 1560, 2460, 280), {items({"Disabled", "Enabled"})}},
      { 6, Frame17, "", at(6360, 1875, 2460, 280), {items({"Disabled", "Enabled"})}},
      { 7, Frame17, "", at(6360, 2190, 2460, 280), {items({"Normal Operation", "3-State Enabled"})}},
      { 8, Frame17, "", at(6360, 2505, 2460, 280), {items({"Normal Operation", "Counter Reset"})}},
      { 9, Frame17, "", at(6360, 3140, 2460, 280), {items({"Init State,Dither Off, 3ns", "Dither On", "10ns Lock Detect Threshhold"})}},
      {10, Frame17, "", at(6360, 3480, 2460, 280), {items({"3-State", "Digital Lock Detect", "N Divider Output", "Logic High", "R Counter",
                                    "Serial Data Out", "Logic Low", "R Divider/2 Output", "N Divider/2 Output",
                                    "ICP Timeout Signal", "SW1/2 Timeout Signal", "SW3 Timeout Signal"})}},
    }};
  One<CheckBox> Check16     {Frame17, "Check16", "Doubler Enable", at(2280, 1260, 1900, 280)};
  Array<Label> Label62{"Label62", {  // prompts and limits of the fields of Frame17, prompts of two file names
      {0, Frame17, "RF R Counter Divide Ratio:", at(300, 1575, 1920, 280)},
      {1, Frame17, "(value: 1 to 15)", at(2900, 1575, 1340, 280)},
      {2, Frame17, "Phase Value:", at(300, 2190, 1920, 280)},
      {3, Frame17, "(value: 0 to MOD)", at(2900, 2190, 1340, 280)},
      {4, Frame17, "Time Out Counter:", at(300, 3120, 1920, 280)},
      {5, Frame17, "(value: 0 to 511)", at(2900, 3120, 1340, 280)},
      {7, Frame11, "Current Set 2 from File:", at(4440, 1620, 2400, 300)},
      {9, Frame24, "chrg pump from File:", at(3360, 2250, 1620, 300)},
    }};
  Array<TextBox> Text36{"Text36", {
      {0, Frame17, "1", at(2280, 1575, 560, 280)},
      {1, Frame17, "0", at(2280, 2190, 560, 280)},
      {2, Frame17, "0", at(2280, 3120, 560, 280)},
    }};
  One<Line>    Line1        {Frame17, "Line1", "", at(4330, 420, 20, 3340)};
  One<Label>   Label22      {Frame17, "Label22", "X", at(8580, 90, 300, 270), clickable, click(this, &PllForm1::Label17_Click)};

  // -------------------------------------------------------------------------- Frame24: the panel of the SKY72300-362
  Array<Label> Label69{"Label69", {
      {2, Frame24, "Main: Ref Div Value (1 to 32):", at(180, 420, 2220, 280)},
      {3, Frame24, "Aux: Ref Div Value (1 to 32):", at(180, 760, 2220, 280)},
      {4, Frame24, "Main: chrg pump  (0 to 31):", at(180, 1100, 2220, 280)},
      {5, Frame24, "Aux: chrg pump     (0 to 31):", at(180, 1440, 2220, 280)},
      {6, Frame24, "Power Down & Multiplxer Output Register:", at(3360, 400, 4800, 230)},
      {7, Frame24, "Modulation Control Register:", at(3360, 1000, 4800, 230)},
      {8, Frame24, "Modulation Data Bits:", at(3360, 1600, 4800, 230)},
    }};
  Array<TextBox> Text46{"Text46", {
      {0, Frame24, "1", at(2460, 420, 560, 280)},
      {1, Frame24, "1", at(2460, 760, 560, 280)},
      {2, Frame24, "31", at(2460, 1100, 560, 280)},
      {3, Frame24, "31", at(2460, 1440, 560, 280)},
    }};
  One<Label>   Label70      {Frame24, "Label70", "Main: PS/Lock Detect", at(180, 1850, 2100, 310), clickable, tip("click to change"), click(this, &PllForm1::Label70_Click)};
  One<Label>   Label71      {Frame24, "Label71", "Aux: PS/Lock Detect", at(180, 2230, 2100, 310), clickable, tip("click to change"), click(this, &PllForm1::Label71_Click)};
  One<TextBox> Text47       {Frame24, "Text47", "", at(5040, 2250, 4500, 300)};
  One<CommandButton> Command18{Frame24, "Command18", "Browse", at(9660, 2220, 1200, 360), click(this, &PllForm1::Command18_Click)};
  Array<Label> Label72{"Label72", {  // the address bits in front of the three rows
      { 0, Frame24, "0", at(3360, 630, 340, 310)},
      { 1, Frame24, "1", at(3740, 630, 340, 310)},
      { 2, Frame24, "1", at(4120, 630, 340, 310)},
      { 3, Frame24, "1", at(4500, 630, 340, 310)},
      { 4, Frame24, "X", at(4880, 630, 340, 310)},
      { 5, Frame24, "X", at(5260, 630, 340, 310)},
      { 6, Frame24, "1", at(3360, 1230, 340, 310)},
      { 7, Frame24, "0", at(3740, 1230, 340, 310)},
      { 8, Frame24, "0", at(4120, 1230, 340, 310)},
      { 9, Frame24, "0", at(4500, 1230, 340, 310)},
      {10, Frame24, "X", at(4880, 1230, 340, 310)},
      {11, Frame24, "X", at(5260, 1230, 340, 310)},
      {12, Frame24, "1", at(3360, 1830, 340, 310)},
      {13, Frame24, "0", at(3740, 1830, 340, 310)},
      {14, Frame24, "0", at(4120, 1830, 340, 310)},
      {15, Frame24, "1", at(4500, 1830, 340, 310)},
    }, fixedBit};
  Array<Label> Label73{"Label73", {
      {9, Frame24, "0", at(5640, 630, 340, 310), {tip("0=MuxOut pin enabled 1=Mux out pin is tri-stated.")}},
      {8, Frame24, "0", at(6020, 630, 340, 310)},
      {7, Frame24, "0", at(6400, 630, 340, 310)},
      {6, Frame24, "0", at(6780, 630, 340, 310)},
      {5, Frame24, "0", at(7160, 630, 340, 310), {tip("0=Aux:Fractional-N 1=Aux:Integer-N")}},
      {4, Frame24, "1", at(7540, 630, 340, 310), {tip("0=AuxlPowerUp 1=AuxPowerDn")}},
      {3, Frame24, "0", at(7920, 630, 340, 310), {tip("0=Main: 18 Bit 1=Main: 10 Bit")}},
      {2, Frame24, "0", at(8300, 630, 340, 310), {tip("0=Main:Fractional-N 1=Main:Integer-N")}},
      {1, Frame24, "0", at(8680, 630, 340, 310), {tip("0=MainlPowerUp 1=MainPowerDn")}},
      {0, Frame24, "0", at(9060, 630, 340, 310), {tip("0=FullPowerUp 1=FullPowerDn")}},
    }, bit, click(this, &PllForm1::Label73_Click)};
  Array<Label> Label74{"Label74", {
      {9, Frame24, "0", at(5640, 1230, 340, 310), {bit}},
      {8, Frame24, "0", at(6020, 1230, 340, 310), {bit}},
      {7, Frame24, "0", at(6400, 1230, 340, 310), {bit}},
      {6, Frame24, "0", at(6780, 1230, 340, 310), {bit}},
      {5, Frame24, "0", at(7160, 1230, 340, 310), {bit}},
      {4, Frame24, "0", at(7540, 1230, 340, 310), {bit}},
      {3, Frame24, "0", at(7920, 1230, 340, 310), {fixedBit}},
      {2, Frame24, "0", at(8300, 1230, 340, 310), {fixedBit}},
      {1, Frame24, "0", at(8680, 1230, 340, 310), {fixedBit}},
      {0, Frame24, "0", at(9060, 1230, 340, 310), {fixedBit}},
    }, click(this, &PllForm1::Label74_Click)};
  Array<Label> Label75{"Label75", Frame24, "000000000000", 11, -1, at(4880, 1830, 340, 310), 380, bit, click(this, &PllForm1::Label75_Click)};
  One<Label>   Label76      {Frame24, "Label76", "X", at(10880, 90, 300, 270), clickable, tip("Close"), click(this, &PllForm1::Label76_Click)};
  // clang-format on

  // ---------------------------------------------------------------------------------------- The other forms
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
  void showModelControls(const ChipType& chip);
  void showADF4193Controls();
  // Panels.
  void openPanel(ChipPanel panel);
  void togglePanel(Frame& panel, Twips place);
  void hidePanels();
  void offerPrescalers(const std::vector<std::string>& items);
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
  struct Pace {
    double step;    // kHz
    Integer delay;  // ms
  };
  [[nodiscard]] Pace readPace() const;
  void runAutoSweep(double SweepFreq, double SweepStop, double SweepStep, Integer SweepDelay);
  void showSweepFrequency();
  void stepTo(double frequency);
  void showStepControls(bool stepMode);

  Module1& module_;
};

}  // namespace tessarine
