// The USB interface on a module, by what reaches libftdi.
#include <algorithm>
#include <functional>
#include <string_view>
#include <tuple>

#include "linux/FakeKernel.h"
#include "platform/linux/LinuxPlatform.h"
#include "support/Sum.h"

namespace tessarine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;

// A module. Calls are recorded as texts, the levels of the outputs one by one.
struct FakeModule : FtdiLibrary {
  std::unique_ptr<FtdiChannel> channel(char name) override { return std::make_unique<Channel>(*this, name); }

  std::vector<std::string> taken() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
  std::vector<std::uint8_t> levels;
  int openResult = 0;
  bool unplugged = false;
  std::string failing = "none";  // calls
  int takes = 1 << 20;           // bytes of the next transfers
  std::uint8_t pinsA = 0;

 private:
  class Channel : public FtdiChannel {
   public:
    Channel(FakeModule& module, char name) : module_(module), name_(1, name) {}
    int open(int bus, int device) override {
      return record(" open " + std::to_string(bus) + " " + std::to_string(device), module_.openResult);
    }
    void close() override { record(" close", 0); }
    int setOutputs(std::uint8_t outputs) override { return record(" outputs " + hexByte(outputs), 0); }
    int setBaudRate(int rate) override { return record(" rate " + std::to_string(rate), 0); }
    int write(std::span<const std::uint8_t> levels) override {
      const int taken = std::min(static_cast<int>(levels.size()), module_.takes);
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
      return module_.unplugged || call.find(module_.failing) != std::string::npos ? kFtdiNotFound : result;
    }
    FakeModule& module_;
    std::string name_;
  };
};

struct Usb : ::testing::Test {
  Usb() {
    kernel.files = {{"/sys/bus/usb/devices/1-1/idVendor", "1d6b\n"}};
    plug("1-2", "6010", "4");
  }
  void plug(const std::string& place, const std::string& product, const std::string& device) {
    const std::string folder = "/sys/bus/usb/devices/" + place;
    kernel.files[folder + "/idVendor"] = "0403\n";
    kernel.files[folder + "/idProduct"] = product + "\n";
    kernel.files[folder + "/busnum"] = place.substr(0, 1) + "\n";
    kernel.files[folder + "/devnum"] = device + "\n";
  }
  void shift(std::string_view word) { host.usb.UsbShiftWord("B3", "B2", "B1", "B0", 0, word); }
  std::string shiftFault() {
    return faultOf([&] { shift("1"); });
  }

  FakeKernel kernel;
  FakeModule module;
  LinuxPlatform host{kernel, module, [] {}};
};

TEST_F(Usb, OpeningDrivesChannelBLowAndLeavesChannelAInput) {
  host.usb.UsbOpen(0);
  EXPECT_THAT(module.taken(), ElementsAre("B open 1 4", "B outputs FF", "B rate 62500", "B write 1",
                                          "A open 1 4", "A outputs 00", "A rate 62500"));
  EXPECT_THAT(module.levels, ElementsAre(0));
  host.usb.UsbWritePort("B", 0x0A);
  EXPECT_EQ(host.usb.UsbReadPort("B"), 0x0A);
  module.pinsA = 0x08;
  EXPECT_EQ(host.usb.UsbReadPin("A3"), 1);
  EXPECT_EQ(host.usb.UsbReadPin("A2"), 0);
  EXPECT_EQ(host.usb.UsbReadPin("B1"), 1);
  (void)module.taken();
  // Load enable drifts up first, alone.
  host.leave();
  EXPECT_THAT(module.taken(),
              ElementsAre("A outputs 00", "A close", "B write 1", "B outputs FD", "B outputs 00", "B close"));
  EXPECT_EQ(module.levels.back(), 0);
}

TEST_F(Usb, AWordIsOneTransferStepByStepOnEitherModule) {
  for (const char* const product : {"6010", "6011", "6014"}) {
    plug("1-2", product, "4");
    host.usb.UsbOpen(0);
    (void)module.taken();
    module.levels.clear();
    shift("100");  // the last character first
    EXPECT_THAT(module.taken(), ElementsAre(EndsWith("write 13")));
    EXPECT_THAT(module.levels, ElementsAre(0, 0, 8, 0, 0, 8, 0, 4, 12, 4, 0, 2, 0));
    module.levels.clear();
    shift("");
    EXPECT_THAT(module.levels, ElementsAre(0, 0, 2, 0));
  }
}

TEST_F(Usb, TheOneChannelOfASinglePortModuleServesBothPorts) {
  plug("1-2", "6014", "4");
  host.usb.UsbOpen(0);
  EXPECT_THAT(module.taken(), ElementsAre("A open 1 4", "A outputs 0F", "A rate 62500", "A write 1"));
  host.usb.UsbShiftWord("B3", "B2", "B0", "B1", 0, "");
  for (const auto& [pins, lock, portB] : {std::tuple{0x80, 1, 0}, {0x7A, 0, 0x0A}}) {
    module.pinsA = static_cast<std::uint8_t>(pins);
    EXPECT_EQ(host.usb.UsbReadPin("A3"), lock);
    EXPECT_EQ(host.usb.UsbReadPort("A"), 8 * lock);
    EXPECT_EQ(host.usb.UsbReadPort("B"), portB);
  }
  (void)module.taken();
  host.usb.UsbClose();
  EXPECT_THAT(module.taken(), ElementsAre("A write 1", "A outputs 0E", "A outputs 00", "A close"));
}

