// Two clients with good commands and bad ones: every query is answered once, and the error queue is exact.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include "remote/RemoteBench.h"
#include "support/AnyHand.h"
#include "support/Sum.h"

namespace tessarine::remote {
namespace {

constexpr const char* kQueries[] = {
    "*IDN?",    "*STB?",    "*ESR?",    "FREQ?",     "FREQ:ACT?",          "LOCK?",
    "REG? 'N'", "REG:CAT?", "MOD:CAT?", "SWE:STAT?", "CONT:VAL? 'Label8'", "HOP:INIT;*OPC?"};
constexpr const char* kActions[] = {"FREQ 900.2MHZ",    "REF 10 MHZ",       "PRES '8/9'",       "LOAD",
                                    "HOP:FREQ2 901MHZ", "HOP:COUN 1",       "SWE:STEP 200 KHZ", "SWE:ABOR",
                                    "SET:BAND ''",      "CONT:CLIC 'Gen1'", "SWE:INIT;:*WAI"};
constexpr std::pair<const char*, int> kRefused[] = {
    {"FREQ", -109},         {"FREQ? 1", -108},  {"HOP:COUN 1E5", -222},
    {"REF 1 PARSEC", -131}, {"REG? 'Q'", -224}, {"CONT:CLIC 'ParallelForm.OKButton'", -221},
    {"MOD 4113", -104},     {"LAOD", -113},     {"FREQ 9000GHZ;LOAD;FREQ 900MHZ", -200}};

TEST(Session, AnswersEachQueryOnceAndKeepsTheErrors) {
  std::mt19937 random(20'261'123);
  std::string replies;
  TunedBench bench;
  struct {
    std::shared_ptr<Wire> wire;
    std::deque<int> errors;
  } clients[] = {{bench.connect(), {}}, {bench.connect(), {}}};
  for (int i = 0; i < 3000 && !HasFailure(); ++i) {
    auto& [wire, errors] = clients[i % 2];
    std::string line;
    std::ptrdiff_t queries = 0;
    for (auto commands = random() % 6; commands > 0; --commands) {
      const auto [refused, error] = kRefused[random() % std::size(kRefused)];
      const char* const words[] = {kQueries[random() % std::size(kQueries)],
                                   kActions[random() % std::size(kActions)], refused};
      const auto kind = random() % 3;
      line += ";:" + std::string(words[kind]);
      if (kind == 0) ++queries;
      if (kind == 2) errors.push_back(error);
    }
    if (errors.size() > 30) {
      errors.resize(30);
      errors.back() = -350;
    }
    const std::string reply = bench.say(*wire, line);
    replies += line + '\n' + reply;
    EXPECT_EQ(std::ranges::count(reply, '\n'), queries > 0 ? 1 : 0) << line;
    EXPECT_EQ(std::ranges::count(reply, ';'), std::max<std::ptrdiff_t>(queries - 1, 0)) << line << reply;
    for (auto asked = random() % 50 == 0 ? random() % 40 : 0; asked > 0; --asked) {
      const std::string expected = std::to_string(errors.empty() ? 0 : errors.front()) + ',';
      EXPECT_TRUE(bench.say(*wire, "SYST:ERR?").starts_with(expected)) << expected;
      if (!errors.empty()) errors.pop_front();
    }
  }
  expectSum("replies", replies, 3369349877);
}

// Where a client, another one and the operator do anything at any time.
TEST(Session, GoesOnBesideAnOperator) {
  static const char* const kAny[] = {"MOD 'ADF4193'",
                                     "MOD 'LMX2326'",
                                     "MOD 'ADF4252'",
                                     "MOD 'SKY72300-362'",
                                     "MOD 'ADF4153'",
                                     "LOAD:INIT",
                                     "LOAD",
                                     "SWE:MODE STEP",
                                     "SWE:MODE AUTO",
                                     "SWE:NEXT",
                                     "SWE:PREV",
                                     "SWE:INIT",
                                     "HOP:INIT",
                                     "HOP:ABOR;:SWE:ABOR",
                                     "FREQ 1747.2MHZ",
                                     "REF 40MHZ",
                                     "STEP 200KHZ",
                                     "PRES '8/9'",
                                     "*RST",
                                     "*OPC",
                                     "*WAI",
                                     "SYST:ERR?",
                                     "CONT:VIS? 'Text47'",
                                     "CONT:CLIC 'ACommand'",
                                     "REG? 'R0'",
                                     "SET:FRAC 'x'",
                                     "SET:BAND 'x'",
                                     "MOD?;REG:CAT?",
                                     "LOCK?;FREQ:ACT?;:FREQ?",
                                     "CONT:CLIC 'Gen1'",
                                     "*STB?;*ESR?",
                                     "REG? 'N'",
                                     "SWE:FREQ:STAR 900MHZ",
                                     "SWE:FREQ:STOP 901MHZ",
                                     "SWE:STEP 200KHZ",
                                     "HOP:COUN 3",
                                     "SWE:STAT?",
                                     "HOP:FREQ1 900MHZ",
                                     "SYST:PORT?",
                                     "HOP:STAT?;DEL?",
                                     "HOP:FREQ2 1GHZ",
                                     "SET:BAND?",
                                     "HOP:DEL 20MS",
                                     "PRES?;:SET:FRAC?",
                                     "SYST:ERR:COUN?"};
  std::string all;
  for (unsigned seed = 0; seed < 12; ++seed) {
    std::mt19937 random(seed);
    RemoteBench bench;
    bench.say((seed % 3 == 0 ? "SYST:PORT USB" : "SYST:PORT LPT") +
              std::string(";:MOD 'ADF4113';REF 10MHZ;STEP 200KHZ;PRES '8/9';FREQ 900MHZ;LOAD"));
    const std::shared_ptr<Wire> wires[] = {bench.client, bench.connect()};
    bench.screen.whileModal = [&](forms::Form& form) {
      all += "modal " + bench.say(*wires[1], "CONT:VIS? 'BrowseForm.Text1';:SYST:ERR?");
      form.Unload();
    };
    const auto act = [&] {
      if (bench.screen.ended) return;
      if (random() % 4 == 0) {
        all += actAtRandom(bench.program, random, true) + '\n';
      } else {
        const std::string line = kAny[random() % std::size(kAny)];
        all += line + ": " + bench.say(*wires[random() % 2], line) + '\n';
      }
      for (const Message& message : std::exchange(bench.screen.messages, {})) all += message.text + '\n';
      all += bench.server.describe() + '\n';
    };
    for (int i = 0; i < 600; ++i) {
      if (i % 4 == 0) bench.screen.at(10, act);
      bench.screen.at(500, [&] { bench.say(*wires[i % 2], "HOP:ABOR;:SWE:ABOR"); });
      act();
    }
  }
  expectSum("beside", all, 2042529213);
}

}  // namespace
}  // namespace tessarine::remote
