// A USB module that exists only in software: attaches itself to the kernel's virtual host controller
// (vhci-hcd) and answers what is asked of it as an FT2232H (6010) or an FT232H (6014) does. It tells what it
// is made to do: "USB B outputs FF" and, for each transfer, the levels of the pins, "USB B levels 00080A".
//
//   usb-module PRODUCT [TRANSFERS]
//
// With TRANSFERS it is unplugged in place of taking that one. Its lock line is high between the sixth and the
// twelfth load pulse, and so on: after every other load of three words.
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;
// Of the USB/IP protocol, in network order on the wire.
using Header = std::array<std::uint32_t, 12>;
enum Word { kCommand, kNumber, kDirection = 3, kEndpoint, kStatus, kLength, kSetup = 10 };
constexpr std::uint32_t kUnlink = 2;  // the command; its reply has the number that is 2 higher, as each has

class Module {
 public:
  Module(int product, int transfers)
      : single_(product == 0x6014), product_(static_cast<std::uint8_t>(product)), transfers_(transfers) {}

  // False when nobody answers any more.
  bool serve(int kernel) {
    Header request;
    if (!whole(kernel, request)) return false;
    for (std::uint32_t& word : request) word = __builtin_bswap32(word);
    Header reply{request[kCommand] + 2, request[kNumber]};
    Bytes data;
    if (request[kCommand] == kUnlink) {
      reply[kStatus] = static_cast<std::uint32_t>(-ECONNRESET);
    } else if (request[kEndpoint] == 0) {
      if (!answer(request, data)) reply[kStatus] = static_cast<std::uint32_t>(-EPIPE);
      data.resize(std::min<std::size_t>(data.size(), request[kLength]));
      reply[kLength] = static_cast<std::uint32_t>(data.size());
    } else if (request[kDirection] != 0) {
      return true;  // nothing to read: no answer
    } else {
      Bytes levels(request[kLength]);
      if (!whole(kernel, levels) || transfers_-- == 0) return false;
      drive(request[kEndpoint] == 4, levels);
      reply[kLength] = request[kLength];
    }
    for (std::uint32_t& word : reply) word = __builtin_bswap32(word);
    return ::write(kernel, reply.data(), sizeof reply) > 0 &&
           (data.empty() || ::write(kernel, data.data(), data.size()) > 0);
  }

 private:
  struct Channel {
    std::uint8_t outputs = 0;
    std::uint8_t levels = 0;
  };

  template <class Buffer>
  static bool whole(int from, Buffer& buffer) {
    const auto size = buffer.size() * sizeof buffer[0];
    return ::recv(from, buffer.data(), size, MSG_WAITALL) == static_cast<ssize_t>(size);
  }

  void drive(bool second, const Bytes& levels) {
    std::printf("USB %c levels ", second ? 'B' : 'A');
    for (const std::uint8_t level : levels) {
      const std::uint8_t before = std::exchange(channels_[second].levels, level);
      if ((level & ~before & 2) != 0) ++pulses_;
      std::printf("%02X", level);
    }
    std::printf("\n");
  }

  // Inputs drift up.
  std::uint8_t pins(bool second) const {
    const auto& [outputs, levels] = channels_[second];
    const int lock = second ? 0 : single_ ? 0x80 : 0x08;
    const int locked = pulses_ / 6 % 2 == 1 ? lock : 0;
    return static_cast<std::uint8_t>((levels & outputs) | (~outputs & ~lock) | locked);
  }

  // A control request; false for one that is unknown.
  bool answer(const Header& request, Bytes& data) {
    const auto kind = request[kSetup] >> 16U;  // request type and request
    const unsigned high = request[kSetup] & 0xFFU;
    const unsigned low = request[kSetup] >> 8U & 0xFFU;
    const bool channelB = request[kSetup + 1] >> 24U == 2;
    const char name = channelB ? 'B' : 'A';
    if (kind == 0x8006) return descriptor(high, data);
    if (kind == 0x400B) {
      channels_[channelB].outputs = static_cast<std::uint8_t>(low);
      std::printf("USB %c outputs %02X mode %u\n", name, low, high);
    } else if (kind == 0xC00C) {
      data = {pins(channelB)};
      std::printf("USB %c pins %02X\n", name, data[0]);
    }
    return !data.empty() || kind >> 8U == 0x40 || kind >> 8U <= 0x02;  // others are settings without a trace
  }

  bool descriptor(unsigned type, Bytes& data) const {
    const std::uint8_t release = single_ ? 9 : 7;
    if (type == 1) data = {18, 1, 0, 2, 0, 0, 0, 64, 0x03, 0x04, product_, 0x60, 0, release, 0, 0, 0, 1};
    if (type == 2) {
      const std::uint8_t count = single_ ? 1 : 2;
      data = {9, 2, static_cast<std::uint8_t>(9 + 23 * count), 0, count, 1, 0, 0x80, 250};
      for (std::uint8_t i = 0; i < count; ++i) {
        const auto in = static_cast<std::uint8_t>(0x81 + 2 * i);
        const auto out = static_cast<std::uint8_t>(0x02 + 2 * i);
        data.insert(data.end(),
                    {9, 4, i, 0, 2, 0xFF, 0xFF, 0xFF, 0, 7, 5, in, 2, 0, 2, 0, 7, 5, out, 2, 0, 2, 0});
      }
    }
    return type == 1 || type == 2;
  }

  bool single_;
  std::uint8_t product_;
  int transfers_;
  std::array<Channel, 2> channels_{};
  int pulses_ = 0;
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 2;
  Module module(static_cast<int>(std::strtol(words[1], nullptr, 16)), count > 2 ? std::atoi(words[2]) : -1);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) return 1;
  std::ofstream attach("/sys/devices/platform/vhci_hcd.0/attach");
  attach << "0 " << ends[1] << " 2 3" << std::flush;  // port, socket, device, at high speed
  if (!attach) return 1;
  ::close(ends[1]);
  while (module.serve(ends[0])) {
  }
}
