#include "transport/PortAccess.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "support/EngineBench.h"

namespace tessarine {
namespace {

using Kind = FakePort::Access::Kind;

TEST(PortAccess, EachTryIsAWriteAndAReadUntilThePortEchoes) {
  const struct {
    const char* port;
    int echoFromWrite, writes, waits, failures;
  } cases[] = {
      {"echoes at once", 1, 1, 0, 0},
      {"echoes from the third write on", 3, 3, 0, 0},
      {"first echoes at try 100", 101, 101, 0, 0},
      {"echoes at the last try", 110, 110, 9, 0},
      {"never echoes", kNeverEchoes, 110, 9, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.port);
    EngineBench bench;
    bench.host.port.echoFromWrite = c.echoFromWrite;
    EXPECT_EQ(PortWrite(bench.module, 888, 5), c.failures == 0 ? 1 : 0);
    EXPECT_EQ(bench.host.port.count(Kind::write), c.writes);
    EXPECT_EQ(bench.host.port.count(Kind::read), c.writes);
    EXPECT_EQ(bench.host.clock.elapsed, c.waits * FakeClock::kSecond / 20);
    EXPECT_EQ(bench.host.clock.beeps, c.failures);
    EXPECT_EQ(bench.module.WritesGivenUp, c.failures);
    EXPECT_EQ(bench.host.screen.messages,
              std::vector<Message>(static_cast<std::size_t>(c.failures),
                                   {"Error with Output Port Address 888", Icon::critical, "Ouput port Err"}));
  }
}

TEST(PortAccess, ACallThatFailsIsATryThatFailed) {
  EngineBench bench;
  int calls = 0;
  // The first write, and the read-back of the second.
  bench.host.port.fails = [&](const auto&) { return ++calls == 1 || calls == 3; };
  EXPECT_EQ(PortWrite(bench.module, 888, 5), 1);
  EXPECT_EQ(bench.host.port.bytes(), (std::vector<int>{5, 5, 5}));

  bench.host.port.fails = [](const auto& access) { return access.kind == Kind::write; };
  EXPECT_EQ(PortWrite(bench.module, 888, 5), 0) << "an echo of an earlier write confirms nothing";
  EXPECT_EQ(bench.host.screen.messages.size(), 1U);
}

TEST(PortAccess, TheWayOutFollowsFromTheGlobalsAtEachCall) {
  EngineBench bench;
  PortWrite(bench.module, 888, 1);
  bench.module.UseDlPort = 0;
  PortWrite(bench.module, 632, 2);
  EXPECT_EQ(bench.host.port.accesses, (std::vector<FakePort::Access>{{Kind::write, 888, 1, true},
                                                                     {Kind::read, 888, 1, true},
                                                                     {Kind::write, 632, 2, false},
                                                                     {Kind::read, 632, 2, false}}));
  bench.module.PortType = "USB";
  bench.host.usb.portPins = 77;
  EXPECT_EQ(PortWrite(bench.module, 888, 3), 0);
  EXPECT_EQ(PortRead(bench.module, 888), 77);
  EXPECT_EQ(bench.host.usb.calls, (std::vector<std::string>{"write B 3", "read B"}));
  EXPECT_EQ(bench.host.port.accesses.size(), 4U);
  bench.host.usb.fails = true;
  EXPECT_THROW(PortWrite(bench.module, 888, 3), std::runtime_error) << "told to the caller";
  EXPECT_TRUE(bench.host.screen.messages.empty());
}

TEST(PortAccess, TheEndOfTheProgramIsNoPortError) {
  EngineBench bench;
  bench.host.port.echoFromWrite = kNeverEchoes;
  bench.host.screen.at(20, [&] { bench.host.screen.endProgram(); });
  EXPECT_THROW(PortWrite(bench.module, 888, 5), ProgramEnded);
  EXPECT_EQ(bench.host.port.count(Kind::write), 102);
}

TEST(DelayMs, EndsExactlyOnTimeWhateverTheTimeOfDayAndRunsEventsOnce) {
  for (const std::int64_t startOfDay : {std::int64_t{0}, std::int64_t{43'200'123'457}, FakeClock::kDay - 1}) {
    for (const auto wait : std::initializer_list<Integer>{-32768, -5, 0, 10, 50, 100, 999, 1001, 10000}) {
      EngineBench bench;
      bench.host.clock.startOfDay = startOfDay;
      DelayMs(bench.module, wait);
      EXPECT_EQ(bench.host.clock.elapsed, wait > 0 ? wait * 1000 : 0) << wait << " ms from " << startOfDay;
      EXPECT_EQ(bench.host.screen.eventRounds, wait > 0 ? 1 : 0);
    }
  }
}

TEST(DelayMs, RunsEventsWhenTheyComeAndStillEndsOnTime) {
  EngineBench bench;
  bench.host.clock.startOfDay = FakeClock::kDay - 2000;  // midnight passes between two of them
  std::vector<std::int64_t> ran;
  const auto note = [&] { ran.push_back(bench.host.clock.elapsed); };
  for (const int when : {0, 3, 3, 10, 11}) bench.host.screen.at(when, note);
  DelayMs(bench.module, 10);
  EXPECT_EQ(ran, (std::vector<std::int64_t>{0, 3000, 3000, 10000})) << "11 ms is after the wait";
  EXPECT_EQ(bench.host.clock.elapsed, 10000);

  bench.host.screen.at(5, [&] { DelayMs(bench.module, 100); });
  DelayMs(bench.module, 10);
  EXPECT_EQ(bench.host.clock.elapsed, 115'000) << "a wait inside that outlasts it adds nothing";
}

}  // namespace
}  // namespace tessarine
