// What clients may write and what comes of it, on the program with a virtual board.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "remote/RemoteBench.h"
#include "support/Sum.h"

namespace tessarine::remote {
namespace {

const std::string kNoError = "0,\"No error\"\n";

TEST(Protocol, RepliesAndRefuses) {
  struct Case {
    const char* text;
    std::string replies;
    std::string errors;  // numbers, blanks behind
  };
  const std::string longest = std::string(65'532, ' ') + "REF?";
  const std::string tooLong = ' ' + longest;
  const Case cases[] = {
      {"frequency?;:FREQUENCY?;freq?", "900000000;900000000;900000000", ""},
      {"FREQU?;FREQUENCYS?;FRE?;:?;?;:", "", "-113 -113 -113 -113 -113 -113 "},
      {"*ESR?;X;*ESR?;*ESR?", "0;32;0", "-113 "},
      {"FREQ;FREQ 1,2;*IDN? 1;CONT:SET 'RefText'", "", "-109 -108 -108 -109 "},
      {"LOAD?;MOD:CAT;*ESE?X;SYST:ERR", "", "-113 -113 -113 -113 "},
      {"HOP:COUN 7;COUN?;:REF?;COUN?", "7;10000000", "-113 "},
      {"HOP:COUN 7;*ESE?;COUN?;HOP:COUN?", "0;7", "-113 "},
      {"SWE:FREQ:STAR 1GHZ;STOP 1.5GHZ;STAR?;STOP?", "1000000000;1500000000", ""},
      {"SYST:ERR:NEXT?;COUN?;:SYST:ERR?;VERS?", "0,\"No error\";0;0,\"No error\";1999.0", ""},
      {"REF 9.00070001e2 khz;REF?", "900070.001", ""},
      {"REF 12500.5;REF?;REF +.5E+1 MHZ;REF?;REF -00 GHZ;REF?;REF -1;REF?", "12500.5;5000000;0;-1", ""},
      {"REF 10MAHZ;REF 1S;HOP:COUN 1HZ;DEL 1HZ;*ESE 1S", "", "-131 -131 -138 -131 -138 "},
      {"REF ten;REF '10';REF 1 2;REF .;REF 1E99;REF 1E-99999999999", "", "-104 -104 -131 -104 -222 -222 "},
      {"HOP:COUN 32767.4;COUN?;COUN 32767.5;DEL 32.768;DEL 32767MS;DEL?", "32767.4;32.767", "-222 -222 "},
      {"*ESE 2.545E2;*ESE?;*ESE 256;*SRE -1;*ESE 0;*SRE 255;*SRE?;*SRE 0", "255;191", "-222 -222 "},
      {"MOD 'ADF9';MOD '-';MOD ADF4113;MOD \"ADF4113;MOD?", "", "-224 -224 -104 -151 "},
      {"CONT:SET 'PrescalarText','a;\"b'';,';VAL? 'PrescalarText'", "\"a;\"\"b';,\"", ""},
      {"CONT:SET 'RefText','a\tb\\';VAL? 'RefText';:REF?", R"("a\tb\\";0)", ""},
      {"CONT:SET 'RefText','';:REF?;:REG? 'X';:SYST:PORT PIO;:SWE:MODE 1", "9.91E37", "-224 -224 -224 "},
      {"CONT:CLIC 'Nothing';CLIC 'IOOption(0)';CLIC 'RefText';SET 'Combo10(0)','none'", "",
       "-224 -221 -224 -221 "},
      {"SWE:MODE STEP;DEL 1;PREV;:SET:FRAC 'x';:LOAD:INIT;:MOD 'LMX2306';:SET:BAND 'x'", "",
       "-221 -221 -221 -221 -221 "},
      {"CONT:CLIC 'ACommand';:MOD 'ADF4153';MOD 'ADF4113';:SET:BAND 'x';BAND?;:CONT:VAL? 'ACommand'",
       "\"x\";\"Advanced\"", ""},
      {"CONT:VAL? 'RefText';VAL? 'CompText';VAL? 'VCOText';VAL? 'StartText1';VAL? 'StepText1';VAL? "
       "'DelayText'",
       "\"10\";\"200\";\"900\";\"900\";\"200\";\"100\"", ""},
      {";;  ; *IDN? ;\t;", "Tessarine,tessarine-virtual,0,1.1.0", ""},
      {"\x01\xff\x80;*OPC?\r", "1", "-113 "},
      {longest.c_str(), "10000000", ""},
      {tooLong.c_str(), "", "-363 "},
  };
  std::string errors;
  for (const Case& c : cases) {
    TunedBench bench;
    const std::string reply = bench.say(c.text);
    std::string numbers;
    for (std::string error; (error = bench.say("SYST:ERR?")) != kNoError;) {
      numbers += error.substr(0, error.find(',')) + ' ';
      errors += error + '\n';
    }
    const std::string what = std::string(c.text).substr(0, 100);
    EXPECT_EQ(reply, c.replies.empty() ? "" : c.replies + '\n') << what;
    EXPECT_EQ(numbers, c.errors) << what;
  }
  expectSum("errors", errors, 1054651979);
}

TEST(Protocol, RunsHopsAndSweepsBesideTheRest) {
  for (const std::string what : {"HOP", "SWE"}) {
    TunedBench bench;
    const auto other = bench.connect();
    bench.sayAt(10, *other, "*OPC?;*WAI;:" + what + ":STAT?;:MOD?;REF 10MHZ;" + what + ":INIT");
    bench.sayAt(20, *bench.client, "LOCK?");
    const auto begin = bench.host.clock.elapsed;
    // It is over within this call: what comes meanwhile comes while it waits.
    EXPECT_EQ(bench.say(what + ":INIT;STAT?;*ESR?;*OPC;*ESR?"), "1;0;0\n1\n") << what;
    EXPECT_EQ(std::exchange(other->toClient, {}), "1;1;\"ADF4113\"\n");
    EXPECT_EQ(bench.say(*other, "SYST:ERR?").substr(0, 20), "-213,\"Init ignored;a");
    EXPECT_EQ(bench.say("*ESR?;:" + what + ":STAT?"), "1;0\n");
    EXPECT_GE(bench.host.clock.elapsed - begin, 300'000);

    bench.sayAt(10, *other, what + ":ABOR;STAT?");
    const auto again = bench.host.clock.elapsed;
    EXPECT_EQ(bench.say(what + ":INIT;*OPC?"), "1\n") << what;
    EXPECT_EQ(other->toClient, "1\n");
    EXPECT_LT(bench.host.clock.elapsed - again, 201'000);
    EXPECT_EQ(bench.say("SYST:ERR?"), kNoError);
  }
}

TEST(Protocol, GoesOnWhenAWindowIsOpen) {
  TunedBench bench;
  std::string within;
  bench.screen.whileModal = [&](forms::Form& form) {
    EXPECT_EQ(bench.client->toClient, "");
    within = bench.say("CONT:VIS? 'BrowseForm.Text1';:LOAD;:SYST:ERR?;:CONT:CLIC 'BrowseForm.Command2'");
    EXPECT_FALSE(form.Visible);
  };
  EXPECT_EQ(bench.say("CONT:CLIC 'ACommand';CLIC 'Command1';VIS? 'BrowseForm.Text1'"), "");
  EXPECT_EQ(within.substr(0, 10), "1\n1;-221,\"");
}

TEST(Protocol, EndsConnectionsAndTheProgramInOrder) {
  TunedBench bench;
  const std::string long_(70'000, 'x');
  for (const std::string& first : {std::string("GET / HTTP/1.1\r"), "POST /" + long_ + " HTTP/1.0"}) {
    const auto browser = bench.connect();
    EXPECT_EQ(bench.say(*browser, first + "\n*IDN?"), "");
    EXPECT_TRUE(browser->isClosed);
  }
  // One that has said all is answered all the same.
  const auto brief = bench.connect();
  brief->flow = Flow::ended;
  EXPECT_EQ(bench.say(*brief, "HOP:INIT;*OPC?\n*IDN"), "1\n");
  EXPECT_TRUE(brief->isClosed);
  // One that vanishes leaves its hop running.
  const auto vanishing = bench.connect();
  bench.screen.at(50, [&] { vanishing->flow = Flow::broken; });
  bench.screen.at(90, [&] { EXPECT_TRUE(vanishing->isClosed); });
  bench.sayAt(95, *bench.client, "HOP:STAT?");
  bench.say(*vanishing, "HOP:INIT");
  EXPECT_EQ(std::exchange(bench.client->toClient, {}), "1\n");
  // One that does not read is not served without end.
  bench.client->reads = false;
  for (int i = 0; i < 100; ++i) bench.say("CONT:CAT?");
  bench.say("MOD?");
  EXPECT_FALSE(bench.server.hasWork());
  EXPECT_EQ(bench.server.describe(), "Remote control on here: 1 client connected, last asked CONT:CAT?");
  bench.client->reads = true;
  bench.client->toClient.clear();
  EXPECT_GT(bench.say("").size(), 1'000'000U);

  EXPECT_EQ(bench.server.describe(), "Remote control on here: 1 client connected, last asked MOD?");
  const auto last = bench.connect();
  bench.say(*last, "CONT:CLIC 'Exit1';:FREQ 800MHZ");
  EXPECT_TRUE(bench.screen.ended);
  EXPECT_EQ(bench.program.window.VCOText.value(), "900");
}

TEST(Protocol, TakesNoMoreClientsThanItCanServe) {
  RemoteBench bench;
  std::vector<std::shared_ptr<Wire>> crowd;
  for (std::size_t i = 0; i < Server::kMostClients + 3; ++i) crowd.push_back(bench.connect());
  EXPECT_EQ(bench.asking.size(), 4U);
  EXPECT_NE(bench.server.interests().front().descriptor, 0);
  crowd.front()->flow = Flow::ended;
  bench.serve();
  bench.serve();
  EXPECT_EQ(bench.asking.size(), 3U);
  EXPECT_EQ(bench.say(*crowd[5], "*OPC?"), "1\n");
}

}  // namespace
}  // namespace tessarine::remote
