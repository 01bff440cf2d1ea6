#include <cstdint>
#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

TEST(GeneralMode, StartsWithinStartsEndWithOneMessage) {
  ProgramBench bench("ADF4113");
  bench.tune();
  for (int i = 1; i <= 20'000; ++i) bench.clickAt(1, "AllCommand");
  bench.click("AllCommand");
  EXPECT_EQ(bench.messages(),
            Texts{"More than 100 actions wait for one another: what is begun now is left out "
                  "until they end"});
  EXPECT_EQ(bench.latches().size() % 3, 0U);
  EXPECT_GE(bench.latches().size(), 300U) << "the others are carried out";
  bench.forget();
  bench.click("AllCommand");
  EXPECT_EQ(bench.latches().size(), 3U);
}

// F, R, N for 900 MHz.
const Words kSet = {"000000111000000010010010", "000000000000000011001000", "000000100011001000010001"};

struct TunedBench : ProgramBench {
  explicit TunedBench(int wayOut = 0) : ProgramBench("ADF4113", wayOut) {
    tune();
    forget();
  }
};

TEST(GeneralMode, TunesTheWorkedExampleOnTheParallelPort) {
  for (const char* command : {"AllCommand", "CalculateCommand"}) {
    TunedBench bench;
    bench.click(command);
    EXPECT_EQ((Words{bench.value("Fregister"), bench.value("Rregister"), bench.value("Nregister")}), kSet);
    EXPECT_EQ(bench.latches(), kSet);
    EXPECT_EQ(bench.host.port.bytes().back(), 0) << "all lines low at the end";
    EXPECT_EQ(bench.milliseconds(), 60) << "two waits of 10 ms a word";
    EXPECT_EQ(bench.value("LDLabel"), "Lock Detect Off");
    EXPECT_TRUE(bench.messages().empty());
  }
}

TEST(GeneralMode, UsbAddsThePortStrobeAndReadsLockDetect) {
  const struct {
    const char* command;
    std::uint8_t pin;
    bool read, locked;
  } rows[] = {{"AllCommand", 1, true, true},
              {"AllCommand", 0, true, false},
              {"AllCommand", 255, true, false},
              {"CalculateCommand", 1, false, false},
              {"NCommand", 1, false, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.command) + " " + std::to_string(row.pin));
    TunedBench bench(1);
    bench.click("CalculateCommand");
    bench.forget();
    bench.host.usb.lockPin = row.pin;
    bench.click(row.command);
    Texts expected;
    for (const std::string& word : reversed(kSet))
      expected.insert(expected.end(), {"shift B3 B2 B1 B0 0 " + word, "write B 0", "write B 2"});
    expected.emplace_back("write B 0");
    if (row.read) expected.emplace_back("pin A3");
    EXPECT_EQ(bench.host.usb.calls, expected);
    EXPECT_EQ(bench.value("LDLabel"), row.locked ? "Lock Detect On" : "Lock Detect Off");
    EXPECT_EQ(bench.window.LDLabel.BackColor.get(), row.locked ? 65280U : 16777215U);
  }
}

TEST(GeneralMode, RegisterButtonsSendAllWordsWithTheFrequenciesOfTheLastReading) {
  for (const char* button : {"FCommand", "RCommand", "NCommand"}) {
    TunedBench bench;
    bench.click("CalculateCommand");
    bench.forget();
    bench.tune("1000", "16/17");
    bench.click(button);
    // 900 MHz still, the prescaler of now: N = 4500 = 16 x 281 + 4.
    EXPECT_EQ(bench.latches(), (Words{"010000111000000010010010", kSet[1], "000000010001100100010001"}))
        << button;
    EXPECT_EQ(bench.value("Nregister"), "000000010001100100010001") << button;
  }
}

TEST(GeneralMode, ClickInsideAWaitNestsASecondLoad) {
  TunedBench bench;
  bench.host.screen.at(25, [&] {
    bench.set("VCOText", "1000");
    bench.click("AllCommand");
  });
  bench.click("AllCommand");
  // The nested load falls into the first wait of R's strobe, after R was shifted and before its pulse. R is
  // then pulsed without new data, and the outer load goes on with the words of the inner one.
  const std::string n1000 = "000000100111000100000001";
  EXPECT_EQ(bench.latches(), (Words{kSet[0], kSet[1] + kSet[0], kSet[1], n1000, "", n1000}));
  EXPECT_EQ(bench.value("Nregister"), n1000);
  EXPECT_EQ(bench.host.port.bytes().back(), 0);
  EXPECT_TRUE(bench.messages().empty());
}

TEST(GeneralMode, UsbFaultIsOneMessageAndTheNextCommandTriesAnew) {
  TunedBench bench(1);
  bench.host.usb.fails = true;
  bench.click("AllCommand");
  EXPECT_EQ(bench.messages(), Texts{"the USB interface does not answer"});
  bench.host.usb.fails = false;
  bench.forget();
  bench.click("AllCommand");
  EXPECT_TRUE(bench.messages().empty());
  EXPECT_EQ(bench.host.usb.calls.size(), 11U);
}

}  // namespace
}  // namespace tessarine
