// What the word builders of the chip families share.
#pragma once

#include <initializer_list>
#include <string_view>

#include "engine/Types.h"
#include "platform/Text.h"

namespace tessarine {

// A register word that takes its fields, first to last: `word(Rstr) = {"00", R, "00000000"};`. None of them
// may be part of it, as its room is used again: a load makes several.
struct FilledWord {
  void operator=(std::initializer_list<std::string_view> fields) const {
    text.clear();
    for (const std::string_view field : fields) text += field;
  }
  String& text;
};
[[nodiscard]] inline FilledWord word(String& text) { return {text}; }

// A Fault unless `value` is above 0 and finite: nothing can be divided by it otherwise.
void requireAboveZero(std::string_view name, double value, std::string_view unit = {});

// The prescaler select of the fractional chips: "1" for the moduli 8 and 9, else "0".
[[nodiscard]] std::string_view prescalerBit(Integer PreScalar);

// The detector frequency in MHz of a reference of `Fosc` MHz times `factor`; a Fault when a Single cannot
// hold it.
[[nodiscard]] Single detectorFrequency(double Fosc, double factor);

// A detector frequency of `PFD` MHz as the text of `PFDLabel`, in kHz.
[[nodiscard]] String detectorCaption(Single PFD);

}  // namespace tessarine
