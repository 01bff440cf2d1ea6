// GPIO lines, by their system calls.
#include <linux/gpio.h>

#include <cstring>

#include "linux/FakeKernel.h"
#include "platform/linux/GpioPlatform.h"
#include "support/Sum.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// Chips by node, each with its lines' names. What happens to lines is recorded as texts.
struct GpioKernel : FakeKernel {
  std::map<std::string, std::vector<std::string>> chips;
  std::map<std::string, std::string> holders;  // of lines
  std::map<std::string, int> level;
  std::vector<std::string> calls;
  double changeTakes = 0;
  int result = 0;  // of whatever changes a line
  int takeResult = 0;
  std::string failing;  // only the chip with this line first, if any
  int infoResult = 0;
  std::set<int> requested;  // descriptors

  void add(const std::string& chip, std::vector<std::string> lines) {
    chips["/dev/" + chip] = std::move(lines);
    nodes["/dev/" + chip] = 0;
  }
  int open(const std::string& path, int flags) override {
    const int descriptor = FakeKernel::open(path, flags);
    if (descriptor >= 0 && chips.contains(path)) lines_[descriptor] = chips[path];
    return descriptor;
  }
  void close(int descriptor) override {
    FakeKernel::close(descriptor);
    if (requested.erase(descriptor) != 0) calls.emplace_back("give back");
  }
  int ioctl(int descriptor, unsigned long request, void* argument) override {
    if (!lines_.contains(descriptor)) return -ENOTTY;
    const std::vector<std::string>& lines = lines_[descriptor];
    if (request == GPIO_GET_CHIPINFO_IOCTL) {
      static_cast<gpiochip_info*>(argument)->lines = static_cast<std::uint32_t>(lines.size());
    } else if (request == GPIO_V2_GET_LINEINFO_IOCTL) {
      if (infoResult < 0) return infoResult;
      auto& info = *static_cast<gpio_v2_line_info*>(argument);
      std::strncpy(info.name, lines[info.offset].c_str(), sizeof info.name - 1);
      const auto isOurs = [&](int taken) { return std::ranges::count(lines_[taken], info.name) != 0; };
      const bool isHeld = holders.contains(info.name);
      if (!isHeld && std::ranges::none_of(requested, isOurs)) return 0;
      info.flags = GPIO_V2_LINE_FLAG_USED;
      std::strncpy(info.consumer, isHeld ? holders[info.name].c_str() : "tessarine",
                   sizeof info.consumer - 1);
    } else if (request == GPIO_V2_GET_LINE_IOCTL) {
      if (takeResult == -EBUSY) holders["GPIO17"] = "spi0 CS0";  // just now
      if (takeResult < 0 && (failing.empty() || failing == lines[0])) return takeResult;
      auto& taken = *static_cast<gpio_v2_line_request*>(argument);
      taken.fd = 100 + descriptor;
      for (std::size_t i = 0; i < taken.num_lines; ++i) lines_[taken.fd].push_back(lines[taken.offsets[i]]);
      requested.insert(taken.fd);
      configure(std::string(taken.consumer) == "tessarine" ? "take" : taken.consumer, lines_[taken.fd],
                taken.config);
    } else if (result < 0) {
      return result;
    } else if (request == GPIO_V2_LINE_SET_CONFIG_IOCTL) {
      configure("make", lines, *static_cast<gpio_v2_line_config*>(argument));
    } else {
      auto& values = *static_cast<gpio_v2_line_values*>(argument);
      const bool sets = request == GPIO_V2_LINE_SET_VALUES_IOCTL;
      std::string call = "set";
      for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::uint64_t bit = std::uint64_t{1} << i;
        if ((values.mask & bit) == 0) continue;
        int& high = level[lines[i]];
        if (!sets && high != 0) values.bits |= bit;
        if (sets) high = (values.bits & bit) != 0 ? 1 : 0;
        call += " " + lines[i] + "=" + std::to_string(high);
      }
      if (!sets) return 0;
      now += changeTakes;
      calls.push_back(call);
    }
    return 0;
  }

 private:
  void configure(std::string call, const std::vector<std::string>& lines, const gpio_v2_line_config& config) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const bool other = config.num_attrs != 0 && (config.attrs[0].mask >> i & 1U) != 0 &&
                         config.attrs[0].attr.id == GPIO_V2_LINE_ATTR_ID_FLAGS;
      const std::uint64_t flags = other ? config.attrs[0].attr.flags : config.flags;
      call += " " + lines[i] +
              (flags == GPIO_V2_LINE_FLAG_INPUT    ? ":in"
               : flags == GPIO_V2_LINE_FLAG_OUTPUT ? ":out"
                                                   : ":?");
    }
    calls.push_back(call);
  }
  std::map<int, std::vector<std::string>> lines_;  // of chips and of requests
};

