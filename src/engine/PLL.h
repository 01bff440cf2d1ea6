// The synthesizer engine: one object that holds all chip state, turns frequencies into register words and
// clocks them into the chip. Its operations live with their subjects: engine/ (state, dividers, the load),
// chips/ (the words of each family), transport/ (bits on the wire) and setup/ (the two file formats).
//
// A register word is a text of "0" and "1". In natural order the most significant bit stands first; in
// shifting order bit 0 stands first. Words go out last character first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/BandTable.h"
#include "engine/Types.h"

namespace tessarine {

struct ChipType;
struct Module1;

class PLL {
 public:
  // FAnalogDevice begins at DB2: the current setting 2, DB18 to DB20, stands before its last bit.
  static constexpr std::size_t kCurrentSet2Place = 16;
  static constexpr std::size_t kCurrentSet2Width = 3;

  explicit PLL(Module1& module);

  // Identity and wiring.
  String Model;         // the chip as PowerUpInit sees it; not the menu's model
  Integer DATAbit = 0;  // masks of the lines in the port byte
  Integer LEbit = 0;
  Integer CLOCKbit = 0;

  // Frequencies and prescaler.
  Double Fvco = 0;        // MHz
  Double Fosc = 0;        // MHz
  Double Fcomp = 0;       // kHz
  Integer PreScalar = 0;  // the modulus P

  // Control text of the integer-N and dual chips.
  String GoBit;
  String LDPrecision;
  String CPGain;
  String FAnalogDevice;
  String PanelCurrentSet2;  // of FAnalogDevice as the panel has it: a band file replaces it there
  String RFcontrolREG;
  String MasterReg;
  String RFRefDoubler;
  String RF_R_Counter;
  String FuncInit;

  Single DelayAfterLock = 0;  // seconds to wait after a load

  // Words and fields of the integer-N and fractional chips, in shifting order.
  String Astr;
  String Bstr;
  String Nstr;
  String Rstr;
  String FStr;
  String MStr;

  // Values of the UMC module: MHz, MHz, MHz, kHz.
  Single StartFreq = 0;
  Single StopFreq = 0;
  Single RefFreq = 0;
  Single StepSize = 0;
  Integer Channel = 0;
  bool CalcChannel = false;

  // The panel of the ADF4153 and ADF4156.
  Integer Normal_LCD_Mode_4531 = 0;
  Integer FastLock_4531 = 0;
  Integer LoadControlEnabled_4531 = 0;
  Integer DoublerEnabled_4531 = 0;
  Integer CounterResetEnabled_4531 = 0;
  Integer CP3StateON_4531 = 0;
  Integer RFPowerDownEnabled_4531 = 0;
  Integer RFPDPolarityPositive_4531 = 0;
  Integer Resync_4531 = 0;
  Integer NoiseSpurMode_4531 = 0;
  Integer RCounter_4531 = 0;
  String CPCurrentSetting_4531;
  String MuxOut_4531;

  // Values of the fractional setup file.
  Integer ModFromFile = 0;
  Integer PreScalarFromFile = 0;
  Integer ICPFromFile = 0;
  Integer SW12FromFile = 0;
  Integer SW3FromFile = 0;
  Single PFDFromFile = 0;  // MHz

  // Numbered words of the ADF4193 (shifting order) and the SKY72300-362 (natural order).
  String R0;
  String r1;
  String R2;
  String R3;
  String R4;
  String R5;
  String R6;
  String R7;
  String R4_2;  // second and third value of register 4; empty: not in use
  String R4_3;
  String R8;
  String R9;
  String Current_R4;  // as last sent to the ADF4193
  String Current_R5;
  String Current_R6;
  String Current_R4_2;
  String Current_R4_3;

  // The panel of the ADF4193, in natural order.
  String R1_CP;
  String R1_REF2;
  String R1_DoublerEnable;
  String R1_RFCounter;
  String R2_PhaseValue;
  String R3_CPO;
  String R3_PFD;
  String R4_TimerSelect;
  String R4_TimeOutCounter;
  String R4_TimerSelect_2;
  String R4_TimeOutCounter_2;
  String R4_TimerSelect_3;
  String R4_TimeOutCounter_3;
  String R5_PDDiffAmp;
  String R5_PDChargePump;
  String R5_CP3State;
  String R5_CounterReset;
  String R6_SigmaDelte;
  String R6_MuxOut;

