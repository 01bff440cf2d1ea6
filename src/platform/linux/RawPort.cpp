#include "platform/linux/RawPort.h"

#include <fcntl.h>

#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/Parport.h"

namespace tessarine {
namespace {

constexpr unsigned kRegisters = 3;
// Strobe, autofeed, init, select, interrupt enable and direction. The bits above are no register; most ports
// read them as 1.
constexpr std::uint8_t kControlBits = 0x3F;
// Below lie the timers, the interrupt controllers and the keyboard of the computer itself.
constexpr std::uint16_t kFirstCardAddress = 0x100;

// Who has an address by /proc/ioports: the innermost range that holds it. Empty for nobody, and for everybody
// but root, to whom the kernel shows zeros.
std::string ownerOf(Kernel& kernel, std::uint16_t address) {
  std::istringstream lines(kernel.textOf("/proc/ioports").value_or(""));
  std::string line;
  std::string owner;
  while (std::getline(lines, line)) {  // "  0378-037a : parport0", inner ranges behind outer ones
    const std::size_t begin = line.find_first_not_of(' ');
    const std::size_t dash = line.find('-');
    const std::size_t colon = line.find(" : ");
    if (dash == std::string::npos || colon == std::string::npos) continue;
    unsigned first = 0;
    unsigned last = 0;
    std::from_chars(line.data() + begin, line.data() + dash, first, 16);
    std::from_chars(line.data() + dash + 1, line.data() + colon, last, 16);
    if (first <= address && address <= last) owner = line.substr(colon + 3);
  }
  return owner;
}

// A bus, a card on it or a place that the firmware lists may be a parallel port; any driver's range but its
// own is not.
bool mayBeParallelPort(const std::string& owner) {
  if (owner.empty()) return true;
  for (const char* prefix : {"parport", "PCI Bus", "pnp ", "0000:"})
    if (owner.rfind(prefix, 0) == 0) return true;
  return false;
}

}  // namespace

std::unique_ptr<RawPort> RawPort::open(Kernel& kernel, std::uint16_t base) {
  if (!kExists) throw Fault(advice::noPortInstructions(base));
  int error = 0;
  if (auto port = openIfLetIn(kernel, base, error)) return port;
  if (error != -EPERM && error != -EACCES) throw Fault(advice::portFailed(base, errorName(error)));
  // What root may not do, the kernel itself forbids.
  throw Fault(kernel.isRoot() ? advice::rawForbidden(base) : advice::rawNotPermitted(base));
}

std::unique_ptr<RawPort> RawPort::openIfLetIn(Kernel& kernel, std::uint16_t base, int& error) {
  if (base < kFirstCardAddress) throw Fault(advice::notAParallelPort(base, "the computer's own board"));
  const std::string owner = ownerOf(kernel, base);
  if (!mayBeParallelPort(owner)) throw Fault(advice::notAParallelPort(base, owner));
  if (const auto known = parportAt(kernel, base)) {
    const std::string holder = holderOf(kernel, *known);
    if (!holder.empty()) throw Fault(advice::portBusy(base, known->node(), holder));
  }
  std::unique_ptr<RawPort> opened(new RawPort(kernel, base));  // NOLINT(cppcoreguidelines-owning-memory)
  error = opened->letIn();
  if (error < 0) return nullptr;
  opened->controlAsFound_ = opened->read(PortRegister::control) & kControlBits;
  opened->write(PortRegister::data, 0);
  return opened;
}

RawPort::~RawPort() {
  if (descriptor_ >= 0) kernel_.close(descriptor_);
}

int RawPort::letIn() {
  if constexpr (kExists) {
    descriptor_ = kernel_.open("/dev/port", O_RDWR);
    return descriptor_ >= 0 ? 0 : kernel_.ioperm(base_, kRegisters);
  } else {
    return -ENOSYS;
  }
}

std::uint16_t RawPort::address(PortRegister place) const {
  return static_cast<std::uint16_t>(base_ + static_cast<unsigned>(place));
}

void RawPort::write(PortRegister place, std::uint8_t value) {
  if (descriptor_ < 0) return kernel_.outb(address(place), value);
  // Beyond its end the node takes 0 bytes and calls that no error.
  const ssize_t result = kernel_.pwrite(descriptor_, value, address(place));
  if (result != 1)
    throw Fault(advice::portFailed(base_, errorName(result < 0 ? static_cast<int>(result) : EIO)));
}

std::uint8_t RawPort::read(PortRegister place) {
  if (descriptor_ < 0) return kernel_.inb(address(place));
  std::uint8_t value = 0;
  const ssize_t result = kernel_.pread(descriptor_, value, address(place));
  if (result != 1)
    throw Fault(advice::portFailed(base_, errorName(result < 0 ? static_cast<int>(result) : EIO)));
  return value;
}

void RawPort::leave() noexcept {
  // The port instructions were opened to the thread that asked for them; this may be another.
  const bool open = descriptor_ >= 0 || kernel_.ioperm(base_, kRegisters) >= 0;
  if (!open) return;
  ignoringErrors("a port that is gone has no lines to lower", [&] {
    write(PortRegister::data, 0);
    write(PortRegister::control, controlAsFound_);
  });
}

}  // namespace tessarine
