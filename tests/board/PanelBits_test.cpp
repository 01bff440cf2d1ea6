// Each bit of each panel as the virtual board takes it: the one field that it changes, and to which meaning.
// The fields, the meanings and the ratings here were typed from the data sheets, not from the board's tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

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
    load();
  }
  // A pick of that item, or else a text of that number.
  void act(const std::string& array, int index, int item) {
    forms::Control* control = program.forms.find(array + '(' + std::to_string(index) + ')');
    if (!control) control = program.forms.find(array);
    if (item == kClick) {
      (void)program.door.click(*control);  // a fixed bit refuses
    } else if (program.door.pick(*control, item)) {
      set(control->name(), std::to_string(item));
    }
  }
  // Twice: one chip is one load late.
  void load() {
    for (int i = 0; i < 2; ++i) click(model == "ADF4193" ? "Command14(0)" : "AllCommand");
  }
  // Those fields whose value is not as it was when this was last asked.
  std::string changed() {
    std::string text;
    for (std::size_t index = 0; index < bench.board().chip()->map().registers.size(); ++index) {
      const Register& spec = bench.board().chip()->map().registers[index];
      for (const Field& field : spec.fields) {
        const std::uint32_t word = bench.board().chip()->word(index).value_or(0);
        const std::uint32_t value = field.value(word);
        std::uint32_t& before = seen[{index, field.offset}];
        if (std::exchange(before, value) == value) continue;
        if (!text.empty()) text += " and ";
        text += std::string(field.name) + ' ' + std::to_string(value);
        if (!field.meanings.empty()) text += '=' + std::string(field.meaning(word));
      }
    }
    return text;
  }

  std::string model;
  FakePlatform host;
  BoardBench bench;
  Platform platform{bench.port, bench.port, bench.port, host.host, host.clock, host.screen};
  Program program{platform};
  std::map<std::pair<std::size_t, int>, std::uint32_t> seen;
};

