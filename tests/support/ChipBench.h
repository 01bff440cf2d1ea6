// An engine whose panels stand ready for any chip.
#pragma once

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "support/EngineBench.h"
#include "support/PLLProbe.h"
#include "support/Words.h"

namespace tessarine {

struct ChipBench : EngineBench {
  // From 10 MHz in steps of 200 kHz.
  explicit ChipBench(const String& model, double Fvco = 900, Integer PreScalar = 8) {
    module.CurrentModel = model;
    pll.Fvco = Fvco, pll.Fosc = 10, pll.Fcomp = 200, pll.PreScalar = PreScalar;
    pll.CPGain = pll.FuncInit = pll.LDPrecision = "0";
    pll.GoBit = "1";
    pll.FAnalogDevice = "00100100000001110000";
    pll.RF_R_Counter = "1", pll.RFRefDoubler = "0";
    pll.RFcontrolREG = "0100000101100000", pll.MasterReg = "11000000011";
    pll.RCounter_4531 = pll.RFPDPolarityPositive_4531 = 1;
    pll.MuxOut_4531 = "001", pll.CPCurrentSetting_4531 = "0111";
    pll.R1_CP = pll.R1_REF2 = pll.R1_DoublerEnable = "0";
    pll.R1_RFCounter = "0001";
    pll.R2_PhaseValue = "000000000000";
    pll.R3_CPO = "0", pll.R3_PFD = "1";
    pll.R4_TimerSelect = "00", pll.R4_TimerSelect_2 = "01", pll.R4_TimerSelect_3 = "10";
    pll.R4_TimeOutCounter = pll.R4_TimeOutCounter_2 = "000000000", pll.R4_TimeOutCounter_3 = "111111111";
    pll.R5_PDDiffAmp = "00", pll.R5_PDChargePump = pll.R5_CP3State = pll.R5_CounterReset = "0";
    pll.R6_SigmaDelte = "0000", pll.R6_MuxOut = "0001";
    pll.Main_RefDiv = 1, pll.Aux_RefDiv = 3;
    pll.Main_ChrgPump = 10, pll.Aux_ChrgPump = 5;
    pll.Main_LDEnable = "0", pll.Aux_LDEnable = "1";
    pll.MultiplexerReg = "0000000001";
    pll.ModulationControlReg = "1000000000", pll.ModulationDataReg = "110000000011";
    pll.StartFreq = 1000, pll.StopFreq = 2000, pll.StepSize = 1000, pll.RefFreq = 10;
    pll.Channel = 7;
  }

  // The rows of a band file: low, high, code as the file has it.
  using Bands = std::vector<std::tuple<Single, Single, String>>;
  void useBands(const Bands& rows) {
    pll.SetupFile_ADF4113 = "bands.txt";
    for (auto [low, high, code] : rows) {
      PLL::UpsideSTR(code);
      PLLProbe::bandLow(pll).push_back(low);
      PLLProbe::bandHigh(pll).push_back(high);
      PLLProbe::bandCode(pll).push_back(code);
      ++pll.Setup_ADF4113_NoOfCurrentSet2;
    }
  }
  // A fractional setup file: MOD 130 of 26 MHz, and a phase for FRAC = 26 alone.
  void useFracFile() {
    pll.SetupFileName = "board.txt";
    pll.PFDFromFile = 26, pll.ModFromFile = 130, pll.PreScalarFromFile = 4;
    pll.ICPFromFile = 7, pll.SW12FromFile = 2, pll.SW3FromFile = 515;
    PLLProbe::phaseTable(pll).assign(131, 0);
    PLLProbe::phaseTable(pll)[26] = 1234;
  }

  void calculate() { EXPECT_TRUE(PLLProbe::calcRegisters(pll)); }

  [[nodiscard]] Words numbered() const {
    return {pll.R0, pll.r1, pll.R2, pll.R3, pll.R4, pll.R5, pll.R6, pll.R7, pll.R8, pll.R9};
  }
  [[nodiscard]] Words lettered() const { return {pll.Nstr, pll.Rstr, pll.MStr, pll.FStr}; }
};

}  // namespace tessarine
