// The words of the ADF4110 to ADF4113: 24 bits, DB0 first, two control bits at the low end.
#include <string_view>

#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Platform.h"

namespace tessarine {
namespace {

std::string_view prescalerCode(Integer PreScalar) {
  switch (PreScalar) {
    case 8:
    case 9:
      return "00";
    case 16:
    case 17:
      return "10";
    case 64:
    case 65:
      return "11";
    default:  // 32, 33 and whatever the chip does not have
      return "01";
  }
}

bool isCurrentSetting(std::string_view code) {
  return code.size() == PLL::kCurrentSet2Width && code.find_first_not_of("01") == std::string_view::npos;
}

}  // namespace

// A band that holds the frequency and names no setting counts as none.
String PLL::currentSetting2() const {
  const String setting = CurrentSet2.settingAt(toSingle(Fvco));
  return setting.empty() ? CurrentSet2.firstSetting() : setting;
}

void PLL::CalcADFWords() {
  const String A = shiftingField("A", roundHalfUp(ACount), 6);
  const String B = shiftingField("B", BCount, 13);
  const String R = shiftingField("R", roundDown(RTotal), 14);
  // Nothing can be refused from here on.

  const bool fromFile = !SetupFile_ADF4113.empty() && module_.CurrentModel == "ADF4113";
  const String setting = fromFile ? currentSetting2() : String();
  const bool usable = isCurrentSetting(setting);
  // Without a usable one the panel's comes back, which the band before may have replaced.
  const String set2 = usable ? ReverseStr(setting) : PanelCurrentSet2;
  if (fromFile && !set2.empty() && !FAnalogDevice.empty()) {
    FAnalogDevice = joined({
        FAnalogDevice.substr(0, kCurrentSet2Place),
        set2,
        FAnalogDevice.substr(FAnalogDevice.size() - 1),
    });
  }

  Astr = A;
  Bstr = B;
  word(Rstr) = {
      "00",  // control
      R,
      "00000000",
  };
  word(Nstr) = {
      "10",    // control
      Astr,    // DB2-7
      Bstr,    // DB8-20
      CPGain,  // DB21
      "00",
  };
  word(FStr) = {
      FuncInit,  // control: function latch or initialisation latch
      "1",       // control
      FAnalogDevice,
      prescalerCode(PreScalar),
  };

  // Told at the end: while the box is open another command may run.
  if (fromFile && !usable) {
    module_.platform.screen.messageBox(
        joined({quoted(SetupFile_ADF4113, kLongestPath),
                " gives no current setting of three binary digits for ", messageNumber(Fvco), " MHz (",
                quoted(setting), "). The panel's Current Set2 is used."}),
        Icon::critical);
  }
}

}  // namespace tessarine
