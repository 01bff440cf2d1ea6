#include "engine/ChipType.h"

#include <algorithm>

#include "engine/PLL.h"

namespace tessarine {

std::span<const ChipType> ChipType::all() {
  using Words = void (*)(PLL&);
  using Send = void (*)(PLL&, bool);
  constexpr Send threeWords = [](PLL& pll, bool) { pll.sendThreeWords(); };
  constexpr Send fourWords = [](PLL& pll, bool) {
    pll.LoadMstr();
    pll.sendThreeWords();
  };
  constexpr Words adf = [](PLL& pll) { pll.CalcADFWords(); };
  constexpr Words lmx = [](PLL& pll) { pll.CalcLMXWords(); };
  constexpr Words lmx2315 = [](PLL& pll) { pll.CalcLMX2315Words(); };
  constexpr Words adf425x = [](PLL& pll) { pll.CalcADF4252(); };
  constexpr Words adf4153 = [](PLL& pll) { pll.CalcADF4153(); };
  constexpr Words adf4193 = [](PLL& pll) { pll.Calculate_ADF_4193(); };
  constexpr Words sky = [](PLL& pll) { pll.CalcSKY72300(); };
  constexpr Words umc = [](PLL& pll) { pll.Set_UMC(); };
  constexpr Send adf4193Words = [](PLL& pll, bool onlyChanged) { pll.loadADF4193(onlyChanged); };

  static constexpr ChipFamily kADF{.calculate = adf, .dual = true, .send = threeWords};
  static constexpr ChipFamily kLMX{.calculate = lmx, .dual = true, .send = threeWords};
  static constexpr ChipFamily kLMX2315{.calculate = lmx2315, .dual = true, .send = threeWords};
  static constexpr ChipFamily kADF4252{.calculate = adf425x, .send = fourWords};
  static constexpr ChipFamily kADF4153{.calculate = adf4153, .send = fourWords};
  static constexpr ChipFamily kADF4193{.calculate = adf4193, .send = adf4193Words};
  static constexpr ChipFamily kSKY{.calculate = sky, .sentBeforeCalculated = true};
  static constexpr ChipFamily kUMC{.load = umc};

  static constexpr std::string_view k32[] = {"32/33"};
  static constexpr std::string_view k8to64[] = {"8/9", "16/17", "32/33", "64/65"};
  static constexpr std::string_view k4and8[] = {"4/5", "8/9"};

  using P = ChipPanel;
  constexpr auto three = WordRows::three;
  constexpr auto four = WordRows::four;
  constexpr auto ten = WordRows::ten;

  // clang-format off
  static constexpr ChipType types[] = {
      // in the menu     driven as       family     gain   prescalers  rows   panel        closes
      {"LMX2306",        "LMX2306",      &kLMX,     false, k32,        three, P::LMX,      false},
      {"LMX2316",        "LMX2316",      &kLMX,     true,  k32,        three, P::LMX,      false},
      {"LMX2326",        "LMX2326",      &kLMX,     true,  k32,        three, P::LMX,      false},
      {"ADF4106",        "ADF4113",      &kADF,     false, k8to64,     three, P::ADF4113},
      {"ADF4110",        "ADF4110",      &kADF,     false, k8to64,     three, P::ADF4113},
      {"ADF4111",        "ADF4111",      &kADF,     false, k8to64,     three, P::ADF4113},
      {"ADF4112",        "ADF4112",      &kADF,     false, k8to64,     three, P::ADF4113},
      {"ADF4113",        "ADF4113",      &kADF,     false, k8to64,     three, P::ADF4113},
      {"ADF4118",        "ADF4118",      &kLMX,     true,  {},         three, P::LMX},
      {"ADF4153",        "ADF4153",      &kADF4153, false, k4and8,     four,  P::ADF4153},
      {"ADF4156",        "ADF4156",      &kADF4153, false, k4and8,     four,  P::ADF4153},
      {"ADF4193",        "ADF4193",      &kADF4193, false, k4and8,     ten,   P::ADF4193},
      {"ADF4251",        "ADF4251",      &kADF4252, false, k4and8,     four,  P::ADF4252},
      {"ADF4252",        "ADF4252",      &kADF4252, false, k4and8,     four,  P::ADF4252},
      {"SKY72300-362",   "SKY72300-362", &kSKY,     false, {},         ten,   P::SKY72300},
      // For whoever holds the engine.
      {"",               "LMX2315",      &kLMX2315, false, {},         three, P::LMX,      false},
      {"",               "LMX2320",      &kLMX2315, false, {},         three, P::LMX,      false},
      {"",               "LMX2325",      &kLMX2315, false, {},         three, P::LMX,      false},
      {"",               "UMC",          &kUMC,     false, {},         three, P::none,     false},
  };
  // clang-format on
  return types;
}

const ChipType* ChipType::named(std::string_view name) {
  const auto found = std::ranges::find(all(), name, &ChipType::name);
  return found == all().end() ? nullptr : &*found;
}

const ChipType* ChipType::inMenu(std::string_view menuName) {
  if (menuName.empty()) return nullptr;
  const auto found = std::ranges::find(all(), menuName, &ChipType::menuName);
  return found == all().end() ? nullptr : &*found;
}

}  // namespace tessarine
