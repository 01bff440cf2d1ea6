#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "support/ChipBench.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

struct LoadBench : ChipBench {
  explicit LoadBench(const char* model, double Fvco = 1747.2) : ChipBench(model, Fvco) {}
  // What reaches the chip in one load.
  Words load() {
    host.port.accesses.clear();
    pll.SetPLL();
    return host.port.latches();
  }
};

TEST(SetPLL, WaitsAfterTheLoadButNotForTheUmcModule) {
  // Of an unknown model the final write alone.
  for (const auto& [model, words, milliseconds] : {std::tuple{"ADF4108", 0U, 250}, {"UMC", 5U, 50}}) {
    LoadBench bench(model);
    bench.pll.DelayAfterLock = 0.25F;
    EXPECT_EQ(bench.load().size(), words);
    EXPECT_EQ(bench.host.port.bytes().back(), 0);
    EXPECT_EQ(bench.host.clock.elapsed, milliseconds * 1000);
  }
}

TEST(SetPLL, TheSkyGetsTheWordsOfTheLoadBefore) {
  LoadBench bench("SKY72300-362", 1234.567);
  EXPECT_EQ(bench.load(), Words(10));
  const Words first = "5B/16 11D3/16 20A9/16 3000/16 4000/16 5000/16 694A/16 7001/16 8200/16 9C03/16"_w;
  EXPECT_EQ(bench.numbered(), first);
  for (std::size_t i = 0; i < first.size(); ++i)
    EXPECT_EQ(bench.view.words[static_cast<int>(i)], "R" + std::to_string(i) + ": " + first[i]);
  const Integer division = bench.pll.Main_RefDiv;
  bench.pll.Fvco = 1800;
  EXPECT_EQ(bench.load(), first) << "highest bit first";
  const Words second = bench.numbered();
  EXPECT_NE(second, first);

  for (const Integer prescaler : {Integer{0}, Integer{8}}) {
    bench.pll.PreScalar = prescaler;
    bench.pll.Main_RefDiv = 0;
    (void)faultOf([&] { bench.load(); });
    EXPECT_EQ(bench.host.port.latches(), second) << prescaler;
    EXPECT_EQ(bench.numbered(), second) << "turned back after a refusal";
    EXPECT_EQ(bench.host.port.bytes().back(), 0) << "and load enable is low again";
  }
  bench.pll.Main_RefDiv = division;
  bench.host.screen.at(25, [&] {
    bench.pll.Fvco = 1234.567;
    bench.pll.SetPLL();
    bench.pll.Main_RefDiv = 0;
  });
  (void)faultOf([&] { bench.load(); });
  EXPECT_EQ(bench.numbered(), first) << "words of a load inside one that is refused stay in their order";

  bench.module.PortType = "USB";
  bench.host.usb.fails = true;
  EXPECT_THROW(bench.pll.SetPLL(), std::runtime_error);
  EXPECT_EQ(bench.numbered(), first) << "an interface that fails halfway leaves them in their order";
}

}  // namespace
}  // namespace tessarine
