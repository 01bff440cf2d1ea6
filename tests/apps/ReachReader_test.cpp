// Random settings go through the whole program, over the wires and out of the board as a frequency: it must
// be the one told beforehand. The two sides share no code.
#include "apps/ReachReader.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "apps/BoardSocket.h"
#include "board/ChipMap.h"
#include "board/Reach.h"
#include "board/VirtualBoard.h"
#include "engine/Numbers.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "support/TempFile.h"
#include "window/Program.h"

namespace tessarine {
namespace {

using Texts = std::vector<const char*>;

struct ReachDesk : Hand {
  explicit ReachDesk(int wayOut) : Hand(program) {
    host.host.version.reset();
    socket.connect(program, wires.board());
    program.start();
    open(wayOut);
    pick(1);
  }
  // Past the door: the panel of the field may be closed.
  void write(const std::string& name, const std::string& text) {
    static_cast<forms::TextBox&>(control(name)).Text = text;
  }
  void pick(int index) {
    model = program.window.pllM(index).Caption;
    click(program.window.pllM(index).name());
    wires.board().plug(model);  // in the place of one that was driven
  }
  // A chip without an entry of its own, in place of the one picked.
  void drive(const char* name) {
    model = program.module.CurrentModel = name;
    wires.board().plug(name);
  }
  void load() {
    host.screen.messages.clear();
    if (model == "ADF4193") {
      click("Command14(1)");  // which needs no prescaler
      host.screen.messages.clear();
      click("Command14(0)");
      return;
    }
    click("AllCommand");
    // The chip is one load late.
    if (model == "SKY72300-362" && host.screen.messages.empty()) click("AllCommand");
  }
  // What stopped the load: some boxes are remarks, behind which it goes on.
  [[nodiscard]] std::string refusal() const {
    if (host.screen.messages.empty()) return "";
    const std::string& text = host.screen.messages.front().text;
    const bool remark = text == "Warnning: Setup File is wrong !" || text == "Error in Get Phase Value" ||
                        text.find(" gives no ") != std::string::npos;
    return remark ? "" : text;
  }
  [[nodiscard]] const board::Tuning& tuning() const { return wires.board().tuning(); }
  [[nodiscard]] board::Reach reach() {
    return board::reachOf(*board::findChipModel(model), reader.read(program));
  }

