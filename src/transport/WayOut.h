// Bringing up the way out to the board: host detection, port driver, idle lines.
#pragma once

#include <functional>

#include "engine/Module1.h"

namespace tessarine {

class Host;

// kTrue on a host of the NT family, which reaches its ports through the driver alone; kFalse on others and on
// one that does not answer.
[[nodiscard]] Integer IsNTHost(Host& host);

// Fixes the parallel port as the way out, starts the port driver where the host needs it, and drives the
// lines low. `setBusy` shows and takes away the hourglass. Every step runs, whatever became of the one
// before.
void openParallelPort(Module1& module, const std::function<void(bool)>& setBusy);

// Fixes the USB interface as the way out.
void openUsb(Module1& module);

}  // namespace tessarine
