#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Texts = std::vector<std::string>;

const char* const kEnded = "    Current Hop            ";

// The frequencies of the N words that reached the chip, as their counters say: 200 kHz steps, prescaler 8/9.
Texts frequenciesOnTheWire(const FakePort& port) {
  Texts result;
  for (const std::string& bits : port.latches()) {
    if (bits.size() != 24 || bits.substr(22) != "01") continue;
    const int a = std::stoi(bits.substr(16, 6), nullptr, 2);
    const int b = std::stoi(bits.substr(3, 13), nullptr, 2);
    result.push_back(std::to_string((8 * b + a) / 5));
  }
  return result;
}

struct HopBench : ProgramBench {
  explicit HopBench(const char* hops = "2", const char* delay = "100") {
    open();
    pick("ADF4113");
    tune();
    click("CalculateCommand");
    click("Hop1");
    set("VcoText1", "900");
    set("VcoText2", "1000");
    set("HopText", hops);
    set("DelayText", delay);
    forget();
  }
  // The status text at a moment of the hop.
  void watch(int milliseconds) {
    host.screen.at(milliseconds, [this] { texts.push_back(value("Label8")); });
  }
  Texts texts;
};

TEST(HopMode, SendsEachPassTwiceAndCountsDown) {
  HopBench bench;
  for (const int ms : {100, 260, 420, 580}) bench.watch(ms);
  const auto before = bench.host.clock.elapsed;
  bench.click("StartHop");
  EXPECT_EQ(frequenciesOnTheWire(bench.host.port), (Texts{"900", "1000", "900", "1000"}));
  EXPECT_EQ(bench.texts, (Texts{"Current Hop: \r\n 2\r\n\r\nFrequency:\r\n900 MHz",
                                "Current Hop \r\n 2\r\n\r\nFrequency:\r\n1000 MHz",
                                "Current Hop: \r\n 1\r\n\r\nFrequency:\r\n900 MHz",
                                "Current Hop \r\n 1\r\n\r\nFrequency:\r\n1000 MHz"}));
  EXPECT_EQ(bench.host.clock.elapsed - before, 4 * (60000 + 100000));
  EXPECT_EQ(bench.value("Label8"), kEnded);
  EXPECT_TRUE(bench.window.HopRunning) << "only Stop and the menu clear it";
  EXPECT_EQ(bench.pll.Fvco, 1000);
}

TEST(HopMode, StopAtAnyMomentEndsAfterThePassAndItsDelay) {
  const struct {
    int ms;  // after the start; a send takes 60 ms, the delay 100 ms
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
    bench.host.screen.at(row.ms, [&] { bench.click(row.by); });
    const auto before = bench.host.clock.elapsed;
    bench.click("StartHop");
    EXPECT_EQ(frequenciesOnTheWire(bench.host.port), row.sent);
    EXPECT_EQ(bench.host.clock.elapsed - before, row.endMs * 1000);
    EXPECT_EQ(bench.value("Label8"), kEnded);
  }
}

TEST(HopMode, NestedStartRunsInsideAndOneStopEndsBoth) {
  HopBench bench;
  bench.host.screen.at(100, [&] { bench.click("StartHop"); });
  bench.click("StartHop");
  // The inner hop of two passes runs to its end inside the first delay of the outer one.
  EXPECT_EQ(frequenciesOnTheWire(bench.host.port).size(), 8U);

  HopBench stopped;
  stopped.host.screen.at(100, [&] { stopped.click("StartHop"); });
  stopped.host.screen.at(200, [&] { stopped.click("StopHop"); });
  stopped.click("StartHop");
  EXPECT_EQ(frequenciesOnTheWire(stopped.host.port), (Texts{"900", "900"}));
}

TEST(HopMode, EditsTakeEffectAtTheNextReadingAndTheModelAtTheNextSend) {
  HopBench bench;
  bench.host.screen.at(100, [&] {
    bench.set("VcoText2", "1100");
    bench.set("HopText", "9");
    bench.set("DelayText", "5");
  });
  bench.click("StartHop");
  EXPECT_EQ(frequenciesOnTheWire(bench.host.port), (Texts{"900", "1100", "900", "1100"}));

  HopBench other("1");
  other.host.screen.at(100, [&] {
    other.pick("LMX2326");
    other.set("PrescalarText", "32/33");
  });
  other.click("StartHop");
  const auto latches = other.host.port.latches();
  ASSERT_EQ(latches.size(), 6U);
  EXPECT_EQ(latches[2].size(), 24U);
  EXPECT_EQ(latches[3].size(), 21U);
}

TEST(HopMode, TakesTheFunctionLatchAnewAndNoOtherPanel) {
  HopBench bench("1");
  bench.window.Label31(19).Caption = "1";
  bench.window.Text27.Text = "7";
  bench.click("StartHop");
  EXPECT_EQ(bench.host.port.latches()[0], "000000111000000010010110");
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
    EXPECT_EQ(frequenciesOnTheWire(bench.host.port).size(), row.sent);
    EXPECT_FALSE(bench.window.HopRunning);
    EXPECT_EQ(bench.value("Label8"), kEnded);
  }
}

TEST(HopMode, StartsThatDoNothing) {
  HopBench negative;
  negative.window.VCOText.Text = "-1";
  negative.click("StartHop");
  EXPECT_TRUE(negative.host.port.accesses.empty());
  EXPECT_EQ(negative.value("Label8"), "    Current Hop");

  HopBench none("0");
  none.click("StartHop");
  EXPECT_TRUE(none.host.port.accesses.empty());
  EXPECT_EQ(none.value("Label8"), kEnded);
}

TEST(HopMode, PrescalerOfZeroTellsAtEachSendAndGoesOn) {
  HopBench bench("2", "");
  bench.window.PrescalarText.Text = "";
  bench.click("StartHop");
  EXPECT_EQ(bench.messages(), Texts(4, "Pls. set Prescalar"));
  EXPECT_EQ(frequenciesOnTheWire(bench.host.port), Texts(4, "900")) << "the old words each time";
}

TEST(HopMode, ADF4193HopsWithoutDelayAndWithItsPowerUp) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4193");
  bench.set("RefText", "104");
  bench.set("CompText", "200");
  bench.set("PrescalarText", "8/9");
  bench.click("Hop1");
  bench.set("VcoText1", "1747.2");
  bench.set("VcoText2", "1800");
  bench.set("HopText", "1");
  bench.set("DelayText", "30000");
  bench.forget();
  bench.click("StartHop");
  EXPECT_TRUE(bench.messages().empty());
  EXPECT_EQ(bench.pll.Model, "ADF4193") << "the panels were copied although no command had run";
  EXPECT_LT(bench.host.clock.elapsed, 5 * FakeClock::kSecond);
  // The power-up's 14 words once before the loop and in each of the two sends, which add 9 words each.
  EXPECT_EQ(bench.host.port.latches().size(), 14U + 2 * (14U + 9U));
  EXPECT_EQ(bench.value("Label8"), kEnded);
}

}  // namespace
}  // namespace tessarine
