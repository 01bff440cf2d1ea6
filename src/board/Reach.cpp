#include "board/Reach.h"

#include <cmath>

#include "board/NumberText.h"
#include "board/Ratings.h"
#include "board/ReachStrategy.h"

namespace tessarine::board {

namespace {

// The noise floor goes with 20 log N.
void noteNoise(Reach& reach) {
  const auto detector = reach.tuning.detectorMHz;
  if (!detector || !reach.step || reach.onlyClosest) return;
  const double decibels = 20 * std::log10(reach.step->detectorMHz / *detector);
  if (std::abs(decibels) < 0.05) return;
  reach.notes.push_back("noise floor " + fixedText(std::abs(decibels), 1) + " dB " +
                        (decibels > 0 ? "above" : "below") + " that with a detector of " +
                        frequencyText(reach.step->detectorMHz) + " (20 log N)");
}

std::string megahertz(double value) { return fixedText(value, 6) + " MHz"; }

// Without the sign of a value that rounds to 0.
std::string signedText(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  return fixedText(std::abs(value) * scale < 0.5 ? 0 : value, decimals);
}

}  // namespace

Reach reachOf(const ChipModel& chip, const ReachFields& fields) {
  Reach reach;
  reach.askedMHz = fields.vcoMHz;
  reach.refused = fields.refused;
  if (!reach.refused.empty()) return reach;
  const ReachStrategy* const strategy = chip.map->reach;
  if (strategy == nullptr) {
    reach.refused = "the " + std::string(chip.name) + " works out its own dividers";
    return reach;
  }
  const Attempt attempt = strategy->attempt(chip, fields);
  reach.refused = attempt.refused;
  if (!reach.refused.empty()) return reach;

  reach.tuning = attempt.tuning;
  if (const auto output = reach.tuning.outputMHz) {
    reach.met = isMet(*output, fields.vcoMHz);
    reach.offsetHz = (*output - fields.vcoMHz) * kHertz;
  }
  reach.limits = brokenRatings(chip, reach.tuning);
  strategy->advise(chip, fields, attempt, reach);
  if (!(fields.referenceMHz > 0)) reach.why.assign({"there is no reference"});
  if (!reach.met && reach.why.empty()) {
    reach.why.push_back(reach.tuning.outputMHz ? "the dividers that the program works out give " +
                                                     megahertz(*reach.tuning.outputMHz)
                                               : reach.tuning.reason());
  }
  if (reach.met) reach.belowMHz = reach.aboveMHz = std::nullopt;
  noteNoise(reach);
  return reach;
}

std::string describeReach(const Reach& reach) {
  std::string text;
  const auto line = [&](std::string_view name, const std::string& cells) {
    text += "reach\t" + std::string(name) + '\t' + cells + '\n';
  };
  if (!reach.refused.empty()) {
    line("refused", reach.refused);
    return text;
  }
  line("asked", megahertz(reach.askedMHz));
  line("output", reach.tuning.outputMHz
                     ? megahertz(*reach.tuning.outputMHz) + '\t' + signedText(reach.offsetHz, 1) + " Hz\t" +
                           signedText(reach.offsetPpm(), 3) + " ppm"
                     : std::string("none"));
  line("met", reach.met ? "1" : "0");
  for (const std::string& reason : reach.why) line("why", reason);
  if (reach.belowMHz) line("below", megahertz(*reach.belowMHz));
  if (reach.aboveMHz) line("above", megahertz(*reach.aboveMHz));
  if (reach.step) {
    line(reach.onlyClosest ? "closest" : "step", reach.step->stepKHz + " kHz\tR=" + reach.step->r +
                                                     "\tN=" + reach.step->n + "\tdetector " +
                                                     frequencyText(reach.step->detectorMHz));
  }
  for (const std::string& limit : reach.limits) line("limit", limit);
  for (const std::string& note : reach.notes) line("note", note);
  return text;
}

}  // namespace tessarine::board