  // Setup files.
  String SetupFileName;
  String SetupText;
  String SetupFile_ADF4113;
  String SetupText_ADF4113;
  Integer Setup_ADF4113_NoOfCurrentSet2 = 0;
  String SetupFile_SKY72300;  // bands of charge-pump values; empty: those of SetupFile_ADF4113 count

  // The panel of the SKY72300-362.
  Integer Main_RefDiv = 0;
  Integer Aux_RefDiv = 0;
  Integer Main_ChrgPump = 0;
  Integer Aux_ChrgPump = 0;
  String Main_LDEnable;
  String Aux_LDEnable;
  String MultiplexerReg;
  String ModulationControlReg;
  String ModulationDataReg;

  // Part of the class for whoever holds one; the program itself has no use for them.
  Integer DataAddress = 0;
  Integer LEAddress = 0;
  Integer ClockAddress = 0;
  bool PhasePolarity = false;
  Single SwitchTimeTol = 0;
  Single SwitchTimeRefValue = 0;

  // Operations.
  void PowerUpInit_ADF4193();
  void UpdateSetup_Frac();
  void PowerUpInit();
  void Calculate_ADF_4193();
  [[nodiscard]] Integer PhasePerFrac(const Integer& Frac);
  [[nodiscard]] static Integer BinToInt(const String& str1);
  // Binary digits of Num1, most significant first. A positive Num1 is consumed: it is 0 afterwards.
  [[nodiscard]] static String IntToBin(Integer& Num1);
  [[nodiscard]] static String LongToBin(std::int32_t Num1);
  void LoadR2();
  static void MakeLCD(Integer& Fruc1, Integer& Mod1);
  static void MakeLCD_Orvel(Integer& Fruc1, Integer& Mod1);
  void Send32BitReg(const String& Reg1);
  void Set_UMC();
  // Calculates and loads. With CheckCurrentRegValue an ADF4193 gets only the registers that have changed.
  void SetPLL(bool CheckCurrentRegValue = false);
  static void UpsideSTR(String& str1);
  void Set_PE3342();
  void UpdateSetup_ADF4113();
  void UpdateSetup_Frac_old();
  void UpdateSetup_SKY72300();

 private:
  friend struct ChipType;  // whose table names the steps of each chip
  friend struct PLLProbe;  // tests and benchmarks look at single steps through it
  class TurnedWords;

  // engine/
  [[nodiscard]] const ChipType* chip();  // of the model chosen now; null for none
  bool CalcRegisters();                  // false: no prescaler, all words stand as they were
  void splitTotal();
  void setControlBits(const ChipType* type);
  void sendSKYWords(TurnedWords& turned);
  void sendThreeWords();
  void loadADF4193(bool onlyChanged);

  // chips/
  void CalcADFWords();
  [[nodiscard]] String currentSetting2() const;
  void CalcLMXWords();
  void CalcLMX2315Words();
  void CalcADF4252();
  void CalcADF4153();
  void calcADF4153Words();
  void buildTimerWords(bool fromFile);
  void CalcSKY72300();
  void send32Bits(String word);
  [[nodiscard]] static String SetupCurrentBits(const String& Text);
  static void GreatestDivisor(Integer& A, Integer& B, Integer& Result);

  // transport/
  void ShiftOut(const String& Word);
  void LoadFstr();
  void LoadMstr();
  void LoadRstr();
  void LoadNstr();
  void LoadR0();
  void LoadR1();
  void LoadR3();
  void LoadR4(const Integer& Index);
  void LoadR5();
  void LoadR6();
  void LoadR7();
  void LoadR8();
  void LoadR9();
  void loadNumbered(const String& Word);
  void standardStrobe();
  void fixedStrobe();

  // setup/
  void readFracSetup(bool withKeys);
  void takeFracSetup(std::string_view text, bool withKeys);
  void takeBandSetup(std::string_view text);

  BandTable CurrentSet2;            // of SetupFile_ADF4113
  BandTable ChrgPumpBands;          // of SetupFile_SKY72300
  std::vector<Integer> PhaseTable;  // phase per FRAC, with one spare element behind the last line

  // Working numbers of the divider calculation.
  Double NTotal = 0;
  Double RTotal = 0;
  Double BCount = 0;
  Double ACount = 0;

  // As last sent to the ADF4193.
  String Prev_R0;
  String Prev_r1;
  String Prev_R2;
  String Prev_R3;

  const ChipType* chip_ = nullptr;  // that was asked for last
  Module1& module_;
};

}  // namespace tessarine
