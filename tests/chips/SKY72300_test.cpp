#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/ChipBench.h"

namespace tessarine {
namespace {

TEST(SKY72300, TenWordsAndTheirCaptions) {
  ChipBench bench("SKY72300-362", 1234.567);
  bench.calculate();
  const Words expected = "5B/16 11D3/16 20A9/16 3000/16 4000/16 5000/16 694A/16 7001/16 8200/16 9C03/16"_w;
  EXPECT_EQ(bench.numbered(), expected);
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(bench.view.words[static_cast<int>(i)], "R" + std::to_string(i) + ": " + expected[i]);
}

}  // namespace
}  // namespace tessarine