TEST_F(Usb, OfSeveralModulesTheFirstInBusOrderIsUsedAndTheOperatorTold) {
  std::vector<std::string> notes;
  host.notice = [&](const std::string& sentence) { notes.push_back(sentence); };
  kernel.files.erase("/sys/bus/usb/devices/1-2/idVendor");
  plug("1-10", "6010", "3");
  host.usb.UsbOpen(0);
  EXPECT_EQ(module.taken().front(), "B open 1 3");
  EXPECT_TRUE(notes.empty());
  plug("1-2.1", "6014", "7");
  for (int i = 0; i < 2; ++i) host.usb.UsbOpen(0);
  EXPECT_EQ(module.calls.back(), "A write 1");
  EXPECT_THAT(
      notes, ElementsAre("2 USB modules are plugged in: the first in bus order is used, the FT232H at 1-2.1. "
                         "To see where each is, type: lsusb -t"));
  host.usb.UsbOpen(1);
  EXPECT_THAT(module.taken(), Contains("B open 1 3"));
}

TEST_F(Usb, NamesThatDoNotExistAreRefusedBeforeAnythingIsOpened) {
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { host.usb.UsbWritePort("C", 0); }, "There is no USB port \"C\", only A and B"},
      {[&] { host.usb.UsbWritePort("A", 0); }, "USB port A is an input; the output is port B"},
      {[&] { (void)host.usb.UsbReadPort(""); }, "There is no USB port \"\", only A and B"},
      {[&] { (void)host.usb.UsbReadPin("A8"); }, "There is no USB pin \"A8\", only A0 to A7 and B0 to B7"},
      {[&] { host.usb.UsbShiftWord("A3", "B2", "B1", "B0", 0, "1"); },
       "USB pin A3 is an input; the outputs are B0 to B7"},
      {[&] { host.usb.UsbShiftWord("B3", "B2", "B1", "A0", 0, "1"); },
       "USB pin A0 is an input; the outputs are B0 to B7"},
      {[&] { host.usb.UsbShiftWord("B3", "B2", "B1", "B0", 1, "1"); }, "USB shift mode 1 is not 0"},
  };
  for (const auto& [action, sentence] : cases) EXPECT_EQ(faultOf(action), sentence);
  EXPECT_TRUE(module.calls.empty());
}

TEST_F(Usb, DoesAsItDidWhateverStandsInTheWay) {
  Chance chance;
  std::string all;
  host.notice = [&](const std::string& text) { all += "! " + text + '\n'; };
  std::set<std::string> told;
  host.usb.UsbOpen(0);
  for (int i = 0; i < 3000; ++i) {
    const auto pins = static_cast<std::uint8_t>(chance.random());
    const std::string name = chance.oneOf({"A0", "A3", "A3", "A7", "B0", "B1", "B2", "B3", "B7"});
    const std::string fault = faultOf([&] {
      switch (chance.random() % 12) {
        case 0:
          for (const char* const place : {"1-2", "1-2.1", "2-10"})
            if (chance.once(3))
              plug(place, chance.oneOf({"6010", "6011", "6014", "6001"}), std::to_string(4 + i % 3 * 98));
          break;
        case 1:
          kernel.files.erase(
              chance.oneOf({"/sys/bus/usb/devices/1-2/idVendor", "/sys/bus/usb/devices/2-10/idVendor"}));
          break;
        case 2:
          module.openResult = chance.oneOf({0, 0, 0, 0, kFtdiNotFound, kFtdiNotOpened, kFtdiNotClaimed, -6});
          module.failing =
              chance.oneOf({"none", "none", "A outputs", "B outputs FF", "rate", "write", "pins"});
          for (PluggedModule& plugged : pluggedModules(kernel))
            kernel.nodes[plugged.node()] = chance.result();
          for (const char* const channel : {"0", "1"})
            kernel.files[std::string("/sys/bus/usb/devices/1-2:1.") + channel + "/driver"] =
                chance.oneOf({"", "/usbfs", "/ftdi_sio"});
          break;
        case 3:
          module.takes = chance.oneOf({1000, 1000, 5});
          module.unplugged = chance.once(4);
          break;
        case 4:
          module.pinsA = pins;
          break;
        case 5:
          host.usb.UsbOpen(chance.oneOf({0, 0, 1}));
          break;
        case 6:
          chance.once(2) ? host.usb.UsbClose() : host.leave();
          break;
        case 7:
          host.usb.UsbWritePort("B", pins);
          break;
        case 8:
          all += hexByte(host.usb.UsbReadPort(chance.oneOf({"A", "B"})));
          break;
        case 9:
          all += name + std::to_string(host.usb.UsbReadPin(name));
          break;
        default:
          host.usb.UsbShiftWord("B3", "B2", "B1", "B0", 0, chance.oneOf({"1", "011", "110010"}));
      }
    });
    for (const std::string& call : module.taken()) all += call + ", ";
    for (const std::uint8_t level : module.levels) all += hexByte(level);
    module.levels.erase(module.levels.begin(), module.levels.end() - 1);
    told.insert(fault);
    all += ' ' + fault + ' ' + std::to_string(kernel.openNodes()) + '\n';
  }
  EXPECT_EQ(std::ranges::count_if(told, isInTheManual), 6);
  expectSum("usb", all, 3553064988);
}

}  // namespace
}  // namespace tessarine