struct Gpio : ::testing::Test {
  Gpio() {
    kernel.add("gpiochip0", {"ID_SDA", "", "LOCK", "LOAD", "GPIO17", "DATA", "SIX"});
    kernel.nodes["/dev/tty"] = 0;
  }
  void write(unsigned value) { host.driver.DlPortWritePortUchar(0x378, static_cast<std::uint8_t>(value)); }
  std::uint8_t read() { return host.driver.DlPortReadPortUchar(0x378); }
  std::vector<std::string> taken() { return std::exchange(kernel.calls, {}); }

  GpioKernel kernel;
  std::uint8_t loadPins = 4;
  GpioPlatform host{
      kernel, {"GPIO17", "DATA", "LOAD", "", "SIX", "", "", "", "LOCK"}, [this] { return loadPins; }, [] {}};
};

TEST_F(Gpio, TheConnectorsPinsAreLinesAndThoseWithoutOneAreRemembered) {
  kernel.add("gpiochip1", kernel.chips["/dev/gpiochip0"]);
  kernel.files["/dev/gpiochip1"] = "gpiochip0";  // the same chip by another name
  kernel.nodes["/dev/gpiochip2"] = -EACCES;      // a stranger's
  write(0);
  EXPECT_THAT(taken(), ElementsAre("take DATA:out GPIO17:out LOAD:out SIX:out LOCK:in"));
  write(0xA3);
  write(0x97);
  write(0x97);
  EXPECT_THAT(taken(), ElementsAre("set DATA=1 GPIO17=1", "set LOAD=1 SIX=1"));
  EXPECT_EQ(read(), 0x97);
  kernel.level["SIX"] = 0;
  EXPECT_EQ(read(), 0x87);
  EXPECT_EQ(host.whyNotOpen(),
            "GPIO line SIX (pin6) reads 0 where 1 was written: it is shorted, or held by the board");
  EXPECT_TRUE(isInTheManual("GPIO line GPIO17 (clock) reads 0 where 1 was written"));
}

TEST_F(Gpio, AtTheEndLoadEnableAsItIsWiredBecomesAnInputFirst) {
  for (const auto& [pins, first] : {std::pair{4, "make DATA:out GPIO17:out LOAD:in SIX:out LOCK:in"},
                                    {1, "make DATA:out GPIO17:in LOAD:out SIX:out LOCK:in"}}) {
    loadPins = static_cast<std::uint8_t>(pins);
    write(0xFF);
    (void)taken();
    host.leave();
    EXPECT_THAT(taken(), ElementsAre("set DATA=0 GPIO17=0 LOAD=0 SIX=0", first,
                                     "make DATA:in GPIO17:in LOAD:in SIX:in LOCK:in", "give back"));
  }
  write(1);
  EXPECT_THAT(taken(), ElementsAre(StartsWith("take "), "set GPIO17=1")) << "opened anew";
}

TEST_F(Gpio, AsTheModuleTheySendAWordOnLinesOfTwoChips) {
  kernel.add("gpiochip0", {"LOCK", "LOAD", "SIX"});
  kernel.add("gpiochip1", {"DATA", "GPIO17"});
  host.usb.UsbOpen(0);
  EXPECT_THAT(taken(), ElementsAre("take DATA:out GPIO17:out", "take LOAD:out SIX:out LOCK:in"));
  host.usb.UsbShiftWord("B3", "B2", "B1", "B0", 0, "10");
  EXPECT_THAT(taken(), ElementsAre("set GPIO17=1", "set GPIO17=0", "set DATA=1", "set GPIO17=1",
                                   "set GPIO17=0", "set DATA=0", "set LOAD=1", "set LOAD=0"));
  host.usb.UsbWritePort("B", 0xF9);
  EXPECT_EQ(host.usb.UsbReadPort("B"), 0xF9);
  for (const int lock : {1, 0}) {
    kernel.level["LOCK"] = lock;
    EXPECT_EQ(host.usb.UsbReadPin("A3"), lock);
    EXPECT_EQ(host.usb.UsbReadPort("A"), 8 * lock);
  }
  (void)taken();
  host.usb.UsbClose();
  EXPECT_THAT(taken(),
              ElementsAre("set DATA=0 GPIO17=0", "set LOAD=0 SIX=0", "make LOAD:in SIX:out LOCK:in",
                          "make DATA:in GPIO17:in", "make LOAD:in SIX:in LOCK:in", "give back", "give back"));
  for (int opened = 0; opened < 2; ++opened) {
    EXPECT_EQ(host.usb.UsbReadPort("B"), 0) << "opened anew";
    host.usb.UsbWritePort("B", 0xF9);
    host.usb.UsbOpen(0);
  }
  EXPECT_EQ(std::ranges::count(taken(), "give back"), 4);
  host.leave();
  EXPECT_EQ(host.usb.UsbReadPin("A3"), 0);
  EXPECT_EQ(std::ranges::count(taken(), "give back"), 2);
}

