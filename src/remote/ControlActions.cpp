// Every control of every window, as scripts know them.
#include <string>

#include "remote/Actions.h"
#include "script/ScriptText.h"

namespace tessarine::remote {
namespace {

forms::Control& named(const Call& call) { return call.hands.control(call.arguments.front().text); }

}  // namespace

void setControl(const Call& call) { call.set(named(call), call.arguments.back().text); }

void clickControl(const Call& call) { call.click(named(call)); }

void tellValue(const Call& call) { call.reply(quotedText(named(call).value())); }

void tellVisible(const Call& call) { call.replyFlag(named(call).isVisible()); }

void listControls(const Call& call) {
  std::string rows;
  for (const forms::Form* const form : call.hands.forms().all()) {
    for (const forms::Control* const control : form->controls()) rows += script::controlRow(*control) + '\n';
  }
  call.reply(block(rows));
}

}  // namespace tessarine::remote
