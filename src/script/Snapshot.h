// The present settings of a program as a script.
#pragma once

#include <string>

#include "window/Program.h"

namespace tessarine::script {

// A script that brings a fresh program to these settings: way out, wiring, model, mode, panels, fields, setup
// files by their absolute paths. It has only what differs from a fresh program, and sends nothing.
[[nodiscard]] std::string snapshot(const Program& present);

}  // namespace tessarine::script
