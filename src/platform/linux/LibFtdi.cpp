#include <ftdi.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/FtdiChannel.h"

namespace tessarine {
namespace {

constexpr int kTimeout = 1000;  // ms; a word is on the module in less than one

class LibFtdiChannel : public FtdiChannel {
 public:
  explicit LibFtdiChannel(char name) : context_(ftdi_new()) {
    if (context_ == nullptr) throw Fault(advice::moduleFailed("the system offers no USB"));
    ftdi_set_interface(context_, name == 'A' ? INTERFACE_A : INTERFACE_B);
    context_->usb_write_timeout = kTimeout;
    context_->usb_read_timeout = kTimeout;
    // Without giving the channel back: the serial driver, and all that probe for modems behind it, would play
    // with the board's lines.
    context_->module_detach_mode = AUTO_DETACH_SIO_MODULE;
  }
  ~LibFtdiChannel() override { ftdi_free(context_); }
  LibFtdiChannel(const LibFtdiChannel&) = delete;
  LibFtdiChannel& operator=(const LibFtdiChannel&) = delete;

  int open(int bus, int device) override {
    return ftdi_usb_open_bus_addr(context_, static_cast<std::uint8_t>(bus),
                                  static_cast<std::uint8_t>(device));
  }
  void close() override { ftdi_usb_close(context_); }
  int setOutputs(std::uint8_t outputs) override {
    return ftdi_set_bitmode(context_, outputs, BITMODE_BITBANG);
  }
  int setBaudRate(int rate) override { return ftdi_set_baudrate(context_, rate); }
  int write(std::span<const std::uint8_t> levels) override {
    return ftdi_write_data(context_, levels.data(), static_cast<int>(levels.size()));
  }
  int readPins(std::uint8_t& pins) override { return ftdi_read_pins(context_, &pins); }
  std::string errorText() const override {
    const char* text = ftdi_get_error_string(context_);
    return text != nullptr ? text : "no reason given";
  }

 private:
  ftdi_context* context_;
};

}  // namespace

std::unique_ptr<FtdiChannel> LibFtdi::channel(char name) { return std::make_unique<LibFtdiChannel>(name); }

}  // namespace tessarine
