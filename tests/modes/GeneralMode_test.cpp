#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Texts = std::vector<std::string>;

const char* const kF = "000000111000000010010010";
const char* const kR = "000000000000000011001000";
const char* const kN = "000000100011001000010001";

TEST(GeneralMode, TunesTheWorkedExampleOnTheParallelPort) {
  for (const char* command : {"AllCommand", "CalculateCommand"}) {
    ProgramBench bench;
    bench.open();
    bench.pick("ADF4113");
    bench.tune();
    bench.forget();
    const auto before = bench.host.clock.elapsed;
    bench.click(command);
    EXPECT_EQ(bench.value("Fregister"), kF);
    EXPECT_EQ(bench.value("Rregister"), kR);
    EXPECT_EQ(bench.value("Nregister"), kN);
    EXPECT_EQ(bench.host.port.latches(), (Texts{kF, kR, kN}));
    EXPECT_EQ(bench.host.port.bytes().back(), 0) << "all lines low at the end";
    EXPECT_EQ(bench.host.clock.elapsed - before, 60000) << "two waits of 10 ms a word";
    EXPECT_EQ(bench.value("LDLabel"), "Lock Detect Off");
    EXPECT_TRUE(bench.messages().empty());
  }
}

TEST(GeneralMode, UsbAddsThePortStrobeAndReadsLockDetect) {
  const struct {
    const char* command;
    std::uint8_t pin;
    const char* lamp;
    bool read;
  } rows[] = {{"AllCommand", 1, "Lock Detect On", true},
              {"AllCommand", 0, "Lock Detect Off", true},
              {"AllCommand", 255, "Lock Detect Off", true},
              {"CalculateCommand", 1, "Lock Detect Off", false},
              {"NCommand", 1, "Lock Detect Off", false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.command) + " " + row.lamp);
    ProgramBench bench;
    bench.open(1);
    bench.pick("ADF4113");
    bench.tune();
    bench.click("CalculateCommand");
    bench.forget();
    bench.host.usb.lockPin = row.pin;
    bench.click(row.command);
    const auto shift = [](std::string shown) {
      return "shift B3 B2 B1 B0 0 " + std::string(shown.rbegin(), shown.rend());
    };
    Texts expected;
    for (const char* sent : {kF, kR, kN}) {
      expected.insert(expected.end(), {shift(sent), "write B 0", "write B 2"});
    }
    expected.emplace_back("write B 0");
    if (row.read) expected.emplace_back("pin A3");
    EXPECT_EQ(bench.host.usb.calls, expected);
    EXPECT_EQ(bench.value("LDLabel"), row.lamp);
    EXPECT_EQ(bench.window.LDLabel.BackColor.get(), row.read && row.pin == 1 ? 65280U : 16777215U);
  }
}

TEST(GeneralMode, RegisterButtonsSendAllWordsWithTheFrequenciesOfTheLastReading) {
  for (const char* button : {"FCommand", "RCommand", "NCommand"}) {
    ProgramBench bench;
    bench.open();
    bench.pick("ADF4113");
    bench.tune();
    bench.click("CalculateCommand");
    bench.forget();
    bench.set("VCOText", "1000");
    bench.set("PrescalarText", "16/17");
    bench.click(button);
    // 900 MHz still, the prescaler of now: N = 4500 = 16 x 281 + 4.
    EXPECT_EQ(bench.pll.Fvco, 900);
    EXPECT_EQ(bench.value("Nregister"), "000000010001100100010001") << button;
    EXPECT_EQ(bench.host.port.latches().size(), 3U);
  }
}

TEST(GeneralMode, ClickInsideAWaitNestsASecondLoad) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4113");
  bench.tune();
  bench.forget();
  bench.host.screen.at(25, [&] {
    bench.set("VCOText", "1000");
    bench.click("AllCommand");
  });
  bench.click("AllCommand");
  // F at 20 ms; the nested load falls into the first wait of R's strobe, after R was shifted and before its
  // pulse. R is then pulsed without new data, and the outer load goes on with the words of the inner one.
  const std::string n1000 = "000000100111000100000001";
  EXPECT_EQ(bench.host.port.latches(), (Texts{kF, std::string(kR) + kF, kR, n1000, "", n1000}));
  EXPECT_EQ(bench.value("Nregister"), n1000);
  EXPECT_TRUE(bench.messages().empty());
}

TEST(GeneralMode, PrescalerOfZeroStopsTheCalculationOnly) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4113");
  bench.tune();
  bench.click("AllCommand");
  bench.set("PrescalarText", "");
  bench.set("VCOText", "1000");
  bench.forget();
  bench.click("AllCommand");
  EXPECT_EQ(bench.host.screen.messages,
            (std::vector<Message>{{"Pls. set Prescalar", Icon::plain, "Tessarine"}}));
  EXPECT_EQ(bench.host.port.latches(), (Texts{kF, kR, kN})) << "the words as they stand";
}

TEST(GeneralMode, BadInputIsOneMessageAndSendsNothing) {
  const struct {
    const char* control;
    const char* value;
    const char* told;
  } rows[] = {
      {"CompText", "", "Step Resolution"},
      {"CompText", "-200", ""},
      {"CompText", "0.001", ""},
      {"VCOText", "99999999", "B = "},
      {"RefText", "99999", "R = "},
      {"PrescalarText", "70000", "70000"},
      {"VCOText", "-900", "-"},
      {"PrescalarText", "128", "A = 100"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.control) + " " + row.value);
    ProgramBench bench;
    bench.open();
    bench.pick("ADF4113");
    bench.tune();
    bench.click("AllCommand");
    bench.forget();
    if (std::string(row.value) == "128") bench.set("VCOText", "1300");  // 6500 = 128 x 50 + 100
    bench.set(row.control, row.value);
    bench.click("AllCommand");
    ASSERT_EQ(bench.messages().size(), 1U);
    EXPECT_NE(bench.messages()[0].find(row.told), std::string::npos) << bench.messages()[0];
    EXPECT_TRUE(bench.host.port.accesses.empty());
    EXPECT_EQ(bench.value("Nregister"), kN);
    EXPECT_EQ(bench.pll.Nstr, std::string(std::string_view(kN).rbegin(), std::string_view(kN).rend()));
    bench.set("CompText", "200");
    bench.tune();
    bench.click("AllCommand");
    EXPECT_EQ(bench.host.port.latches(), (Texts{kF, kR, kN})) << "the program goes on";
  }
}

TEST(GeneralMode, UsbThatFailsIsOneMessage) {
  ProgramBench bench;
  bench.open(1);
  bench.pick("ADF4113");
  bench.tune();
  bench.host.usb.fails = true;
  bench.click("AllCommand");
  EXPECT_EQ(bench.messages().size(), 1U);
  bench.host.usb.fails = false;
  bench.forget();
  bench.click("AllCommand");
  EXPECT_TRUE(bench.messages().empty());
  EXPECT_EQ(bench.host.usb.calls.size(), 11U);
}

}  // namespace
}  // namespace tessarine