const struct {
  const char *chip, *controls;  // those of an array, from index `first` down to `last`
  int first, last;
  int item;  // that is picked; kClick: each is clicked
  const char* fields;
} kRows[] = {
    {"ADF4113", "Label31", 19, 0, kClick,
     "counter reset 1=on, power-down 1=on, muxout 0=three-state, muxout 2=N divider output, muxout 6=serial "
     "data output, detector polarity 0=negative, CP three-state 1=on, fastlock 1=on, fastlock mode 1=mode 2, "
     "timer 1=7 cycles, timer 3=15 cycles, timer 7=31 cycles, timer 15=63 cycles, current setting 1 6=4.375 "
     "mA, current setting 1 4=3.125 mA, current setting 1 0=0.625 mA, current setting 2 1=1.250 mA, current "
     "setting 2 3=2.500 mA, current setting 2 7=5.000 mA, power-down mode 1=synchronous"},
    {"ADF4113", "Option3", 1, 1, kClick, "CP gain 1=current setting 2"},
    {"LMX2326", "Option7", 1, 0, kClick, "CP gain 1=1 mA, CP gain 0=0.25 mA"},
    {"ADF4252", "MRLabel", 10, 0, kClick,
     "counter reset 1=on, CP three-state 1=on, power-down 1=on, crystal oscillator 1=disabled, muxout "
     "13=RF/IF digital lock detect, muxout 15=logic low, muxout 11=logic low, muxout 3=IF N divider output"},
    {"ADF4252", "CRLabel", 15, 0, kClick,
     "counter reset 1=on, CP three-state 1=on, power-down 1=on, detector polarity 0=negative, pump current "
     "2=3.125 mA, pump current 0=0.625 mA"},
    {"ADF4252", "Option4", 2, 0, kClick,
     "noise and spur 1 1 and noise and spur 2 1 and noise and spur 3 1, noise and spur 2 0 and noise and "
     "spur 3 0, noise and spur 1 0"},
    {"ADF4153", "Label45", 3, 0, kClick,
     "pump current 15=2.50 mA, pump current 11=1.25 mA, pump current 9=0.63 mA, pump current 8=0.31 mA"},
    {"ADF4153", "Label48", 2, 0, kClick,
     "muxout 5=analog lock detect, muxout 7=logic low, muxout 6=fastlock switch"},
    {"ADF4153", "Check11", 6, 0, kClick,
     "detector polarity 0=negative, power-down 1=on, CP three-state 1=on, counter reset 1=on, FRAC 200 and "
     "INT 22 and MOD 400 and reference doubler 1=on, load control 1=on, fastlock 1=on"},
    {"ADF4153", "Option6", 2, 0, kClick,
     "lowest noise 1=on and noise and spur mode 15=lowest noise, lowest noise 0=off and noise and spur mode "
     "14=low noise and spur, noise and spur mode 0=lowest spur"},
    {"ADF4193", "Combo10", 9, 5, 1,
     "modulator and lock detect 3=dither on, counter reset 1=on, CP three-state 1=on, CP power-down 1=on, "
     "differential amplifier 3=powered down"},
    {"ADF4193", "Combo10", 2, 2, 1, "CP output 1=normal"},
    {"ADF4193", "Combo10", 0, 0, 1, "CP adjust 1=adjusted"},
    {"ADF4193", "Text36", 2, 1, 4, "time-out 4 and time-out 4, phase 4"},
    {"ADF4193", "Text36", 0, 0, 1, "INT 90 and MOD 100 and R 1"},
    {"ADF4193", "Combo10", 10, 9, 2,
     "muxout 2=N divider output, modulator and lock detect 9=10 ns lock detect"},
    {"SKY72300-362", "Label73", 9, 0, kClick,
     "mux pin 1=three-state, mux select 4, mux select 6, mux select 7, aux divider mode 1=integer-N, aux "
     "power-down 0=off, fraction width 1=10 bits, divider mode 1=integer-N, power-down 1=on, full power-down "
     "1=on"},
    {"SKY72300-362", "Label74", 9, 0, kClick,
     "modulation control 32, modulation control 48, modulation control 56, modulation control 60, modulation "
     "control 62, modulation control 63"},
    {"SKY72300-362", "Label75", 11, 0, kClick,
     "modulation data 2048, modulation data 3072, modulation data 3584, modulation data 3840, modulation "
     "data 3968, modulation data 4032, modulation data 4064, modulation data 4080, modulation data 4088, "
     "modulation data 4092, modulation data 4094, modulation data 4095"},
    {"SKY72300-362", "Text46", 3, 2, 8, "aux pump current 8, pump current 8"},
    {"SKY72300-362", "Text46", 0, 0, 8, "N less 32 328 and reference division less 1 7"},
    {"ADF4153", "Text26", 0, 0, 15, "resync 15"},
    {"ADF4153", "LDPCheck", 0, 0, kClick, "lock detect precision 1=5 cycles"},
};

TEST(PanelBits, EachChangesItsFieldOnTheBoard) {
  for (const auto& row : kRows) {
    PanelDesk desk(row.chip);
    (void)desk.changed();
    std::string fields;
    for (int index = row.first; index >= row.last; --index) {
      desk.act(row.controls, index, row.item);
      desk.load();
      const std::string changed = desk.changed();
      fields += (fields.empty() || changed.empty() ? "" : ", ") + changed;
    }
    EXPECT_EQ(fields, row.fields) << row.chip << ' ' << row.controls;
  }
}

