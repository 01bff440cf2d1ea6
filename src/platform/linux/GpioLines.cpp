#include "platform/linux/GpioLines.h"

#include <fcntl.h>
#include <linux/gpio.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string_view>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"

namespace tessarine {
namespace {

constexpr unsigned kLock = 1U << kLockRole;
constexpr unsigned kAll = ~0U;
constexpr std::string_view kConsumer = "tessarine";

// A line of the processor changes within microseconds, one behind a slow bus in a millisecond or more.
constexpr double kSlow = 0.0005;  // seconds
constexpr int kSlowOnes = 5;      // a single one is this computer's business

// Which lines of a request have their roles among `roles`, a bit each.
std::uint64_t linesOf(const GpioChip& chip, unsigned roles) {
  std::uint64_t mask = 0;
  for (std::size_t line = 0; line < chip.roles.size(); ++line)
    if ((roles >> chip.roles[line] & 1U) != 0) mask |= std::uint64_t{1} << line;
  return mask;
}

// Outputs are low.
gpio_v2_line_config configured(const GpioChip& chip, unsigned inputs) {
  gpio_v2_line_config config{};
  config.flags = GPIO_V2_LINE_FLAG_OUTPUT;
  const std::uint64_t mask = linesOf(chip, inputs);
  if (mask == 0) return config;
  config.num_attrs = 1;
  config.attrs[0].attr.id = GPIO_V2_LINE_ATTR_ID_FLAGS;
  config.attrs[0].attr.flags = GPIO_V2_LINE_FLAG_INPUT;
  config.attrs[0].mask = mask;
  return config;
}

}  // namespace

void GpioLines::open() {
  if (!taken_.empty()) return;
  try {
    for (const GpioChip& chip : chipsWith(kernel_, wires_)) take(chip);
  } catch (const Fault&) {
    leave();
    throw;
  }
  driven_ = 0;
}

void GpioLines::take(const GpioChip& chip) {
  gpio_v2_line_request request{};
  std::ranges::copy(chip.offsets, std::begin(request.offsets));
  std::ranges::copy(kConsumer, std::begin(request.consumer));
  request.config = configured(chip, kLock);
  request.num_lines = static_cast<std::uint32_t>(chip.offsets.size());
  const int node = kernel_.open(chip.node, O_RDWR);
  if (node < 0) throw Fault(advice::gpioFailed(chip.node, errorName(node)));
  const int result = kernel_.ioctl(node, GPIO_V2_GET_LINE_IOCTL, &request);
  kernel_.close(node);
  if (result == -EBUSY) {
    leave();                           // or it would be ourselves
    (void)chipsWith(kernel_, wires_);  // tells who has it
  }
  if (result == -EPERM || result == -EACCES) throw Fault(advice::gpioNotPermitted(chip.node));
  if (result < 0) throw Fault(advice::gpioFailed(chip.node, errorName(result)));
  taken_.push_back({chip, request.fd});
}

void GpioLines::call(const Taken& taken, unsigned long request, void* argument) {
  const int result = kernel_.ioctl(taken.request, request, argument);
  if (result >= 0) return;
  const std::string node = taken.chip.node;
  leave();
  throw Fault(advice::gpioFailed(node, errorName(result)));
}

void GpioLines::change(const Taken& taken, std::uint64_t mask, std::uint8_t bits) {
  gpio_v2_line_values values{};
  values.mask = mask;
  values.bits = linesOf(taken.chip, bits);
  const double begun = kernel_.seconds();
  call(taken, GPIO_V2_LINE_SET_VALUES_IOCTL, &values);
  watchSpeed(taken, kernel_.seconds() - begun);
}

void GpioLines::watchSpeed(const Taken& taken, double seconds) {
  slowOnes_ = seconds > kSlow ? slowOnes_ + 1 : 0;
  if (slowOnes_ == kSlowOnes) notice_(advice::gpioSlow(taken.chip.node, seconds));
}

void GpioLines::write(std::uint8_t bits, std::uint8_t load) {
  open();
  load_ = load;
  const unsigned changing = static_cast<unsigned>(driven_ ^ bits);
  for (const Taken& taken : taken_) {
    const std::uint64_t mask = linesOf(taken.chip, changing);
    if (mask != 0) change(taken, mask, bits);
  }
  driven_ = bits;
}

unsigned GpioLines::levels(unsigned wanted) {
  unsigned levels = 0;
  for (const Taken& taken : taken_) {
    gpio_v2_line_values values{};
    values.mask = linesOf(taken.chip, wanted);
    if (values.mask == 0) continue;
    call(taken, GPIO_V2_LINE_GET_VALUES_IOCTL, &values);
    for (std::size_t line = 0; line < taken.chip.roles.size(); ++line)
      if ((values.mask & values.bits) >> line & 1U) levels |= 1U << taken.chip.roles[line];
  }
  return levels;
}

std::uint8_t GpioLines::read() {
  open();
  unsigned lines = 0;
  for (const Taken& taken : taken_)
    for (const std::size_t role : taken.chip.roles) lines |= 1U << role;
  return static_cast<std::uint8_t>((driven_ & ~lines) | levels(~kLock));
}

bool GpioLines::lock() {
  open();
  return levels(kLock) != 0;
}

void GpioLines::leave() noexcept {
  const auto calm = [this](unsigned roles, unsigned inputs) {
    for (const Taken& taken : taken_) {
      if (linesOf(taken.chip, roles) == 0) continue;
      gpio_v2_line_config config = configured(taken.chip, inputs);
      (void)kernel_.ioctl(taken.request, GPIO_V2_LINE_SET_CONFIG_IOCTL, &config);
    }
  };
  for (const Taken& taken : taken_) {
    gpio_v2_line_values low{};
    low.mask = linesOf(taken.chip, ~kLock);
    if (low.mask != 0) (void)kernel_.ioctl(taken.request, GPIO_V2_LINE_SET_VALUES_IOCTL, &low);
  }
  // Inputs drift. Load enable goes first, alone: its edge latches the last word once more, and a clock that
  // drifts up behind it cannot shift a wrong one in.
  calm(load_, kLock | load_);
  calm(~kLock, kAll);
  for (const Taken& taken : taken_) kernel_.close(taken.request);
  taken_.clear();
}

}  // namespace tessarine
