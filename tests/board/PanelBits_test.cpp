// Each bit of each panel as the virtual board takes it: the field that it changes, and what it then means.
// Fields, meanings and ratings were typed from the panels' headings and the data sheets, not from the board's
// tables.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "board/BoardBench.h"
#include "board/NumberText.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "window/Program.h"

namespace tessarine::board {
namespace {

constexpr int kClick = -1;

struct PanelDesk : Hand {
  explicit PanelDesk(const std::string& chip) : Hand(program), model(chip) {
    host.host.version.reset();
    program.start();
    open();
    pick(model);
    bench.board().plug(model);
    tune("1800", "8/9", "40");
    click("ACommand");
    if (model == "ADF4193") click("Command14(1)");
    (void)changed();
    told = {};
  }
  // A pick of the item, or else a text of that number.
  void act(forms::Control& control, int item) {
    if (item == kClick) {
      (void)program.door.click(control);  // a fixed bit refuses
    } else if (program.door.pick(control, item)) {
      (void)program.door.set(control, std::to_string(item));  // a list refuses
    }
  }
  // The fields that a load changes. A name that was told last is not told again.
  std::string changed() {
    // Twice: one chip is one load late.
    for (int i = 0; i < 2; ++i) click(model == "ADF4193" ? "Command14(0)" : "AllCommand");
    std::string text;
    const Chip& chip = *bench.board().chip();
    for (std::size_t index = 0; index < chip.map().registers.size(); ++index) {
      const std::uint32_t word = chip.word(index).value_or(0);
      const std::uint32_t before = std::exchange(words[index], word);
      for (const Field& field : chip.map().registers[index].fields) {
        if (field.value(word) == field.value(before)) continue;
        if (!text.empty()) text += " and ";
        if (std::exchange(told, field.name) != field.name) text += std::string(field.name) + ' ';
        text += field.meanings.empty() ? std::to_string(field.value(word)) : std::string(field.meaning(word));
      }
    }
    return text;
  }

