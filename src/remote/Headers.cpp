// The table of all headers. docs/remote.md has the same rows.
#include "remote/Actions.h"
#include "remote/Commands.h"

namespace tessarine::remote {
namespace {

constexpr int kMHz = 6;
constexpr int kKHz = 3;
constexpr int kMs = -3;

constexpr Field kReference{"RefText", kMHz};
constexpr Field kStep{"CompText", kKHz};
constexpr Field kFrequency{"VCOText", kMHz, Mode::general};
constexpr Field kHopFrequency1{"VcoText1", kMHz, Mode::hop};
constexpr Field kHopFrequency2{"VcoText2", kMHz, Mode::hop};
constexpr Field kHopCount{"HopText", 0, Mode::hop, true};
constexpr Field kHopDelay{"DelayText", kMs, Mode::hop, true};
constexpr Field kSweepStart{"StartText1", kMHz, Mode::sweep};
constexpr Field kSweepStop{"StopText1", kMHz, Mode::sweep};
constexpr Field kSweepStep{"StepText1", kKHz, Mode::sweep};
constexpr Field kSweepDelay{"DelaySweepText1", kMs, Mode::sweep, true};

constexpr bool kAnywhere = true;

}  // namespace

const std::vector<Header>& headers() {
  using enum Takes;
  static const std::vector<Header> table = {
      {"*IDN?", identify, {}, nullptr, kAnywhere},
      {"*CLS", clearStatus, {}, nullptr, kAnywhere},
      {"*ESE", enableEvents, {byte}, nullptr, kAnywhere},
      {"*ESE?", tellEventsEnabled, {}, nullptr, kAnywhere},
      {"*ESR?", tellEvents, {}, nullptr, kAnywhere},
      {"*OPC", complete, {}, nullptr, kAnywhere},
      {"*OPC?", tellComplete, {}, nullptr, kAnywhere},
      {"*RST", reset, {}, nullptr, kAnywhere},
      {"*SRE", enableRequests, {byte}, nullptr, kAnywhere},
      {"*SRE?", tellRequestsEnabled, {}, nullptr, kAnywhere},
      {"*STB?", tellStatusByte, {}, nullptr, kAnywhere},
      {"*TST?", tellSelfTest, {}, nullptr, kAnywhere},
      {"*WAI", awaitCompletion, {}, nullptr, kAnywhere},

      {"SYSTem:ERRor[:NEXT]?", tellError, {}, nullptr, kAnywhere},
      {"SYSTem:ERRor:COUNt?", tellErrorCount, {}, nullptr, kAnywhere},
      {"SYSTem:VERSion?", tellVersion, {}, nullptr, kAnywhere},
      {"SYSTem:PORT", choosePort, {port}, nullptr, kAnywhere},
      {"SYSTem:PORT?", tellPort, {}, nullptr, kAnywhere},

      {"MODel", pickModel, {text}},
      {"MODel?", tellModel},
      {"MODel:CATalog?", listModels},
      {"REFerence", setField, {frequency}, &kReference},
      {"REFerence?", tellField, {}, &kReference},
      {"STEP", setField, {frequency}, &kStep},
      {"STEP?", tellField, {}, &kStep},
      {"FREQuency", setField, {frequency}, &kFrequency},
      {"FREQuency?", tellField, {}, &kFrequency},
      {"PREScaler", setPrescaler, {text}},
      {"PREScaler?", tellPrescaler},
      {"LOAD", load},
      {"FREQuency:ACTual?", tellOutput},
      {"LOCK?", tellLock},
      {"REGister:CATalog?", listRegisters},
      {"REGister?", tellRegister, {name}},
      {"LOAD:INITialize", initialize},

      {"HOP:FREQuency1", setField, {frequency}, &kHopFrequency1},
      {"HOP:FREQuency1?", tellField, {}, &kHopFrequency1},
      {"HOP:FREQuency2", setField, {frequency}, &kHopFrequency2},
      {"HOP:FREQuency2?", tellField, {}, &kHopFrequency2},
      {"HOP:COUNt", setField, {count}, &kHopCount},
      {"HOP:COUNt?", tellField, {}, &kHopCount},
      {"HOP:DELay", setField, {time}, &kHopDelay},
      {"HOP:DELay?", tellField, {}, &kHopDelay},
      {"HOP:INITiate", startHop},
      {"HOP:ABORt", stopHop},
      {"HOP:STATe?", tellHop},

      {"SWEep:FREQuency:STARt", setField, {frequency}, &kSweepStart},
      {"SWEep:FREQuency:STARt?", tellField, {}, &kSweepStart},
      {"SWEep:FREQuency:STOP", setField, {frequency}, &kSweepStop},
      {"SWEep:FREQuency:STOP?", tellField, {}, &kSweepStop},
      {"SWEep:STEP", setField, {frequency}, &kSweepStep},
      {"SWEep:STEP?", tellField, {}, &kSweepStep},
      {"SWEep:MODE", setSweepMode, {sweepMode}},
      {"SWEep:MODE?", tellSweepMode},
      {"SWEep:DELay", setField, {time}, &kSweepDelay},
      {"SWEep:DELay?", tellField, {}, &kSweepDelay},
      {"SWEep:INITiate", startSweep},
      {"SWEep:ABORt", stopSweep},
      {"SWEep:NEXT", stepUp},
      {"SWEep:PREVious", stepDown},
      {"SWEep:STATe?", tellSweep},

      {"SETup:FRACtional", setFractionalFile, {text}},
      {"SETup:FRACtional?", tellFractionalFile},
      {"SETup:BAND", setBandFile, {text}},
      {"SETup:BAND?", tellBandFile},

      {"CONTrol:SET", setControl, {name, text}, nullptr, kAnywhere},
      {"CONTrol:CLICk", clickControl, {name}, nullptr, kAnywhere},
      {"CONTrol:VALue?", tellValue, {name}, nullptr, kAnywhere},
      {"CONTrol:VISible?", tellVisible, {name}, nullptr, kAnywhere},
      {"CONTrol:CATalog?", listControls, {}, nullptr, kAnywhere},
  };
  return table;
}

}  // namespace tessarine::remote
