// The chips that the program drives, a row each: how their words come about, in what order they go out, and
// what the window shows of them. Whoever treats chips differently asks this table.
#pragma once

#include <span>
#include <string_view>

namespace tessarine {

class PLL;

// The words of a family of chips.
struct ChipFamily {
  // From the frequencies as they stand, by way of the dividers NTotal, BCount and ACount where `dual`; null:
  // there are none to calculate.
  void (*calculate)(PLL& pll) = nullptr;
  bool dual = false;
  // In the chip's order; null: nothing goes out behind a calculation.
  void (*send)(PLL& pll, bool onlyChanged) = nullptr;
  // The words of the load before go out, and those of this one are calculated behind them.
  bool sentBeforeCalculated = false;
  // Stands in place of all that, for what is no synthesizer chip.
  void (*load)(PLL& pll) = nullptr;
};

enum class ChipPanel { none, ADF4113, LMX, ADF4252, ADF4153, ADF4193, SKY72300 };

// The rows of words in the window: F, R and N; R0 to R3; or ten of them.
enum class WordRows { three, four, ten };

struct ChipType {
  std::string_view menuName;  // empty: the menu does not offer it
  std::string_view name;      // by which the engine drives it
  const ChipFamily* family = nullptr;
  bool gainFromPanel = false;  // GoBit is chosen there; elsewhere it follows from the modulus
  std::span<const std::string_view> prescalers;  // that the window offers; empty: it leaves its list alone
  WordRows rows = WordRows::three;
  ChipPanel panel = ChipPanel::none;
  bool panelCloses = true;  // "Advanced" becomes "Close" while it is open

  [[nodiscard]] static std::span<const ChipType> all();
  // By the engine's name, or by the menu's; null for a name that no chip has.
  [[nodiscard]] static const ChipType* named(std::string_view name);
  [[nodiscard]] static const ChipType* inMenu(std::string_view menuName);
};

}  // namespace tessarine