  FakePlatform host;
  BoardSocket socket;
  board::VirtualBoard wires{socket.surroundings([this] { return host.clock.elapsed; }),
                            [this] { return socket.wiring(); }};
  Platform platform{wires, wires, wires, host.host, host.clock, host.screen};
  Program program{platform};
  ReachReader reader;
  std::string model;
};

struct Draw {
  std::mt19937 engine{20'26'11'23};

  std::size_t below(std::size_t end) { return engine() % end; }
  // The last ones, which no load can take, seldom.
  const char* of(const Texts& usual, const Texts& odd = {}) {
    return !odd.empty() && below(12) == 0 ? odd[below(odd.size())] : usual[below(usual.size())];
  }
  std::string between(double lowest, double highest, double grid) {
    const double value = lowest + (highest - lowest) * static_cast<double>(below(1'000'001)) / 1e6;
    return plainDecimal(std::round(value / grid) * grid, 12);
  }
};

void drawFields(ReachDesk& desk, Draw& draw) {
  const Texts wrong = {"", "0", "-3", "1e3", "99999999999999999999", "0.0000001", "1.2.3"};
  desk.set("RefText", draw.below(3) == 0 ? draw.between(1, 120, 0.001)
                                         : draw.of({"10", "13", "19.2", "26", "40", "100", "14.4"}, wrong));
  desk.set("CompText", draw.below(4) == 0
                           ? draw.between(1, 900, 0.01)
                           : draw.of({"200", "100", "30", "12.5", "1000", "6.25", "50", "7", "5000"}, wrong));
  const auto vco = [&] {
    if (draw.below(12) == 0) return std::string(draw.of(wrong));
    return draw.between(20, draw.below(2) == 0 ? 6500 : 1200,
                        std::array{0.2, 0.025, 1e-5, 1.0}[draw.below(4)]);
  };
  desk.set("VCOText", vco());
  desk.set("PrescalarText",
           draw.below(6) == 0
               ? draw.of({"", "5", "9", "17", "33", "65", "128/129", "129", "-8", "8.5", "99999"})
               : draw.of({"4/5", "8/9", "8/9", "16/17", "32/33", "32/33", "64/65"}));
}

void drawPanels(ReachDesk& desk, Draw& draw) {
  PllForm1& window = desk.program.window;
  const Texts counters = {"1", "1", "2", "3", "5", "8", "15"};
  const Texts odd = {"0", "16", "-1", "1.5", "99999", "", "0.5", "33"};
  for (const char* field : {"RText", "Text27", "Text36(0)", "Text46(0)"})
    desk.write(field, draw.of(counters, odd));
  desk.write("Text26", draw.of({"0", "0", "15", "0", "7"}, {"16", "-1", "40000"}));
  desk.write("Text36(1)", draw.of({"0", "5"}, {"40000"}));
  desk.write("Text36(2)", draw.of({"0", "100"}, {"32764", "-32764", "40000"}));
  desk.write("Text46(1)", draw.of({"3"}, {"40000"}));
  desk.write("Text46(2)", draw.of({"31", "0"}, {"32", "-1", "40000"}));
  desk.write("Text46(3)", draw.of({"31", "7"}, {"40", "40000"}));
  window.XLabel.Caption = draw.of({"0", "1"});
  window.Check11(2).Value = static_cast<int>(draw.below(2));
  window.Label43.Caption = draw.of({"Normal Mode", "LCD Mode"});
  window.Check16.Value = static_cast<int>(draw.below(2));
  window.Combo10(1).ListIndex = static_cast<int>(draw.below(2));
  window.Combo10(4).ListIndex = static_cast<int>(draw.below(4));
  window.Label73(2).Caption = draw.of({"0", "0", "1"});
  window.Label73(3).Caption = draw.of({"0", "0", "1"});
  const std::string folder = TESSARINE_SOURCE_DIR "/examples/";
  desk.write("Text38", draw.below(3) != 0   ? ""
                       : draw.below(9) == 0 ? "/no/such/file"
                                            : folder + "adf4193-26mhz.setup");
  desk.write("Text47", draw.below(6) != 0 ? "" : folder + "sky72300-bands.setup");
  desk.write("Text40", draw.below(20) != 0  ? ""
                       : draw.below(2) == 0 ? "/no/such/file"
                                            : folder + "adf4113-bands.setup");
}

struct Count {
  int refused = 0, met = 0, steps = 0;
};

void compare(ReachDesk& desk, Count& count) {
  const board::Reach reach = desk.reach();
  desk.load();
  const bool silent = reach.refused == "VCO Output Frequency is not above 0: nothing is sent";
  ASSERT_EQ(desk.refusal(), silent ? "" : reach.refused);
  count.refused += reach.refused.empty() ? 0 : 1;
  if (!reach.refused.empty()) return;
  const auto output = desk.tuning().outputMHz;
  ASSERT_EQ(reach.tuning.outputMHz, output) << board::describeReach(reach) << desk.wires.describe();
  ASSERT_EQ(reach.met, output && std::abs(*output - reach.askedMHz) <= 5e-7);
  count.met += reach.met ? 1 : 0;
  if (!reach.step || reach.onlyClosest) return;
  ++count.steps;
  desk.set("CompText", reach.step->stepKHz);
  desk.load();
  ASSERT_EQ(desk.refusal(), "") << board::describeReach(reach);
  ASSERT_NEAR(desk.tuning().outputMHz.value_or(0), reach.askedMHz, 5e-7) << board::describeReach(reach);
  ASSERT_EQ(desk.tuning().notes, std::vector<std::string>());
  ASSERT_TRUE(desk.reach().met);
}

class ReachReader : public testing::TestWithParam<int> {};  // the way out: parallel port, USB

TEST_P(ReachReader, TellsWhatTheBoardMakesOfTheLoad) {
  ReachDesk desk(GetParam());
  Draw draw;
  constexpr int draws = 5000;
  Count count;
  for (int i = 0; i < draws && !HasFatalFailure(); ++i) {
    if (i % 10 == 0) {
      auto& entries = desk.program.window.pllM;
      const int index = 1 + static_cast<int>(draw.below(entries.members().size()));
      if (entries(index).Caption != "-") desk.pick(index);
      if (draw.below(6) == 0 && desk.program.window.AllCommand.isVisible())
        desk.drive(draw.of({"LMX2315", "LMX2320", "LMX2325"}));
    }
    const auto version = desk.socket.fieldsVersion();
    drawFields(desk, draw);
    drawPanels(desk, draw);
    ASSERT_NE(desk.socket.fieldsVersion(), version) << "a window would not follow";
    const PllForm1& window = desk.program.window;
    SCOPED_TRACE(testing::Message() << i << ' ' << desk.model << " ref " << window.RefText.Text.get()
                                    << " step " << window.CompText.Text.get() << " P "
                                    << window.PrescalarText.Text.get() << " vco "
                                    << window.VCOText.Text.get());
    compare(desk, count);
  }
  // None of these is drawn in vain.
  EXPECT_GT(count.refused, draws / 20);
  EXPECT_GT(count.met, draws / 40);
  EXPECT_GT(count.steps, draws / 10);
}

INSTANTIATE_TEST_SUITE_P(WaysOut, ReachReader, testing::Values(0, 1));

TEST(ReachReader, ReadsASetupFileAgainWhenItWasWrittenAnew) {
  ReachDesk desk(0);
  const TempFile file("PFD= 26\nMOD= 100\n$P= 8\nFRAC\n");
  desk.Hand::pick("ADF4193");
  desk.set("VCOText", "1800");
  desk.write("Text38", file.path());
  EXPECT_EQ(desk.reader.read(desk.program).file.value().modulus, 100);
  file.write("PFD= 26\nMOD= 200\n$P= 8\nFRAC\n");
  std::filesystem::last_write_time(file.path(),
                                   std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
  EXPECT_EQ(desk.reader.read(desk.program).file.value().modulus, 200);
}

}  // namespace
}  // namespace tessarine
