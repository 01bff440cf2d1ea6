#include "board/Ratings.h"

#include "board/Chip.h"
#include "board/ChipMap.h"
#include "board/NumberText.h"

namespace tessarine::board {

namespace {

// Collects a sentence for each rating that is known and broken.
struct Judge {
  std::vector<std::string> sentences;

  template <class Sentence>
  void above(const Rating& most, double value, Sentence&& sentence) {
    if (most.known() && value > most.value) sentences.push_back(sentence(shortText(most.value)));
  }
  template <class Sentence>
  void below(const Rating& least, double value, Sentence&& sentence) {
    if (least.known() && value < least.value) sentences.push_back(sentence(shortText(least.value)));
  }
};

void judgeDividers(const Ratings& ratings, const Tuning& tuning, Judge& judge) {
  const auto modulus = tuning.divider("MOD");
  const auto fraction = tuning.divider("FRAC");
  if (modulus && fraction && *modulus > 0) {
    judge.below(ratings.leastAboveFraction, *modulus - *fraction, [&](const std::string& least) {
      return "FRAC = " + shortText(*fraction) + (least == "0" ? " is above" : " is not below") +
             " MOD = " + shortText(*modulus);
    });
  }
  const auto least = [](const char* name, double value) {
    return [=](const std::string& limit) {
      return name + shortText(value) + " is below " + limit + ", the least for this chip";
    };
  };
  if (modulus && *modulus > 0) judge.below(ratings.leastModulus, *modulus, least("MOD = ", *modulus));
  const auto whole = tuning.divider("INT");
  if (whole) judge.below(ratings.leastInteger, *whole, least("INT = ", *whole));
}

}  // namespace

std::vector<std::string> brokenRatings(const ChipModel& chip, const Tuning& tuning) {
  const Ratings& ratings = chip.ratings;
  Judge judge;
  if (tuning.detectorMHz) {
    judge.above(ratings.highestDetectorMHz, *tuning.detectorMHz, [&](const std::string& most) {
      return "detector " + shortText(*tuning.detectorMHz) + " MHz is above " + most +
             " MHz, the most for this chip";
    });
  }
  judgeDividers(ratings, tuning, judge);
  if (!tuning.outputMHz) return judge.sentences;
  if (const auto prescaler = tuning.divider("P"); prescaler && *prescaler > 0) {
    judge.above(ratings.highestPrescaledMHz, *tuning.outputMHz / *prescaler, [&](const std::string& most) {
      return "behind the prescaler " + shortText(*prescaler) + " the output is above " + most + " MHz";
    });
  }
  judge.above(ratings.highestOutputMHz, *tuning.outputMHz, [&](const std::string& most) {
    return "the output is above " + most + " MHz, the highest of the " + std::string(chip.name);
  });
  judge.below(ratings.lowestOutputMHz, *tuning.outputMHz, [&](const std::string& least) {
    return "the output is below " + least + " MHz, the lowest of the " + std::string(chip.name);
  });
  return judge.sentences;
}

}  // namespace tessarine::board