  std::string model;
  FakePlatform host;
  BoardBench bench;
  Platform platform{bench.port, bench.port, bench.port, host.host, host.clock, host.screen};
  Program program{platform};
  std::map<std::size_t, std::uint32_t> words;  // as they were at the load before
  std::string_view told;
};

const struct {
  const char *chip, *controls;  // one, or those of an array from the highest index down
  int item;                     // that is picked; kClick: each is clicked
  const char* fields;
} kRows[] = {
    {"ADF4113", "Label31", kClick,
     "counter reset on, power-down on, muxout three-state, N divider output, serial data output, detector "
     "polarity negative, CP three-state on, fastlock on, fastlock mode mode 2, timer 7 cycles, 15 cycles, 31 "
     "cycles, 63 cycles, current setting 1 4.375 mA, 3.125 mA, 0.625 mA, current setting 2 1.250 mA, 2.500 "
     "mA, 5.000 mA, power-down mode synchronous"},
    {"ADF4113", "Label33", kClick, "latch initialization"},
    {"ADF4113", "Option3", kClick, "CP gain current setting 2, current setting 1"},
    {"LMX2326", "Option7", kClick, "CP gain 1 mA, 0.25 mA"},
    {"LMX2326", "Check1", kClick, "detector polarity negative"},
    {"ADF4252", "MRLabel", kClick,
     "counter reset on, CP three-state on, power-down on, crystal oscillator disabled, muxout RF/IF digital "
     "lock detect, logic low, logic low, IF N divider output"},
    {"ADF4252", "CRLabel", kClick,
     "counter reset on, CP three-state on, power-down on, detector polarity negative, pump current 3.125 mA, "
     "0.625 mA"},
    {"ADF4252", "Option4", kClick,
     "noise and spur 1 1 and noise and spur 2 1 and noise and spur 3 1, noise and spur 2 0 and noise and "
     "spur 3 0, noise and spur 1 0"},
    {"ADF4252", "XLabel", kClick, "FRAC 200 and INT 22 and MOD 400 and reference doubler on"},
    {"ADF4252", "RText", 2, "INT 90 and MOD 100 and R 2"},
    {"ADF4153", "Label45", kClick, "pump current 2.50 mA, 1.25 mA, 0.63 mA, 0.31 mA"},
    {"ADF4153", "Label48", kClick, "muxout analog lock detect, logic low, fastlock switch"},
    {"ADF4153", "Check11", kClick,
     "detector polarity negative, power-down on, CP three-state on, counter reset on, FRAC 200 and INT 22 "
     "and MOD 400 and reference doubler on, load control on, fastlock on"},
    {"ADF4153", "Option6", kClick,
     "lowest noise on and noise and spur mode lowest noise, lowest noise off and noise and spur mode low "
     "noise and spur, lowest spur"},
    {"ADF4153", "LDPCheck", kClick, "lock detect precision 5 cycles"},
    {"ADF4153", "Text26", 15, "resync 15"},
    {"ADF4153", "Text27", 2, "INT 90 and MOD 100 and R 2"},
    {"ADF4193", "Combo10", 0,
     "muxout three-state, detector polarity negative, INT 90 and MOD 100 and reference halver off"},
    {"ADF4193", "Combo10", 1,
     "modulator and lock detect dither on, counter reset on, CP three-state on, CP power-down on, "
     "differential amplifier powered down, CP output normal, CP adjust adjusted"},
    {"ADF4193", "Combo10", 2,
     "muxout N divider output, modulator and lock detect 10 ns lock detect, time-out 7 and 7 and 0"},
    {"ADF4193", "Check16", kClick, "INT 90 and MOD 100 and reference doubler on"},
    {"ADF4193", "Text36", 1, "time-out 1 and 1, phase 1, INT 90 and MOD 100 and R 1"},
    {"SKY72300-362", "Label70", kClick, "lock detect pin power steering"},
    {"SKY72300-362", "Label71", kClick, "aux lock detect pin power steering"},
    {"SKY72300-362", "Label73", kClick,
     "mux pin three-state, mux select 4, 6, 7, aux divider mode integer-N, aux power-down off, fraction "
     "width 10 bits, divider mode integer-N, power-down on, full power-down on"},
    {"SKY72300-362", "Label74", kClick, "modulation control 32, 48, 56, 60, 62, 63"},
    {"SKY72300-362", "Label75", kClick,
     "modulation data 2048, 3072, 3584, 3840, 3968, 4032, 4064, 4080, 4088, 4092, 4094, 4095"},
    {"SKY72300-362", "Text46", 8,
     "aux pump current 8, pump current 8, N less 32 328 and reference division less 1 7"},
};

TEST(PanelBits, EachChangesItsFieldOnTheBoard) {
  for (const auto& row : kRows) {
    PanelDesk desk(row.chip);
    std::string fields;
    const auto flip = [&](const std::string& name) {
      forms::Control* const control = desk.program.forms.find(name);
      if (!control) return;
      desk.act(*control, row.item);
      const std::string changed = desk.changed();
      fields += (fields.empty() || changed.empty() ? "" : ", ") + changed;
    };
    flip(row.controls);
    for (int index = 19; index >= 0; --index) flip(row.controls + ('(' + std::to_string(index) + ')'));
    EXPECT_EQ(fields, row.fields) << row.chip << ' ' << row.controls;
  }
}

const struct {
  const char *chip, *reg, *field, *meanings;
  std::string_view unit = "";  // behind each
} kMeanings[] = {
    {"ADF4113", "R", "anti-backlash width", "2.9|1.3|6.0|2.9|", " ns"},
    {"ADF4113", "function", "current setting 1", "0.625|1.250|1.875|2.500|3.125|3.750|4.375|5.000|", " mA"},
    {"ADF4113", "function", "timer", "3|7|11|15|19|23|27|31|35|39|43|47|51|55|59|63|", " cycles"},
    {"ADF4113", "function", "prescaler", "8/9|16/17|32/33|64/65|"},
    {"LMX2326", "function", "muxout",
     "three-state|digital lock detect|N divider output|logic high|R divider output|open-drain lock "
     "detect|serial data output|logic low|"},
    {"LMX2315", "R", "prescaler", "128/129|64/65|"},
    {"LMX2325", "R", "prescaler", "64/65|32/33|"},
    {"ADF4252", "RF control", "pump current", "0.625|1.875|3.125|4.375|", " mA"},
    {"ADF4252", "master", "muxout",
     "logic low|IF analog lock detect|IF R divider output|IF N divider output|RF analog lock detect|RF/IF "
     "analog lock detect|IF digital lock detect|logic high|RF R divider output|RF N divider "
     "output|three-state|logic low|RF digital lock detect|RF/IF digital lock detect|logic high|logic low|"},
    {"ADF4153", "control", "pump current",
     "0.63|1.25|1.88|2.50|3.13|3.75|4.38|5.00|0.31|0.63|0.94|1.25|1.57|1.88|2.19|2.50|", " mA"},
    {"ADF4153", "R", "muxout",
     "three-state|digital lock detect|N divider output|logic high|R divider output|analog lock "
     "detect|fastlock switch|logic low|"},
    {"ADF4193", "R5", "differential amplifier", "in use|reserved|reserved|powered down|"},
    {"ADF4193", "R6", "muxout",
     "three-state|digital lock detect|N divider output|logic high|R counter output|serial data output|logic "
     "low|R divider/2 output|N divider/2 output|ICP time-out|SW1/SW2 time-out|SW3 "
     "time-out|reserved|reserved|reserved|reserved|"},
};

TEST(PanelBits, HaveTheMeaningsOfTheDataSheets) {
  for (const auto& c : kMeanings) {
    const ChipMap& map = *findChipModel(c.chip)->map;
    std::string all;
    for (const Field& field : map.registers[map.index(c.reg)].fields) {
      if (field.name != std::string(c.field)) continue;
      for (std::string_view meaning : field.meanings) {
        if (meaning.ends_with(c.unit)) meaning.remove_suffix(c.unit.size());
        all += std::string(meaning) + '|';
      }
    }
    EXPECT_EQ(all, c.meanings) << c.chip << ' ' << c.reg << ' ' << c.field;
  }
}

TEST(Ratings, AreThoseOfTheDataSheets) {
  const std::pair<const char*, Rating Ratings::*> kinds[] = {{" ..", &Ratings::highestOutputMHz},
                                                             {" from ", &Ratings::lowestOutputMHz},
                                                             {" detector ", &Ratings::highestDetectorMHz},
                                                             {" prescaled ", &Ratings::highestPrescaledMHz},
                                                             {" INT ", &Ratings::leastInteger},
                                                             {" MOD ", &Ratings::leastModulus},
                                                             {" above FRAC ", &Ratings::leastAboveFraction}};
  std::string all;
  for (const ChipModel& chip : chipModels()) {
    all += std::string(chip.name);
    for (const auto& [name, rating] : kinds)
      if ((chip.ratings.*rating).known()) all += name + shortText((chip.ratings.*rating).value);
    all += ", ";
  }
  EXPECT_EQ(
      all,
      "ADF4106 ..6000, ADF4110 ..550, ADF4111 ..1200, ADF4112 ..3000, ADF4113 ..4000, ADF4118 ..3000, "
      "ADF4153 ..4000 above FRAC 0, ADF4156 ..6200 INT 23 MOD 2 above FRAC 1, ADF4193 ..3500, ADF4251 ..3000 "
      "from 100 detector 30 prescaled 375 INT 31 MOD 2 above FRAC 0, ADF4252 ..3000, LMX2306 ..550, LMX2315 "
      "..1200, LMX2316 ..1200, LMX2320 ..2000, LMX2325 ..2500, LMX2326 ..2800, SKY72300-362, UMC, ");
}

}  // namespace
}  // namespace tessarine::board
