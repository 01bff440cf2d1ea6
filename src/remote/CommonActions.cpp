// What IEEE 488.2 wants of every instrument, and the subsystem SYSTem.
#include <cmath>
#include <string>

#include "platform/Version.h"
#include "remote/Actions.h"

namespace tessarine::remote {
namespace {

int byteOf(const Argument& argument) {
  const double value = std::round(valueOf(shifted(argument.number.plain, argument.number.exponent)));
  if (!(value >= 0 && value <= 255)) throw Refused{-222, "0 to 255"};
  return static_cast<int>(value);
}

}  // namespace

void identify(const Call& call) {
  call.reply("Tessarine," + call.instrument.name + ",0," + applicationVersion());
}

void clearStatus(const Call& call) { call.session.clear(); }

void enableEvents(const Call& call) { call.session.status.eventsEnabled = byteOf(call.arguments.front()); }

void tellEventsEnabled(const Call& call) { call.reply(std::to_string(call.session.status.eventsEnabled)); }

void tellEvents(const Call& call) { call.reply(std::to_string(call.session.status.takeEvents())); }

void complete(const Call& call) { call.session.tellCompletion(); }

void tellComplete(const Call& call) {
  call.session.awaitCompletion();
  call.replyFlag(true);
}

void awaitCompletion(const Call& call) { call.session.awaitCompletion(); }

// A program on its first screen is as new as it gets.
void reset(const Call& call) {
  if (!call.isOnFirstScreen()) call.click(call.window().Close1);
}

void enableRequests(const Call& call) {
  // A request is no reason for itself.
  call.session.status.requestsEnabled = byteOf(call.arguments.front()) & ~Status::kRequests;
}

void tellRequestsEnabled(const Call& call) {
  call.reply(std::to_string(call.session.status.requestsEnabled));
}

void tellStatusByte(const Call& call) {
  call.reply(std::to_string(call.session.status.statusByte(call.session.hasReplied())));
}

void tellSelfTest(const Call& call) { call.replyFlag(false); }

void tellError(const Call& call) { call.reply(call.session.status.takeError()); }

void tellErrorCount(const Call& call) { call.reply(std::to_string(call.session.status.errorCount())); }

void tellVersion(const Call& call) { call.reply("1999.0"); }

void choosePort(const Call& call) {
  PllForm1& window = call.window();
  call.click(window.IOOption(call.arguments.front().text == "LPT" ? 0 : 1));
  call.click(window.ContinueCommand);
}

void tellPort(const Call& call) {
  call.reply(call.isOnFirstScreen() ? "NONE" : call.instrument.program.module.PortType);
}

}  // namespace tessarine::remote
