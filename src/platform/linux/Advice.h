// Why a way out cannot be used, in one sentence that says whether it is missing, busy, without permission or
// forbidden by the kernel, and the line to type. docs/hardware.md lists them for looking up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine::advice {

// The parallel port, by its base address.
[[nodiscard]] std::string portModulesMissing(std::uint16_t base);
[[nodiscard]] std::string portElsewhere(std::uint16_t base, const std::vector<std::uint16_t>& known);
[[nodiscard]] std::string ppdevMissing(std::uint16_t base);
[[nodiscard]] std::string portNotPermitted(std::uint16_t base, std::string_view node);
[[nodiscard]] std::string portBusy(std::uint16_t base, std::string_view node, std::string_view holder);
[[nodiscard]] std::string portFailed(std::uint16_t base, std::string_view why);
[[nodiscard]] std::string portOtherwise(std::uint16_t base, std::uint8_t written, std::uint8_t read);
// The port reads FF; `known` are the ports of the kernel's driver.
[[nodiscard]] std::string portSilent(std::uint16_t base, const std::vector<std::uint16_t>& known);
// No obstacle, but a danger.
[[nodiscard]] std::string portShared(std::uint16_t base);

// Raw access.
[[nodiscard]] std::string rawNotPermitted(std::uint16_t base);
[[nodiscard]] std::string rawForbidden(std::uint16_t base);
[[nodiscard]] std::string notAParallelPort(std::uint16_t address, std::string_view owner);
[[nodiscard]] std::string noSuchRegister(std::uint16_t address);
[[nodiscard]] std::string controlRegister(std::uint16_t address);
[[nodiscard]] std::string noPortInstructions(std::uint16_t base);

// The USB module.
[[nodiscard]] std::string moduleMissing();
[[nodiscard]] std::string moduleAmongSeveral(std::size_t count, std::string_view kind,
                                             std::string_view place);
[[nodiscard]] std::string moduleNotPermitted(std::string_view node);
[[nodiscard]] std::string moduleBusy(char channel, std::string_view node, std::string_view kernelDriver);
[[nodiscard]] std::string moduleFailed(std::string_view why);
[[nodiscard]] std::string moduleGone(std::string_view why);
[[nodiscard]] std::string moduleShort(std::size_t sent, std::size_t wanted);

// GPIO lines; `line` is a name with its role, "GPIO17 (clock)".
[[nodiscard]] std::string gpioMissing();
[[nodiscard]] std::string gpioLineMissing(std::string_view line);
[[nodiscard]] std::string gpioLineTwice(std::string_view line, std::string_view node, std::string_view other);
[[nodiscard]] std::string gpioLineBusy(std::string_view line, std::string_view holder);
[[nodiscard]] std::string gpioLineHeld(std::string_view name, std::string_view role, bool high);
[[nodiscard]] std::string gpioNotPermitted(std::string_view node);
[[nodiscard]] std::string gpioTooOld(std::string_view node);
[[nodiscard]] std::string gpioFailed(std::string_view node, std::string_view why);
[[nodiscard]] std::string gpioElsewhere(std::uint16_t base);
// No obstacle, but a patience.
[[nodiscard]] std::string gpioSlow(std::string_view node, double seconds);

}  // namespace tessarine::advice
