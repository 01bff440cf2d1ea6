#include "engine/BandTable.h"

#include <cstddef>

#include "engine/BitStrings.h"

namespace tessarine {

String BandTable::settingAt(Single frequency) const {
  const String* found = code.empty() ? nullptr : &code.front();
  for (std::size_t i = 0; i < code.size(); ++i) {
    if (frequency >= low[i] && frequency <= high[i]) found = &code[i];
  }
  return found == nullptr ? String() : ReverseStr(*found);
}

String BandTable::firstSetting() const { return code.empty() ? String() : ReverseStr(code.front()); }

}  // namespace tessarine
