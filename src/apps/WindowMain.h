// The body of the programs with a window.
#pragma once

#include "apps/Options.h"

namespace tessarine {

// Runs the program to its end; gives its exit status.
[[nodiscard]] int windowMain(const ProgramKind& program, int count, char** words);

}  // namespace tessarine
