#include "platform/linux/LinuxPorts.h"

#include <cerrno>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/Parport.h"
#include "platform/linux/PpdevPort.h"
#include "platform/linux/RawPort.h"

namespace tessarine {
namespace {

std::string whyNoParport(Kernel& kernel, std::uint16_t base) {
  std::vector<std::uint16_t> known;
  for (const Parport& port : knownParports(kernel)) {
    if (port.base == base) return advice::ppdevMissing(base);
    known.push_back(port.base);
  }
  return known.empty() ? advice::portModulesMissing(base) : advice::portElsewhere(base, known);
}

std::unique_ptr<OpenPort> openByDriver(Kernel& kernel, std::uint16_t base, const Notice& notice) {
  const auto known = parportAt(kernel, base);
  if (known) {
    const auto shared = [&] { notice(advice::portShared(base)); };
    if (auto port = PpdevPort::open(kernel, *known, shared)) return port;
  }
  if (!RawPort::kExists) throw Fault(known ? advice::ppdevMissing(base) : advice::noPortInstructions(base));
  int error = 0;
  if (auto port = RawPort::openIfLetIn(kernel, base, error)) return port;
  const bool forbidden = kernel.isRoot() && error == -EPERM;
  throw Fault(forbidden ? advice::rawForbidden(base) : whyNoParport(kernel, base));
}

}  // namespace

PortTable::Opener driverWay(Kernel& kernel, Notice notice) {
  return [&kernel, notice = std::move(notice)](std::uint16_t base) {
    return openByDriver(kernel, base, notice);
  };
}

PortTable::Opener rawWay(Kernel& kernel) {
  return [&kernel](std::uint16_t base) -> std::unique_ptr<OpenPort> {
    if constexpr (RawPort::kExists) {
      return RawPort::open(kernel, base);
    } else {
      throw Fault(advice::noPortInstructions(base));
    }
  };
}

}  // namespace tessarine
