// What is told of settings that go wrong, each worked out by hand.
#include "board/Reach.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <sstream>
#include <string>

#include "board/ChipMap.h"
#include "support/Sum.h"

namespace tessarine::board {
namespace {

ReachFields typed(double vcoMHz, double referenceMHz, double stepKHz, int prescaler, double r = 1) {
  ReachFields fields;
  fields.vcoMHz = vcoMHz, fields.referenceMHz = referenceMHz, fields.stepKHz = stepKHz;
  fields.prescaler = prescaler, fields.r = r;
  return fields;
}

ReachFields withFile(ReachFields fields, float detectorMHz, int modulus) {
  fields.file = ReachFields::File{.detectorMHz = detectorMHz, .modulus = modulus, .prescaler = 8};
  return fields;
}

ReachFields sky(double vcoMHz, ReachFields::Sky panel) {
  ReachFields fields = typed(vcoMHz, 10, 0, 8);
  fields.sky = panel;
  return fields;
}

ReachFields lowestTerms(ReachFields fields) {
  fields.lowestTerms = true;
  return fields;
}

const struct {
  const char* what;
  const char* chip;
  ReachFields fields;
  const char* text;  // lines that follow each other, without "reach" in front and without "asked" and "met"
} kCases[] = {
    {"on the gap itself", "ADF4113", typed(9.5, 10, 200, 8),
     "output\t9.600000 MHz\t100000.0 Hz\t10526.316 ppm\n"
     "why\t9.5 MHz is no multiple of the step of 200 kHz\n"
     "below\t9.000000 MHz\n"
     "above\t9.600000 MHz\n"
     "step\t166.66666 kHz\tR=60\tN=57\tdetector 166.666666667 kHz\n"
     "limit\tA = 8 is above B = 5\n"},
    {"a step above the reference", "ADF4113", typed(900, 10, 20'000, 8),
     "output\tnone\n"
     "why\tthe step of 20000 kHz is above the reference of 10 MHz: R = 0\n"
     "step\t10000 kHz\tR=1\tN=90\tdetector 10 MHz\n"},
    {"A is cut down, and so the step is a hair small", "LMX2325", typed(512.3, 10, 100, 32),
     "output\t512.200000 MHz\t-100000.0 Hz\t-195.198 ppm\n"
     "why\tthe program loses a hair of A and cuts it down: N = 5122\n"
     "below\t512.300000 MHz\n"
     "above\t512.300000 MHz\n"
     "step\t99.999995 kHz\tR=100\tN=5123\tdetector 100 kHz\n"},
    {"FRAC comes out equal to MOD, and may not", "ADF4156", typed(1013.999, 26, 1000, 4),
     "output\t1014.000000 MHz\t1000.0 Hz\t0.986 ppm\n"
     "why\t1013.999 MHz is no multiple of the step of 1000 kHz\n"
     "below\t1013.000000 MHz\n"
     "above\t1014.000000 MHz\n"
     "limit\tFRAC = 26 is not below MOD = 26\n"},
    {"the detector frequency is kept as a Single", "ADF4193", typed(1747.2, 19.2, 100, 8),
     "output\t1747.100000 MHz\t-100000.0 Hz\t-57.234 ppm\n"
     "why\tthe program keeps the detector frequency as 19.2000007629395 MHz, and misses the step by it\n"
     "below\t1747.200000 MHz\n"
     "above\t1747.200000 MHz\n"
     "closest\t"},
    {"integer-N would do", "ADF4153", typed(1010, 20, 100, 8),
     "note\tspur at 10 MHz, the way to the nearest integer boundary: on the step grid of 100 kHz\n"
     "note\tinteger-N meets it as well: R = 2, N = 101, detector 10 MHz\n"},
    {"a fraction of one half", "SKY72300-362", typed(1234.999999, 10, 0, 8),
     "output\t1225.000000 MHz\t-9999999.0 Hz\t-8097.165 ppm\n"
     "why\ta fraction of one half is taken as minus one half\n"
     "below\t1234.999962 MHz\n"
     "above\t1235.000000 MHz\n"
     "note\tspur at 5 MHz, the way to the nearest integer boundary\n"},
    {"a hair of R is lost", "ADF4113", typed(11, 1.1, 1.1, 8),
     "why\tthe step of 1.1 kHz divides the reference of 1.1 MHz, but the program cuts the quotient down: R = "
     "999 makes the detector 1.1011011011 kHz\n"},
    {"no reference", "ADF4113", typed(900, 0, 200, 8), "why\tthere is no reference\n"},
    {"half a thousand-millionth below", "LMX2315", typed(1279.9999999936, 10, 200, 64), "output\t1280.0"},
    {"five of them below", "LMX2315", typed(1279.999999936, 10, 200, 64), "output\t1279.800000 MHz\t"},
    {"a fraction in R", "ADF4252", typed(1000, 15, 200, 4, 1.5), "output\t750.000000 MHz\t"},
    {"an R for integer-N", "ADF4153", typed(503, 15, 200, 4),
     "note\tinteger-N meets it as well: R = 15, N = 503, detector 1 MHz\n"},
    {"at the most INT", "ADF4153", typed(5119.9, 10, 200, 4), "below\t5119.800000 MHz\nlimit\t"},
    {"too large", "ADF4252", typed(900, 1e39, 200, 8),
     "refused\tReference Frequency = 1e+39 MHz is too large\n"},
    {"a file without PFD", "ADF4193", withFile(typed(900, 10, 0, 4), 0, 1),
     "refused\tPFD of the setup file = 0 MHz must be above 0\n"},
    {"a step above the detector", "ADF4153", typed(1001, 10, 20'000, 4),
     "why\tthe step of 20000 kHz is above the detector frequency of 10 MHz: MOD = 0\n"},
    {"a file without MOD", "ADF4193", withFile(typed(904, 10, 0, 4), 10, 0),
     "why\tthe setup file's MOD is 0\n"},
    {"a file has no step", "ADF4193", withFile(typed(904, 10, 0, 4), 10, 10),
     "note\tspur at 4 MHz, the way to the nearest integer boundary\n"},
    {"integer-N", "SKY72300-362", sky(1234, {.integerOnly = true}),
     "why\tthe chip is set to integer-N, in steps of 10 MHz\n"},
    {"ten bits", "SKY72300-362", sky(1234, {.tenBits = true}),
     "why\tthe chip is set to a fraction of 10 bits, in steps of 9.765625 kHz\n"},
    {"six decimals", "SKY72300-362", sky(1234.00001, {}),
     "why\tthe fraction has 18 bits, in steps of 38.1469726562 Hz, and is worked out to six decimals, 10 "
     "Hz\n"},
    {"integer-N would do", "SKY72300-362", sky(1235, {}),
     "note\tinteger-N meets it as well: main reference division 2, N = 247, detector 5 MHz\n"},
    {"the last division", "SKY72300-362", sky(169.6875, {.division = 16}),
     "note\tinteger-N meets it as well: main reference division 32, N = 543, detector 312.5 kHz\n"},
    {"a band's pump", "SKY72300-362", sky(1234, {.bandPump = 32}),
     "refused\tCharge pump of the band file = 32 cannot be used (0 to 31)\n"},
    {"integer-N is what it does", "SKY72300-362", sky(1230, {}), "note\tfraction 0: no boundary spur\n"},
    {"a module", "UMC", typed(900, 10, 200, 8), "refused\tthe UMC works out its own dividers\n"},
};

TEST(Reach, TellsWhatGoesWrongAndWhatWouldNot) {
  for (const auto& c : kCases) {
    const Reach reach = reachOf(*findChipModel(c.chip), c.fields);
    std::istringstream lines(describeReach(reach));
    std::string text;
    for (std::string line; std::getline(lines, line);) {
      line.erase(0, std::string("reach\t").size());
      if (!line.starts_with("asked") && !line.starts_with("met")) text += line + '\n';
    }
    EXPECT_NE(text.find(c.text), std::string::npos) << c.chip << ": " << c.what << "\n"
                                                    << c.text << "\n"
                                                    << text;
    EXPECT_EQ(reach.met, reach.refused.empty() && reach.why.empty()) << c.what;
  }
}

// What was told of them when the cases above were worked out.
TEST(Reach, OfAnyFieldsIsToldAsItWas) {
  std::mt19937 random(1);
  const auto one = [&](const auto&... values) {
    const double all[] = {static_cast<double>(values)...};
    return all[random() % std::size(all)];
  };
  std::string told;
  for (const ChipModel& chip : chipModels())
    for (int i = 0; i < 60; ++i) {
      const double drawn[] = {one(900, 925.2, 1747.200001, 2400.06, 12.5, 4100), one(10, 26, 40, 0, 12.8),
                              one(200, 40, 30, 0, 1000, 2.5), one(0, 4, 8, 16, 32), one(1, 2, 1.5, 0, 7)};
      ReachFields fields = typed(drawn[0], drawn[1], drawn[2], static_cast<int>(drawn[3]), drawn[4]);
      fields.doubler = random() % 3 == 0, fields.halver = random() % 3 == 0;
      fields.resync = static_cast<int>(one(0, 1, 5));
      if (random() % 2 == 0) fields = lowestTerms(fields);
      if (random() % 4 == 0) fields = withFile(fields, static_cast<float>(one(26, 13, 0)), 130);
      fields.sky = {.division = static_cast<int>(one(1, 2, 0)), .mainPump = static_cast<int>(one(3, 32))};
      fields.sky.integerOnly = random() % 3 == 0, fields.sky.tenBits = random() % 3 == 0;
      told += describeReach(reachOf(chip, fields));
    }
  expectSum("reaches", told, 1758226164);
}

}  // namespace
}  // namespace tessarine::board
