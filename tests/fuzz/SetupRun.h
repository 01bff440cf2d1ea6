// One run of a reader over a text of any bytes, on an engine that has taken a good one before.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/Fault.h"
#include "support/EngineBench.h"
#include "support/PLLProbe.h"

namespace tessarine {

// Aborts, which the fuzzer reports with the input, unless the text is either taken or refused as a whole.
// `take` reads a text into the engine, `state` gives all that it may change, and `check` looks at what was
// taken.
template <class Take, class State, class Check>
int fuzzReader(const std::uint8_t* data, std::size_t size, std::string_view good, Take take, State state,
               Check check) {
  EngineBench bench;
  take(bench.pll, good);
  bench.host.screen.messages.clear();
  const auto before = state(bench.pll);
  try {
    take(bench.pll, {reinterpret_cast<const char*>(data), size});
    check(bench);
  } catch (const Fault&) {
    if (state(bench.pll) != before) std::abort();
  }
  return 0;
}

}  // namespace tessarine
