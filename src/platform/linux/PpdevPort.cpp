#include "platform/linux/PpdevPort.h"

#include <fcntl.h>
#include <linux/ppdev.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <cstdint>
#include <string>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"

namespace tessarine {
namespace {

// The driver keeps strobe, autofeed, init and select; it would take bit 5 as the order to turn the lines into
// inputs.
constexpr std::uint8_t kControlLines = 0x0F;

}  // namespace

std::unique_ptr<PpdevPort> PpdevPort::open(Kernel& kernel, const Parport& port,
                                           const std::function<void()>& shared) {
  std::unique_ptr<PpdevPort> opened(new PpdevPort(kernel, port));  // NOLINT(cppcoreguidelines-owning-memory)
  if (!opened->openNode()) return nullptr;
  const bool alone = opened->claim();
  // The claim has written the register by now: what stands in it is the driver's own idle state.
  opened->control(PPRCONTROL, &opened->controlAsFound_);
  int outputs = 0;
  opened->control(PPDATADIR, &outputs);
  opened->write(PortRegister::data, 0);
  if (!alone) shared();
  return opened;
}

PpdevPort::~PpdevPort() { closeNode(); }

bool PpdevPort::openNode() {
  const int result = kernel_.open(port_.node(), O_RDWR);
  if (result == -ENOENT || result == -ENXIO || result == -ENODEV) return false;
  if (result == -EACCES || result == -EPERM) throw Fault(advice::portNotPermitted(port_.base, port_.node()));
  if (result < 0) throw Fault(advice::portFailed(port_.base, errorName(result)));
  descriptor_ = result;
  // Programs that do the same keep out of each other's way here, before the port itself is touched.
  const int lock = kernel_.flock(descriptor_, LOCK_EX | LOCK_NB);
  if (lock == -EWOULDBLOCK) throw Fault(advice::portBusy(port_.base, port_.node(), ""));
  if (lock < 0) throw Fault(advice::portFailed(port_.base, errorName(lock)));
  return true;
}

// A claim that asks for the port alone fails at once when anybody else is registered with it. One that does
// not waits for the holder, for ever if need be, and stops the holder too.
int PpdevPort::claimExclusively() {
  control(PPEXCL, nullptr);
  return kernel_.ioctl(descriptor_, PPCLAIM, nullptr);
}

bool PpdevPort::claim() {
  int result = claimExclusively();
  const bool alone = result != -ENXIO;
  if (!alone) {
    // Registered is not yet busy: the printer driver is so at all times. The wish to be alone clings to the
    // descriptor, so a fresh one asks again, and only while nobody is active.
    const std::string holder = holderOf(kernel_, port_);
    if (!holder.empty()) throw Fault(advice::portBusy(port_.base, port_.node(), holder));
    closeNode();
    if (!openNode()) throw Fault(advice::ppdevMissing(port_.base));
    result = kernel_.ioctl(descriptor_, PPCLAIM, nullptr);
    if (result == -ENXIO) throw Fault(advice::portBusy(port_.base, port_.node(), ""));
  }
  if (result < 0) throw Fault(advice::portFailed(port_.base, errorName(result)));
  claimed_ = true;
  return alone;
}

void PpdevPort::closeNode() {
  if (descriptor_ < 0) return;
  if (claimed_) kernel_.ioctl(descriptor_, PPRELEASE, nullptr);
  claimed_ = false;
  kernel_.close(descriptor_);
  descriptor_ = -1;
}

void PpdevPort::control(unsigned long request, void* argument) {
  const int result = kernel_.ioctl(descriptor_, request, argument);
  if (result < 0) throw Fault(advice::portFailed(port_.base, errorName(result)));
}

void PpdevPort::write(PortRegister place, std::uint8_t value) {
  if (place == PortRegister::data) return control(PPWDATA, &value);
  value &= kControlLines;
  control(PPWCONTROL, &value);
}

std::uint8_t PpdevPort::read(PortRegister place) {
  std::uint8_t value = 0;
  control(place == PortRegister::data ? PPRDATA : PPRCONTROL, &value);
  return value;
}

void PpdevPort::leave() noexcept {
  if (claimed_) {
    ignoringErrors("a port that is gone has no lines to lower", [&] {
      write(PortRegister::data, 0);
      write(PortRegister::control, controlAsFound_);
    });
  }
  closeNode();
}

}  // namespace tessarine
