#include <cstddef>
#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

const char* const kEnded = "    Current Hop            ";

struct HopBench : ProgramBench {
  explicit HopBench(const char* hops = "2", const char* delay = "100") : ProgramBench("ADF4113") {
    tune();
    click("CalculateCommand");
    click("Hop1");
    set({{"VcoText1", "900"}, {"VcoText2", "1000"}, {"HopText", hops}, {"DelayText", delay}});
    forget();
  }
  // The frequencies of the N words that reached the chip, as their counters say: 200 kHz steps, prescaler
  // 8/9.
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
  EXPECT_EQ(bench.milliseconds(), 4 * (60 + 100));
  EXPECT_EQ(bench.value("Label8"), kEnded);
  EXPECT_TRUE(bench.window.HopRunning) << "only Stop and the menu clear it";
  EXPECT_EQ(bench.pll.Fvco, 1000);
}

// A send takes 60 ms, the delay 100 ms.
TEST(HopMode, StopAtAnyMomentEndsAfterThePassAndItsDelay) {
  const struct {
    int ms;
    const char* by;
    Texts sent;
    int endMs;
  } rows[] = {{100, "StopHop", {"900"}, 160},
              {30, "StopHop", {"900"}, 160},
              {0, "StopHop", {"900"}, 160},
              {200, "StopHop", {"900", "1000"}, 320},
              {250, "StopHop", {"900", "1000"}, 320},
              {100, "Hop1", {"900"}, 160},
              {100, "Gen1", {"900", "1000", "900", "1000"}, 640}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.by) + " at " + std::to_string(row.ms));
    HopBench bench;
    bench.clickAt(row.ms, row.by);
    bench.click("StartHop");
    EXPECT_EQ(bench.sent(), row.sent);
    EXPECT_EQ(bench.milliseconds(), row.endMs);
    EXPECT_EQ(bench.value("Label8"), kEnded);
  }
}

TEST(HopMode, NestedStartRunsInsideAndOneStopEndsBoth) {
  for (const bool stopped : {false, true}) {
    HopBench bench;
    bench.clickAt(100, "StartHop");
    if (stopped) bench.clickAt(200, "StopHop");
    bench.click("StartHop");
    // Unstopped, the inner hop runs to its end inside the first delay of the outer one.
    const Texts whole = {"900", "900", "1000", "900", "1000", "1000", "900", "1000"};
    EXPECT_EQ(bench.sent(), stopped ? (Texts{"900", "900"}) : whole);
  }
}

TEST(HopMode, EditsTakeEffectAtTheNextReadingAndTheModelAtTheNextSend) {
  HopBench bench;
  bench.host.screen.at(100, [&] { bench.set({{"VcoText2", "1100"}, {"HopText", "9"}, {"DelayText", "5"}}); });
  bench.click("StartHop");
  EXPECT_EQ(bench.sent(), (Texts{"900", "1100", "900", "1100"}));

  HopBench other("1");
  other.host.screen.at(100, [&] {
    other.pick("LMX2326");
    other.set("PrescalarText", "32/33");
  });
  other.click("StartHop");
  const Words words = other.latches();
  ASSERT_EQ(words.size(), 6U);
  EXPECT_EQ(words[2].size(), 24U);
  EXPECT_EQ(words[3].size(), 21U);
}

TEST(HopMode, TakesTheFunctionLatchAnewAndNoOtherPanel) {
  HopBench bench("1");
  bench.window.Label31(19).Caption = "1";
  bench.window.Text27.Text = "7";
  bench.click("StartHop");
  EXPECT_EQ(bench.latches()[0], "000000111000000010010110");
  EXPECT_EQ(bench.pll.RCounter_4531, 1);
  EXPECT_EQ(bench.value("Mregister"), "") << "a hop leaves the fourth caption alone";
}

TEST(HopMode, FaultsClearTheFlagAndShowTheEndText) {
  const struct {
    const char* control;
    const char* value;
    std::size_t sent;
  } rows[] = {{"HopText", "40000", 0}, {"DelayText", "40000", 0}, {"VcoText2", "99999999", 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.control);
    HopBench bench;
    bench.set(row.control, row.value);
    bench.click("StartHop");
    EXPECT_EQ(bench.messages().size(), 1U);
    EXPECT_EQ(bench.sent().size(), row.sent);
    EXPECT_FALSE(bench.window.HopRunning);
    EXPECT_EQ(bench.value("Label8"), kEnded);
  }
}

TEST(HopMode, StartsThatSendNothing) {
  for (const bool negative : {true, false}) {
    HopBench bench(negative ? "2" : "0");
    if (negative) bench.window.VCOText.Text = "-1";
    bench.click("StartHop");
    EXPECT_TRUE(bench.host.port.accesses.empty());
    EXPECT_EQ(bench.value("Label8"), negative ? "    Current Hop" : kEnded);
  }
}

TEST(HopMode, PrescalerOfZeroTellsAtEachSendAndGoesOn) {
  HopBench bench("2", "");
  bench.window.PrescalarText.Text = "";
  bench.window.VCOText.Text = "0";
  bench.click("StartHop");
  EXPECT_EQ(bench.messages(), Texts(4, "Pls. set Prescalar"));
  EXPECT_EQ(bench.sent(), Texts(4, "900")) << "the old words each time";
}

TEST(HopMode, ADF4193HopsWithoutDelayAndWithItsPowerUp) {
  ProgramBench bench("ADF4193");
  bench.tune("", "8/9", "104");
  bench.click("Hop1");
  bench.set({{"VcoText1", "1747.2"}, {"VcoText2", "1800"}, {"HopText", "1"}, {"DelayText", "30000"}});
  bench.forget();
  bench.click("StartHop");
  EXPECT_TRUE(bench.messages().empty());
  EXPECT_EQ(bench.pll.Model, "ADF4193") << "the panels were copied although no command had run";
  EXPECT_LT(bench.milliseconds(), 5000);
  // The power-up's 14 words once before the loop and in each of the two sends, which add 9 words each.
  EXPECT_EQ(bench.latches().size(), 14U + 2 * (14U + 9U));
  EXPECT_EQ(bench.value("Label8"), kEnded);
}

}  // namespace
}  // namespace tessarine
