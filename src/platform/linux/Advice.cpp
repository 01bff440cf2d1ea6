#include "platform/linux/Advice.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "platform/Fault.h"
#include "platform/Text.h"

namespace tessarine::advice {
namespace {

constexpr std::string_view kLoadModules = "Type: sudo modprobe -a parport_pc ppdev";
constexpr std::string_view kListLines =
    "Name another with --wires FILE; to see which there are and who has them, type: "
    "sudo cat /sys/kernel/debug/gpio";

// As the wiring dialog takes it: hexadecimal without a prefix.
std::string hex(unsigned value) {
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
  std::string text(digits, end);
  for (char& digit : text)
    if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
  return text;
}

std::string port(std::uint16_t base) { return "Parallel port " + hex(base); }

std::string list(const std::vector<std::uint16_t>& addresses) {
  std::string text;
  for (const std::uint16_t address : addresses) text += (text.empty() ? "" : ", ") + hex(address);
  return text;
}

}  // namespace

std::string portModulesMissing(std::uint16_t base) {
  return joined({port(base), " is missing: the kernel's modules for it are not loaded. ", kLoadModules});
}

std::string portElsewhere(std::uint16_t base, const std::vector<std::uint16_t>& known) {
  return joined({port(base), " is missing: the kernel knows ", list(known),
                 ". Enter that address in Config, Parallel Port; or, if the port is there, type: ",
                 "sudo modprobe -r lp ppdev parport_pc; sudo modprobe parport_pc io=0x", hex(base),
                 " && sudo modprobe ppdev"});
}

std::string ppdevMissing(std::uint16_t base) {
  return joined({port(base), " has no device node: the module ppdev is missing. Type: sudo modprobe ppdev"});
}

std::string portNotPermitted(std::uint16_t base, std::string_view node) {
  return joined({"No permission for parallel port ", hex(base), ": ", node,
                 " belongs to the group lp. Type: sudo usermod -aG lp $USER (and log in again)"});
}

std::string portBusy(std::uint16_t base, std::string_view node, std::string_view holder) {
  if (holder == "lp")
    return joined({port(base), " is busy: the printer driver lp holds it. Type: sudo modprobe -r lp"});
  return joined({port(base), " is busy: another program holds it",
                 holder.empty() ? std::string() : joined({" (", holder, ")"}),
                 ". To see which, type: sudo fuser -v ", node});
}

std::string portFailed(std::uint16_t base, std::string_view why) {
  return joined(
      {port(base), " failed: ", why, ". To see what the kernel says, type: sudo dmesg | grep parport"});
}

std::string portOtherwise(std::uint16_t base, std::uint8_t written, std::uint8_t read) {
  return joined({port(base), " reads ", hex(read), " where ", hex(written),
                 " was written: its lines are inputs, shorted or held by the board"});
}

std::string portSilent(std::uint16_t base, const std::vector<std::uint16_t>& known) {
  const std::string start = port(base) + " is missing: nothing answers at this address (it reads FF)";
  if (known.empty()) return joined({start, ", and the kernel's driver knows no port. ", kLoadModules});
  if (std::find(known.begin(), known.end(), base) == known.end()) {
    return joined(
        {start, "; the kernel knows ", list(known), ". Enter that address in Config, Parallel Port"});
  }
  return joined({start,
                 ", though the kernel's driver was told of it. To let the driver look for the port, type: "
                 "sudo modprobe -r lp ppdev parport_pc; sudo modprobe -a parport_pc ppdev"});
}

std::string portShared(std::uint16_t base) {
  return joined({port(base),
                 " is shared with the printer driver lp: another program may take it, and this one then "
                 "waits for it without end. To have it alone, type: sudo modprobe -r lp"});
}

std::string rawNotPermitted(std::uint16_t base) {
  return joined({"No permission for raw access to parallel port ", hex(base),
                 ": that takes root, the kernel's driver does not. ", kLoadModules});
}

std::string rawForbidden(std::uint16_t base) {
  return joined({"Raw access to parallel port ", hex(base),
                 " is forbidden by the kernel (lockdown, as with Secure Boot); its driver is not. ",
                 kLoadModules});
}

std::string notAParallelPort(std::uint16_t address, std::string_view owner) {
  return joined(
      {"Address ", hex(address), " is forbidden: it is no parallel port but belongs to ", owner,
       ". Enter another in Config, Parallel Port; to see who has which, type: sudo cat /proc/ioports"});
}

std::string noSuchRegister(std::uint16_t address) {
  return joined(
      {"Address ", hex(address),
       " is missing: a parallel port has its data register at a multiple of 4 and its control register "
       "at that plus 2"});
}

std::string controlRegister(std::uint16_t address) {
  const auto base = static_cast<std::uint16_t>(address - 2);
  return joined({"Address ", hex(address), " is forbidden: it is the control register of parallel port ",
                 hex(base), ". Enter ", hex(base), " in Config, Parallel Port"});
}

std::string noPortInstructions(std::uint16_t base) {
  return joined({port(base),
                 " is missing: this computer has no such ports, and its kernel no driver for one. A USB "
                 "module works here, and so do GPIO lines: start the program with --board gpio"});
}

std::string moduleMissing() {
  return "The USB module is missing: no FT2232H, FT4232H or FT232H (0403:6010, 0403:6011 or 0403:6014) is "
         "plugged "
         "in. To see what is, type: lsusb -d 0403:";
}

std::string moduleAmongSeveral(std::size_t count, std::string_view kind, std::string_view place) {
  return joined({std::to_string(count), " USB modules are plugged in: the first in bus order is used, the ",
                 kind, " at ", place, ". To see where each is, type: lsusb -t"});
}

std::string moduleNotPermitted(std::string_view node) {
  return joined(
      {"No permission for the USB module ", node,
       ". Type, in the program's folder: sudo cp packaging/60-tessarine.rules /etc/udev/rules.d/ && "
       "sudo udevadm control --reload && sudo udevadm trigger"});
}

std::string moduleBusy(char channel, std::string_view node, std::string_view kernelDriver) {
  const std::string start = joined({"Channel ", std::string(1, channel), " of the USB module is busy: "});
  if (!kernelDriver.empty())
    return joined(
        {start, "the kernel driver ", kernelDriver, " holds it. Type: sudo modprobe -r ", kernelDriver});
  return joined({start, "another program holds it. To see which, type: sudo fuser -v ", node});
}

std::string moduleFailed(std::string_view why) {
  return joined(
      {"The USB module cannot be opened: ", why, ". To see what the kernel says, type: sudo dmesg"});
}

std::string moduleGone(std::string_view why) {
  return joined({"The USB module is missing since this command (", why,
                 "). Plug it in again: the next command opens it anew"});
}

std::string moduleShort(std::size_t sent, std::size_t wanted) {
  return joined({"The USB module took only ", std::to_string(sent), " of ", std::to_string(wanted),
                 " bytes. The next command opens it anew"});
}

std::string gpioMissing() {
  return "GPIO lines are missing: this computer has no GPIO chip. To see why, type: sudo dmesg | grep gpio";
}

std::string gpioLineMissing(std::string_view line) {
  return joined({"GPIO line ", line, " is missing: no chip has a line of that name. ", kListLines});
}

std::string gpioLineTwice(std::string_view line, std::string_view node, std::string_view other) {
  if (node == other)
    return joined({"GPIO line ", line, " is ambiguous: ", node, " has it twice. ", kListLines});
  return joined({"GPIO line ", line, " is ambiguous: both ", node, " and ", other, " have it. ", kListLines});
}

std::string gpioLineBusy(std::string_view line, std::string_view holder) {
  return joined({"GPIO line ", line, " is busy: ", quoted(holder), " holds it. ", kListLines});
}

std::string gpioLineHeld(std::string_view name, std::string_view role, bool high) {
  return joined({"GPIO line ", name, " (", role, ") reads ", high ? "1 where 0" : "0 where 1",
                 " was written: it is shorted, or held by the board"});
}

std::string gpioNotPermitted(std::string_view node) {
  return joined({"No permission for the GPIO lines of ", node,
                 ". Type, in the program's folder: sudo groupadd -f gpio && sudo usermod -aG gpio $USER && "
                 "sudo cp packaging/60-tessarine.rules /etc/udev/rules.d/ && "
                 "sudo udevadm control --reload && sudo udevadm trigger (and log in again)"});
}

std::string gpioTooOld(std::string_view node) {
  return joined({"The GPIO lines of ", node,
                 " cannot be used: that takes Linux 5.10 or later. To see which it is, type: uname -r"});
}

std::string gpioFailed(std::string_view node, std::string_view why) {
  return joined(
      {"The GPIO chip ", node, " failed: ", why, ". To see what the kernel says, type: sudo dmesg"});
}

std::string gpioElsewhere(std::uint16_t base) {
  return joined({port(base), " is missing: GPIO lines stand in for 378. Enter 378 in Config, Parallel Port"});
}

std::string gpioSlow(std::string_view node, double seconds) {
  return joined({"The GPIO lines of ", node, " are slow: a change takes ",
                 std::to_string(std::lround(seconds * 1e6)),
                 " microseconds, and a word has some eighty. All works, but a load takes its time"});
}

}  // namespace tessarine::advice
