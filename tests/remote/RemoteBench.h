// The whole program on a virtual board, worked by clients whose connections are texts.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "board/VirtualBoard.h"
#include "forms/Form.h"
#include "platform/Fault.h"
#include "platform/Sockets.h"
#include "remote/ClientScreen.h"
#include "remote/Server.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine::remote {

// The other end of a connection.
struct Wire {
  std::string toProgram;
  std::string toClient;
  Flow flow = Flow::open;
  bool reads = true;  // the client takes what it is sent
  bool isClosed = false;
};

struct FakeConnection : Connection {
  explicit FakeConnection(std::shared_ptr<Wire> with) : wire(std::move(with)) {}
  ~FakeConnection() override { wire->isClosed = true; }
  Flow receive(std::string& into) override {
    into += std::exchange(wire->toProgram, {});
    return wire->flow;
  }
  Flow send(std::string& from) override {
    if (wire->reads) wire->toClient += std::exchange(from, {});
    return wire->flow == Flow::broken ? Flow::broken : Flow::open;
  }
  [[nodiscard]] int descriptor() const override { return 1; }
  std::shared_ptr<Wire> wire;
};

struct FakeListener : Listener {
  explicit FakeListener(std::vector<std::unique_ptr<Connection>>& asks) : asking(asks) {}
  [[nodiscard]] std::string address() const override { return "here"; }
  std::unique_ptr<Connection> accept() override {
    if (asking.empty()) return nullptr;
    auto first = std::move(asking.front());
    asking.erase(asking.begin());
    return first;
  }
  [[nodiscard]] int descriptor() const override { return 0; }
  std::vector<std::unique_ptr<Connection>>& asking;
};

struct ServedScreen : FakeScreen {
  using FakeScreen::FakeScreen;
  void processEvents() override {
    FakeScreen::processEvents();
    if (source != nullptr) source->serve();
    if (ended) throw ProgramEnded();
  }
  EventSource* source = nullptr;
};

struct RemoteBench : forms::Observer {
  RemoteBench() {
    host.host.version.reset();  // a host that needs no driver and so no wait for one
    program.forms.observe(*this);
    program.start();
    screen.source = &server;
  }
  ~RemoteBench() override { program.forms.unobserve(*this); }

  void changed(forms::Control& /*control*/, forms::Aspect /*aspect*/) override {
    const int index = program.window.CurrentModelIndex;
    if (index != 0) board.board().plug(program.window.pllM(index).Caption.get());
  }

  // Another client.
  std::shared_ptr<Wire> connect() {
    auto wire = std::make_shared<Wire>();
    asking.push_back(std::make_unique<FakeConnection>(wire));
    server.serve();
    return wire;
  }
  void serve() {
    do server.serve();
    while (server.hasWork());
  }
  // What the client is sent for `text`.
  std::string say(Wire& wire, const std::string& text) {
    wire.toProgram += text + '\n';
    serve();
    return std::exchange(wire.toClient, {});
  }
  std::string say(const std::string& text) { return say(*client, text); }
  // After `milliseconds`, when events run.
  void sayAt(int milliseconds, Wire& wire, const std::string& text) {
    screen.at(milliseconds, [&wire, text] { wire.toProgram += text + '\n'; });
  }

  FakePlatform host;
  ServedScreen screen{host.clock};
  ClientScreen clients{screen};
  board::VirtualBoard board{{[this] { return host.clock.elapsed; }, [] { return 10.0; }},
                            [] { return board::Cable{}; }};
  Platform platform{board, board, board, host.host, host.clock, clients};
  Program program{platform};
  std::vector<std::unique_ptr<Connection>> asking;
  Server server{
      {program, board.board(), "tessarine-virtual", [this] { return program.module.PortType == "USB"; }},
      clients,
      std::make_unique<FakeListener>(asking)};
  std::shared_ptr<Wire> client = connect();
};

// Past the first screen with an ADF4113 and all fields filled in.
struct TunedBench : RemoteBench {
  TunedBench() {
    say("SYST:PORT LPT;:MOD 'ADF4113';REF 10MHZ;STEP 200KHZ;PRES '8/9';FREQ 900MHZ;LOAD");
    say("HOP:FREQ1 900MHZ;FREQ2 900.2MHZ;COUN 2;DEL 100MS");
    say("SWE:MODE AUTO;FREQ:STAR 900MHZ;STOP 900.4MHZ;:SWE:STEP 200KHZ;DEL 100MS");
    EXPECT_EQ(say("SYST:ERR?"), "0,\"No error\"\n");
  }
};

}  // namespace tessarine::remote
