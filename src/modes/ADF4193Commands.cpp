// The three commands that the ADF4193 has in place of the general ones.
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "window/PllForm1.h"

namespace tessarine {

void PllForm1::Command14_Click(int Index) {
  if (leadingNumber(VCOText.Text.get()) > 0) {
    PLL& pll = module_.ThePLL();
    pll.Model = "ADF4193";
    readFrequencies();
    FracRegister();
    if (Index == 0) {
      pll.SetPLL(true);
    } else if (Index == 1) {
      pll.Calculate_ADF_4193();
      pll.PowerUpInit();
    } else {
      pll.Calculate_ADF_4193();
      pll.LoadR2();
    }
  }
  readLockDetect();
}

// One calculation and one power-up before a hop or a sweep.
void PllForm1::startADF4193() {
  PLL& pll = module_.ThePLL();
  pll.Model = "ADF4193";
  pll.Calculate_ADF_4193();
  pll.PowerUpInit();
}

}  // namespace tessarine
