// Two clients with good commands and bad ones: every query is answered once, and the error queue is exact.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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

// Where clients who come and go, and the operator, do anything at any time.
TEST(Session, GoesOnBesideAnOperator) {
  std::istringstream lines(
      "MOD 'ADF4193'|MOD 'LMX2326'|MOD 'ADF4252'|MOD 'SKY72300-362'|MOD 'ADF4153'|MOD 'ADF4113'|"
      "LOAD:INIT|LOAD|*CLS|SWE:MODE STEP|SWE:MODE AUTO|SWE:NEXT|SWE:PREV|SWE:INIT|HOP:INIT|HOP:INIT;*OPC|"
      "HOP:ABOR;:SWE:ABOR|*RST|*OPC|*WAI|FREQ 1747.2MHZ|REF 40MHZ|STEP 200KHZ|PRES '8/9'|SYST:ERR?|"
      "CONT:VIS? 'Text47'|CONT:CLIC 'ACommand'|*ESE 17|*SRE 255|REG? 'R0'|SET:FRAC 'x'|SET:BAND 'x'|"
      "MOD?;REG:CAT?|LOCK?;FREQ:ACT?;:FREQ?|CONT:CLIC 'Gen1'|*STB?;*ESR?|REG? 'N'|SWE:FREQ:STAR 900MHZ|"
      "SWE:FREQ:STOP 901MHZ|SWE:STEP 200KHZ|SWE:STEP -1KHZ|SWE:STAT?|HOP:COUN 1|HOP:COUN 2|"
      "HOP:FREQ1 900MHZ|HOP:FREQ2 1GHZ|HOP:DEL 20MS|HOP:STAT?;DEL?|SYST:PORT?|SET:BAND?|SYST:ERR:COUN?|"
      "PRES?;:SET:FRAC?|*OPC?;X");
  std::vector<std::string> any;
  for (std::string line; std::getline(lines, line, '|');) any.push_back(line);
  std::string all;
  for (unsigned seed = 0; seed < 12; ++seed) {
    std::mt19937 random(seed);
    RemoteBench bench;
    bench.say((seed % 3 == 0 ? "SYST:PORT USB" : "SYST:PORT LPT") +
              std::string(";:MOD 'ADF4113';REF 10MHZ;STEP 200KHZ;PRES '8/9';FREQ 900MHZ;LOAD"));
    std::vector<std::shared_ptr<Wire>> wires = {bench.client, bench.connect()};
    bench.server.woken = [&] { all += "woken "; };
    bench.server.changed = [&] { all += "changed "; };
    bench.screen.whileModal = [&](forms::Form& form) {
      all += "modal " + bench.say(*wires.back(), "CONT:VIS? 'BrowseForm.Text1';:SYST:ERR?");
      form.Unload();
    };
    const auto act = [&] {
      if (bench.screen.ended) return;
      Wire& wire = *wires[wires.size() - 1 - random() % 2];
      const auto what = random() % 16;
      if (what < 4) {
        all += actAtRandom(bench.program, random, true) + '\n';
      } else if (what == 4) {
        wire.reads = random() % 4 != 0;
      } else if (what == 5 && random() % 4 == 0) {
        wire.flow = random() % 2 == 0 ? Flow::ended : Flow::broken;
        wires.push_back(bench.connect());
      } else {
        const std::string line = any[random() % any.size()];
        const auto cut = line.size() - (random() % 8 == 0 ? random() % line.size() : 0);
        wire.toProgram += line.substr(0, cut);
        bench.server.serve();
        all += line + ": " + bench.say(wire, line.substr(cut)) + '\n';
      }
      for (const Message& message : std::exchange(bench.screen.messages, {})) all += message.text + '\n';
      for (const Interest& interest : bench.server.interests())
        all += std::to_string(interest.descriptor) + (interest.readable ? "r" : "-") +
               (interest.writable ? "w " : "- ");
      all += bench.server.describe() + '\n';
    };
    for (int i = 0; i < 1000; ++i) {
      if (i % 4 == 0) bench.screen.at(10, act);
      bench.screen.at(500, [&] { bench.say(*wires.back(), "HOP:ABOR;:SWE:ABOR"); });
      act();
    }
  }
  expectSum("beside", all, 4114792351);
}

}  // namespace
}  // namespace tessarine::remote