const struct {
  const char *chip, *reg, *field, *meanings;
} kMeanings[] = {
    {"ADF4113", "R", "anti-backlash width", "2.9 ns|1.3 ns|6.0 ns|2.9 ns"},
    {"ADF4113", "function", "current setting 1",
     "0.625 mA|1.250 mA|1.875 mA|2.500 mA|3.125 mA|3.750 mA|4.375 mA|5.000 mA"},
    {"ADF4113", "function", "timer",
     "3 cycles|7 cycles|11 cycles|15 cycles|19 cycles|23 cycles|27 cycles|31 cycles|35 cycles|39 cycles|43 "
     "cycles|47 cycles|51 cycles|55 cycles|59 cycles|63 cycles"},
    {"ADF4113", "function", "prescaler", "8/9|16/17|32/33|64/65"},
    {"LMX2326", "function", "muxout",
     "three-state|digital lock detect|N divider output|logic high|R divider output|open-drain lock "
     "detect|serial data output|logic low"},
    {"LMX2315", "R", "prescaler", "128/129|64/65"},
    {"LMX2325", "R", "prescaler", "64/65|32/33"},
    {"ADF4252", "RF control", "pump current", "0.625 mA|1.875 mA|3.125 mA|4.375 mA"},
    {"ADF4252", "master", "muxout",
     "logic low|IF analog lock detect|IF R divider output|IF N divider output|RF analog lock detect|RF/IF "
     "analog lock detect|IF digital lock detect|logic high|RF R divider output|RF N divider "
     "output|three-state|logic low|RF digital lock detect|RF/IF digital lock detect|logic high|logic low"},
    {"ADF4153", "control", "pump current",
     "0.63 mA|1.25 mA|1.88 mA|2.50 mA|3.13 mA|3.75 mA|4.38 mA|5.00 mA|0.31 mA|0.63 mA|0.94 mA|1.25 mA|1.57 "
     "mA|1.88 mA|2.19 mA|2.50 mA"},
    {"ADF4153", "R", "muxout",
     "three-state|digital lock detect|N divider output|logic high|R divider output|analog lock "
     "detect|fastlock switch|logic low"},
    {"ADF4193", "R5", "differential amplifier", "in use|reserved|reserved|powered down"},
    {"ADF4193", "R6", "muxout",
     "three-state|digital lock detect|N divider output|logic high|R counter output|serial data output|logic "
     "low|R divider/2 output|N divider/2 output|ICP time-out|SW1/SW2 time-out|SW3 "
     "time-out|reserved|reserved|reserved|reserved"},
};

TEST(PanelBits, HaveTheMeaningsOfTheDataSheets) {
  for (const auto& c : kMeanings) {
    const ChipMap& map = *findChipModel(c.chip)->map;
    std::string all;
    for (const Field& field : map.registers[map.index(c.reg)].fields) {
      if (field.name != std::string(c.field)) continue;
      for (const std::string_view meaning : field.meanings) {
        all += (all.empty() ? "" : "|") + std::string(meaning);
      }
    }
    EXPECT_EQ(all, c.meanings) << c.chip << ' ' << c.reg << ' ' << c.field;
  }
}

TEST(Ratings, AreThoseOfTheDataSheets) {
  std::vector<std::string> all;
  for (const ChipModel& chip : chipModels()) {
    all.emplace_back(chip.name);
    const auto add = [&](const char* name, const Rating& rating) {
      if (rating.known()) all.back() += name + shortText(rating.value);
    };
    const Ratings& ratings = chip.ratings;
    add(" ..", ratings.highestOutputMHz), add(" from ", ratings.lowestOutputMHz);
    add(" detector ", ratings.highestDetectorMHz), add(" prescaled ", ratings.highestPrescaledMHz);
    add(" INT ", ratings.leastInteger), add(" MOD ", ratings.leastModulus);
    add(" above FRAC ", ratings.leastAboveFraction);
  }
  EXPECT_THAT(all, ::testing::ElementsAre(
                       "ADF4106 ..6000", "ADF4110 ..550", "ADF4111 ..1200", "ADF4112 ..3000",
                       "ADF4113 ..4000", "ADF4118 ..3000", "ADF4153 ..4000 above FRAC 0",
                       "ADF4156 ..6200 INT 23 MOD 2 above FRAC 1", "ADF4193 ..3500",
                       "ADF4251 ..3000 from 100 detector 30 prescaled 375 INT 31 MOD 2 above FRAC 0",
                       "ADF4252 ..3000", "LMX2306 ..550", "LMX2315 ..1200", "LMX2316 ..1200",
                       "LMX2320 ..2000", "LMX2325 ..2500", "LMX2326 ..2800", "SKY72300-362", "UMC"));
}

}  // namespace
}  // namespace tessarine::board
