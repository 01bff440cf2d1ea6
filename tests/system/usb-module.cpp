// A USB module that exists only in software: attaches itself to the kernel's virtual host controller
// (vhci-hcd) and answers what is asked of it as an FT2232H (6010) or an FT232H (6014) does. It tells what it
// is made to do: "USB B outputs FF" and, for each transfer, the levels of the pins, "USB B levels 00080A".
//
//   usb-module PRODUCT [TRANSFERS [TAKEN]]
//
// With TRANSFERS it is unplugged in place of taking that one. With TAKEN it takes that many bytes of a
// transfer at most. Its lock line is high between the sixth and the twelfth load pulse, and so on: after
// every other load of three words.
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Header {  // of the USB/IP protocol, in network order on the wire
  std::array<std::uint32_t, 12> words{};
};
enum Word { kCommand, kNumber, kDirection = 3, kEndpoint, kStatus, kLength, kSetup = 10 };
enum Command : std::uint32_t { kSubmit = 1, kUnlink, kSubmitted, kUnlinked };
constexpr std::uint32_t kHighSpeed = 3;

class Module {
 public:
  Module(int product, int transfers, std::size_t taken)
      : single_(product == 0x6014), product_(product), transfers_(transfers), taken_(taken) {}

  // False when nobody answers any more.
  bool serve(int kernel) {
    Header request;
    if (!whole(kernel, request.words)) return false;
    for (std::uint32_t& word : request.words) word = __builtin_bswap32(word);
    Header reply;
    reply.words[kNumber] = request.words[kNumber];
    Bytes data;
    if (request.words[kCommand] == kUnlink) {
      reply.words[kCommand] = kUnlinked;
      reply.words[kStatus] = static_cast<std::uint32_t>(-ECONNRESET);
    } else {
      const bool in = request.words[kDirection] != 0;
      const std::uint32_t endpoint = request.words[kEndpoint];
      Bytes sent(in ? 0 : request.words[kLength]);
      if (!sent.empty() && !whole(kernel, sent)) return false;
      if (endpoint != 0 && in) return true;  // nothing to read: no answer
      reply.words[kCommand] = kSubmitted;
      if (endpoint != 0) {
        if (transfers_-- == 0) return false;
        sent.resize(std::min(sent.size(), taken_));
        drive(endpoint == 4, sent);
        reply.words[kLength] = static_cast<std::uint32_t>(sent.size());
      } else if (!answer(request, data)) {
        reply.words[kStatus] = static_cast<std::uint32_t>(-EPIPE);
      }
      if (in) data.resize(std::min<std::size_t>(data.size(), request.words[kLength]));
      if (in) reply.words[kLength] = static_cast<std::uint32_t>(data.size());
    }
    for (std::uint32_t& word : reply.words) word = __builtin_bswap32(word);
    return ::write(kernel, reply.words.data(), sizeof reply.words) > 0 &&
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

  std::uint8_t pins(bool second) const {
    const Channel& channel = channels_[second];
    const auto drifting = static_cast<std::uint8_t>(~channel.outputs);
    const std::uint8_t lock = second ? 0 : single_ ? 0x80 : 0x08;
    const bool locked = pulses_ / 6 % 2 == 1;
    return static_cast<std::uint8_t>((channel.levels & channel.outputs) | (drifting & ~lock) |
                                     (locked ? lock : 0));
  }

  // A control request; false for one that is unknown.
  bool answer(const Header& request, Bytes& data) {
    const std::uint32_t first = request.words[kSetup];
    const std::uint32_t second = request.words[kSetup + 1];
    const auto kind = first >> 16U;  // request type and request
    const auto low = static_cast<std::uint8_t>(first >> 8U);
    const auto high = static_cast<std::uint8_t>(first);
    const bool channelB = second >> 24U == 2;
    switch (kind) {
      case 0x8006:
        return descriptor(high, data);
      case 0x8000:  // status
      case 0x8100:
        data = {0, 0};
        return true;
      case 0xC005:  // of the modem's lines
        data = {1, 0x60};
        return true;
      case 0xC00A:  // latency
        data = {16};
        return true;
      case 0xC00C:
        data = {pins(channelB)};
        std::printf("USB %c pins %02X\n", channelB ? 'B' : 'A', data[0]);
        return true;
      case 0xC090:  // an empty memory for settings
        data = {0xFF, 0xFF};
        return true;
      case 0x400B:
        channels_[channelB].outputs = low;
        std::printf("USB %c outputs %02X mode %d\n", channelB ? 'B' : 'A', low, high);
        return true;
      default:
        return kind >> 8U == 0x40 || kind >> 8U <= 0x02;  // settings without a trace here
    }
  }

  bool descriptor(std::uint8_t type, Bytes& data) const {
    const auto product = static_cast<std::uint8_t>(product_);
    const std::uint8_t release = single_ ? 9 : 7;
    if (type == 1) data = {18, 1, 0, 2, 0, 0, 0, 64, 0x03, 0x04, product, 0x60, 0, release, 0, 0, 0, 1};
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
  int product_;
  int transfers_;
  std::size_t taken_;
  std::array<Channel, 2> channels_{};
  int pulses_ = 0;
};

}  // namespace

int main(int count, char** words) {
  const auto number = [&](int place, int other, int base) {
    return count > place ? static_cast<int>(std::strtol(words[place], nullptr, base)) : other;
  };
  Module module(number(1, 0x6010, 16), number(2, -1, 10), static_cast<std::size_t>(number(3, 1 << 20, 10)));
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) return 1;
  std::ofstream attach("/sys/devices/platform/vhci_hcd.0/attach");
  attach << number(4, 0, 10) << ' ' << ends[1] << " 2 " << kHighSpeed << std::flush;
  if (!attach) return 1;
  ::close(ends[1]);
  while (module.serve(ends[0])) {
  }
}
