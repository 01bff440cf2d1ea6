// Hops and sweeps. An automatic one runs beside the commands behind it.
#include "remote/Actions.h"

namespace tessarine::remote {
namespace {

bool isHopping(const Call& call) { return call.hands.isRunning(call.window().StartHop); }
bool isSweeping(const Call& call) { return call.hands.isRunning(call.window().StartSweepCommand(0)); }

// One that began within the waits of another would hold it up until its own end.
void refuseWhileRunning(const Call& call) {
  call.hands.awaitOthers();
  if (isHopping(call)) throw Refused{-213, "a hop is running"};
  if (isSweeping(call)) throw Refused{-213, "a sweep is running"};
}

}  // namespace

void startHop(const Call& call) {
  refuseWhileRunning(call);
  call.enter(Mode::hop);
  call.session.overlap([&] { call.click(call.window().StartHop); });
}

void stopHop(const Call& call) {
  call.enter(Mode::hop);
  call.click(call.window().StopHop);
}

void tellHop(const Call& call) { call.replyFlag(isHopping(call)); }

void startSweep(const Call& call) {
  refuseWhileRunning(call);
  call.enter(Mode::sweep);
  const auto start = [&] { call.click(call.window().StartSweepCommand(0)); };
  if (call.window().AutoOption1.Value) {
    call.session.overlap(start);
  } else {
    start();
  }
}

void stopSweep(const Call& call) {
  call.enter(Mode::sweep);
  call.click(call.window().StopSweepCommand(1));
}

void tellSweep(const Call& call) { call.replyFlag(isSweeping(call)); }

void setSweepMode(const Call& call) {
  call.enter(Mode::sweep);
  PllForm1& window = call.window();
  const bool isAuto = call.arguments.front().text == "AUTO";
  call.click(isAuto ? static_cast<forms::Control&>(window.AutoOption1) : window.StepOption);
}

void tellSweepMode(const Call& call) { call.reply(call.window().AutoOption1.Value ? "AUTO" : "STEP"); }

void stepUp(const Call& call) {
  call.enter(Mode::sweep);
  call.click(call.window().NextCommand);
}

void stepDown(const Call& call) {
  call.enter(Mode::sweep);
  call.click(call.window().PrevCommand);
}

}  // namespace tessarine::remote
