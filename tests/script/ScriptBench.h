// The program on virtual time, with fakes at the ways out, worked by scripts.
#pragma once

#include <cstddef>
#include <sstream>
#include <string>

#include "script/Interpreter.h"
#include "script/ScriptScreen.h"
#include "script/ScriptTime.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine::script {

// What stands in one line here: "click A; wait 5".
inline std::string lines(std::string text) {
  for (std::size_t at = 0; (at = text.find("; ", at)) != std::string::npos;) text.replace(at, 2, "\n");
  return text.empty() ? text : text + '\n';
}

struct ScriptBench {
  ScriptBench() { program.start(); }
  // What the script prints and complains of, and its status where that is not 0.
  std::string run(const std::string& script) {
    std::istringstream text(script);
    const int status = Interpreter({program.forms, program.door, screen, nullptr, out, out}, text, "t").run();
    return out.str() + (status == 0 ? "" : "status " + std::to_string(status) + '\n');
  }

  FakePlatform host;
  VirtualTime time;
  std::ostringstream out;
  ScriptScreen screen{time, out};
  Platform platform{host.port, host.port, host.usb, host.host, time, screen};
  Program program{platform};
};

}  // namespace tessarine::script
