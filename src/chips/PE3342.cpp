// The one serial word of the PE3342, folded from fields that stand ready.
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "chips/Words.h"
#include "engine/PLL.h"
#include "platform/Fault.h"

namespace tessarine {

namespace {

void requireLength(std::string_view name, const String& field, std::size_t bits) {
  if (field.size() == bits) return;
  throw Fault(joined({"The field ", name, " of the PE3342 has ", std::to_string(field.size()),
                      " bits where it needs ", std::to_string(bits)}));
}

// The bits `high` to `low` of a field in shifting order, highest first.
String bits(const String& field, std::size_t high, std::size_t low) {
  String text = field.substr(low, high - low + 1);
  PLL::UpsideSTR(text);
  return text;
}

}  // namespace

void PLL::Set_PE3342() {
  requireLength("R", Rstr, 6);
  requireLength("M", MStr, 9);
  requireLength("A", Astr, 4);
  UpsideSTR(Rstr);
  UpsideSTR(Astr);
  UpsideSTR(MStr);
  word(Nstr) = {
      bits(Rstr, 5, 4), bits(MStr, 8, 7), bits(MStr, 6, 0), bits(Rstr, 3, 0), bits(Astr, 3, 0),
  };
  UpsideSTR(Nstr);
  LoadNstr();
}

}  // namespace tessarine
