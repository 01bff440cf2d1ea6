#include "transport/WayOut.h"

#include "platform/Fault.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"

namespace tessarine {

namespace {

constexpr int kFirstPort = 888;         // the usual address of the first parallel port, hexadecimal 378
constexpr int kFirstPortControl = 890;  // its control register
constexpr Integer kDriverStartTimeMs = 1000;
constexpr int kPlatformNT = 2;

bool IsNT4(const HostVersion& v) { return v.platform == kPlatformNT && v.major == 4; }
bool IsNT4OrLater(const HostVersion& v) { return v.platform == kPlatformNT && v.major >= 4; }
bool IsWin2000(const HostVersion& v) { return v.platform == kPlatformNT && v.major == 5 && v.minor == 0; }
bool IsWin2000OrLater(const HostVersion& v) {
  return v.platform == kPlatformNT && v.major == 5 && v.minor >= 0;
}
bool IsWinXP(const HostVersion& v) { return v.platform == kPlatformNT && v.major == 5 && v.minor == 1; }

void startDriver(Module1& module, const std::function<void(bool)>& setBusy) {
  Platform& platform = module.platform;
  ignoringErrors("a driver that cannot be started shows in the port's read-back",
                 [&] { platform.host.startPortDriver(); });
  ignoringErrors("pointer", [&] {
    setBusy(true);
    platform.screen.processEvents();
  });
  ignoringErrors("wait for the driver", [&] { DelayMs(module, kDriverStartTimeMs); });
  ignoringErrors("pointer", [&] {
    setBusy(false);
    platform.screen.processEvents();
  });
  ignoringErrors("a port that is not there shows in its read-back",
                 [&] { platform.driver.DlPortWritePortUchar(kFirstPortControl, 0); });
}

}  // namespace

Integer IsNTHost(Host& host) {
  // Each test asks the host for itself and is false when it does not answer.
  for (const auto test : {IsWinXP, IsWin2000OrLater, IsWin2000, IsNT4OrLater, IsNT4}) {
    const auto version = host.GetVersionExA();
    if (version && test(*version)) return kTrue;
  }
  return kFalse;
}

void openParallelPort(Module1& module, const std::function<void(bool)>& setBusy) {
  module.PortType = "LPT";
  module.PortAddress = kFirstPort;
  module.UseDlPort = kFalse;
  ignoringErrors("a host that cannot be asked needs no driver",
                 [&] { module.UseDlPort = IsNTHost(module.platform.host); });
  if (module.UseDlPort != 0) startDriver(module, setBusy);
  ignoringErrors("PortWrite has told the operator", [&] { PortWrite(module, kFirstPort, 0); });
}

void openUsb(Module1& module) {
  module.PortType = "USB";
  ignoringErrors("an interface that does not open shows at the first command",
                 [&] { module.platform.usb.UsbOpen(0); });
}

}  // namespace tessarine
