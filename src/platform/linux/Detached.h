// Programs that run on their own.
#pragma once

#include <string>
#include <vector>

namespace tessarine {

enum class Terminal { shared, none };  // none: it neither reads nor writes the program's own input and output

// Starts `command` (the program's path first) in a session of its own and does not wait for its end. A Fault
// when it cannot be started.
void startDetached(const std::vector<std::string>& command, Terminal terminal);

}  // namespace tessarine
