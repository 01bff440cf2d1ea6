// The version of the program, from the build's own description.
#pragma once

namespace tessarine {

[[nodiscard]] const char* applicationVersion();  // "1.1.0"

}  // namespace tessarine
