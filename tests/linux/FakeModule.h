// A USB module, as tests see it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "linux/FakeKernel.h"
#include "platform/linux/FtdiChannel.h"

namespace tessarine {

// A module. Calls are recorded as texts, the levels of the outputs one by one.
struct FakeModule : FtdiLibrary {
  std::unique_ptr<FtdiChannel> channel(char name) override { return std::make_unique<Channel>(*this, name); }

  std::vector<std::string> taken() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
  std::vector<std::uint8_t> levels;
  int openResult = 0;
  bool unplugged = false;
  int takes = 1 << 20;  // bytes of the next transfers
  std::uint8_t pinsA = 0;

 private:
  class Channel : public FtdiChannel {
   public:
    Channel(FakeModule& module, char name) : module_(module), name_(1, name) {}
    int open(int bus, int device) override {
      if (module_.unplugged) return kFtdiNotFound;
      return record(" open " + std::to_string(bus) + " " + std::to_string(device), module_.openResult);
    }
    void close() override { record(" close", 0); }
    int setOutputs(std::uint8_t outputs) override { return record(" outputs " + hexByte(outputs), 0); }
    int setBaudRate(int rate) override { return record(" rate " + std::to_string(rate), 0); }
    int write(std::span<const std::uint8_t> levels) override {
      const int taken = std::min(static_cast<int>(levels.size()), module_.takes);
      if (!module_.unplugged)
        module_.levels.insert(module_.levels.end(), levels.begin(), levels.begin() + taken);
      return record(" write " + std::to_string(levels.size()), taken);
    }
    int readPins(std::uint8_t& pins) override {
      pins = name_ == "A" ? module_.pinsA : module_.levels.back();
      return record(" pins", 0);
    }
    std::string errorText() const override { return "usb bulk write failed"; }

   private:
    int record(const std::string& call, int result) {
      module_.calls.push_back(name_ + call);
      return module_.unplugged ? -1 : result;
    }
    FakeModule& module_;
    std::string name_;
  };
};

// Has the kernel list a module.
inline void plugModule(FakeKernel& kernel, const std::string& place, const std::string& product,
                       const std::string& device) {
  const std::string folder = "/sys/bus/usb/devices/" + place;
  kernel.files[folder + "/idVendor"] = "0403\n";
  kernel.files[folder + "/idProduct"] = product + "\n";
  kernel.files[folder + "/busnum"] = place.substr(0, 1) + "\n";
  kernel.files[folder + "/devnum"] = device + "\n";
}

}  // namespace tessarine