TEST_F(Gpio, DoAsTheyDidWhateverStandsInTheWay) {
  Chance chance;
  std::string all;
  host.notice = [&](const std::string& text) { all += "! " + text + '\n'; };
  std::set<std::string> told;
  for (int i = 0; i < 5000; ++i) {
    kernel.now += chance.oneOf({0.0, 0.3, 0.99, 1.0});
    const auto value = static_cast<std::uint8_t>(chance.random());
    const std::string fault = faultOf([&] {
      switch (chance.random() % 24) {
        case 0:
          kernel.nodes[chance.oneOf({"/dev/gpiochip0", "/dev/gpiochip1"})] =
              chance.once(3) ? chance.result() : 0;
          break;
        case 1:
          kernel.takeResult = chance.oneOf({0, 0, 0, -EPERM, -EACCES, -EBUSY, -EIO});
          kernel.failing = chance.oneOf({"", "ID_SDA", "DATA"});
          break;
        case 2:
          kernel.infoResult = chance.oneOf({0, 0, 0, -EINVAL, -ENOTTY});
          break;
        case 3:
          kernel.result = chance.oneOf({0, 0, 0, -EIO});
          break;
        case 4:
          kernel.holders = chance.once(4) ? std::map<std::string, std::string>{{"GPIO17", "spi0 CS0"}}
                                          : std::map<std::string, std::string>{};
          break;
        case 5:
          kernel.chips["/dev/gpiochip0"][0] = chance.oneOf({"GPIO17", "ID_SDA", "ID_SDA", "ID_SDA"});
          kernel.chips["/dev/gpiochip0"][4] = chance.oneOf({"GPIO17", "GPIO17", "17"});
          kernel.add("gpiochip1", {chance.oneOf({"GPIO17", "x", "x"})});
          break;
        case 6:
          kernel.level[chance.oneOf({"SIX", "LOCK", "GPIO17"})] = chance.oneOf({0, 1});
          break;
        case 7:
          kernel.changeTakes = chance.oneOf({0.00001, 0.0005, 0.0006});
          loadPins = chance.oneOf({std::uint8_t{1}, std::uint8_t{4}});
          break;
        case 8:
          chance.once(2) ? host.leave() : host.usb.UsbClose();
          break;
        case 9:
          chance.once(2) ? host.usb.UsbOpen(0) : host.usb.UsbWritePort("B", value);
          break;
        case 10:
          all += hexByte(host.usb.UsbReadPort(chance.oneOf({"A", "B"})));
          break;
        case 11:
          host.usb.UsbShiftWord("B3", "B2", "B1", "B0", 0, chance.oneOf({"1", "011", "110010"}));
          break;
        case 12:
        case 13:
          all += hexByte(read());
          break;
        default:
          host.driver.DlPortWritePortUchar(chance.oneOf<std::uint16_t>({0x378, 0x378, 0x37A}), value);
      }
    });
    for (const std::string& call : taken()) all += call + ", ";
    told.insert(fault);
    all += fault + ' ' + std::to_string(kernel.requested.size() + kernel.openNodes()) + ' ' +
           host.whyNotOpen() + '\n';
  }
  EXPECT_EQ(std::ranges::count_if(told, isInTheManual), 7);
  expectSum("gpio", all, 1023873557);
}

TEST(GpioWiresFile, SaysWhichLineIsWhichOrWhatIsWrongWithIt) {
  const std::string three = "clock A # c\n data\tB\r\nload P9 12\n";
  for (const auto& [text, outcome] : {
           std::pair{three, "A,B,P9 12,,,,,,,"},
           {three + "\n# x\npin9 N\nlock L", "A,B,P9 12,,,,,N,L,"},
           {three + "reset R\n", ", line 4: \"reset\" is no role"},
           {three + "clock C\n", ", line 4: clock stands there twice"},
           {three + "lock A\n", ", line 4: \"A\" stands there twice"},
           {three + "lock # L\n", ", line 4: lock names no line"},
           {std::string("data A\nload C\n"), " leaves out clock"},
           {std::string("clock A\nload C\n"), " leaves out data"},
           {std::string("clock A\ndata C\n"), " leaves out load"},
       }) {
    const TempFile file(text);
    std::string got;
    const std::string fault = faultOf([&] {
      for (const std::string& name : readGpioWires(file.path())) got += name + ",";
    });
    EXPECT_EQ(got.empty() ? fault.substr(file.path().size()) : got, outcome);
  }
  for (const char* const path : {"/nowhere", "/dev", "/dev/zero"})
    EXPECT_EQ(faultOf([&] { (void)readGpioWires(path); }), path + std::string(" cannot be read"));
}

}  // namespace
}  // namespace tessarine
