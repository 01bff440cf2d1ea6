#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

const char* const kEnded = "    Current Hop            ";

struct HopBench : ProgramBench {
  explicit HopBench(const char* hops = "2") : ProgramBench("ADF4113") {
    tune();
    click("CalculateCommand");
    click("Hop1");
    set({{"VcoText1", "900"}, {"VcoText2", "1000"}, {"HopText", hops}, {"DelayText", "100"}});
    forget();
  }
  // The frequencies of the N words that reached the chip, in steps of 200 kHz with 8/9.
  [[nodiscard]] Texts sent() const {
    Texts result;
    for (const std::string& word : reversed(latches())) {
      if (word.size() == 24 && word.starts_with("10"))
        result.push_back(std::to_string((8 * bitsOf(word, 8, 13) + bitsOf(word, 2, 6)) / 5));
    }
    return result;
  }
};

TEST(HopMode, SendsEachPassTwiceAndCountsDown) {
  HopBench bench;
  bench.set("VcoText1", "900.000000125");  // shown with all that was typed
  Texts texts;
  for (const int ms : {100, 260, 420, 580})
    bench.host.screen.at(ms, [&] { texts.push_back(bench.value("Label8")); });
  bench.click("StartHop");
  EXPECT_EQ(bench.sent(), (Texts{"900", "1000", "900", "1000"}));
  EXPECT_EQ(texts, (Texts{"Current Hop: \r\n 2\r\n\r\nFrequency:\r\n900.000000125 MHz",
                          "Current Hop \r\n 2\r\n\r\nFrequency:\r\n1000 MHz",
                          "Current Hop: \r\n 1\r\n\r\nFrequency:\r\n900.000000125 MHz",
                          "Current Hop \r\n 1\r\n\r\nFrequency:\r\n1000 MHz"}));
  EXPECT_TRUE(bench.window.HopRunning) << "only Stop and the menu clear it";
  EXPECT_EQ(bench.pll.Fvco, 1000);
}

// A send takes 60 ms, the delay 100 ms.
TEST(HopMode, ClicksUnderwayEndItAfterThePassAndItsDelayOrRunInside) {
  const struct {
    std::vector<std::pair<int, const char*>> clicks;
    Texts sent;
    int endMs;
  } rows[] = {{{{100, "StopHop"}}, {"900"}, 160},
              {{{0, "StopHop"}}, {"900"}, 160},
              {{{200, "StopHop"}}, {"900", "1000"}, 320},
              {{{100, "Hop1"}}, {"900"}, 160},
              {{{100, "Sweep1"}, {130, "Gen1"}}, {"900", "1000", "900", "1000"}, 640},
              // A second one runs to its end inside the first delay of the first, whose rest follows.
              {{{100, "StartHop"}}, {"900", "900", "1000", "900", "1000", "1000", "900", "1000"}, 1220},
              {{{100, "StartHop"}, {200, "StopHop"}}, {"900", "900"}, 260}};
  for (const auto& row : rows) {
    HopBench bench;
    for (const auto& [ms, name] : row.clicks) bench.clickAt(ms, name);
    bench.click("StartHop");
    EXPECT_EQ(bench.sent(), row.sent);
    EXPECT_EQ(bench.milliseconds(), row.endMs);
    EXPECT_EQ(bench.value("Label8"), kEnded);
  }
}

}  // namespace
}  // namespace tessarine
