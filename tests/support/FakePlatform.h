// The outside as tests see it: it records every access, can be told to misbehave, and owns a clock that moves
// only when the program waits.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/Form.h"
#include "platform/Fault.h"
#include "platform/Platform.h"
#include "platform/Timetable.h"

namespace tessarine {

// The time of day in microseconds.
struct FakeClock : Clock {
  static constexpr std::int64_t kSecond = 1'000'000;
  static constexpr std::int64_t kDay = 86'400 * kSecond;

  double secondsSinceMidnight() override {
    return static_cast<double>((startOfDay + elapsed) % kDay) / static_cast<double>(kSecond);
  }
  void beep() override { ++beeps; }

  std::int64_t elapsed = 0;           // since the test began
  std::int64_t startOfDay = kSecond;  // time of day at which the test began
  int beeps = 0;
};

// Both roads to the I/O ports over one set of registers.
class FakePort : public PortDriver, public PortLibrary {
 public:
  struct Access {
    enum class Kind { write, read } kind;
    std::uint16_t address;
    std::uint8_t value;
    bool throughDriver;
    bool operator==(const Access&) const = default;
  };

  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override {
    write(address, value, true);
  }
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override { return read(address, true); }
  void OutputByte1(std::uint16_t address, std::uint8_t value) override { write(address, value, false); }
  std::uint8_t InputByte1(std::uint16_t address) override { return read(address, false); }

  // The bytes written, in order, whatever the address.
  [[nodiscard]] std::vector<int> bytes() const {
    std::vector<int> written;
    for (const auto& access : accesses)
      if (access.kind == Access::Kind::write) written.push_back(access.value);
    return written;
  }
  [[nodiscard]] int count(Access::Kind kind) const {
    const auto isOne = [kind](const Access& access) { return access.kind == kind; };
    return static_cast<int>(std::ranges::count_if(accesses, isOne));
  }
  // Each load-enable pulse with the bits clocked in since the one before, first on the wire first.
  [[nodiscard]] std::vector<std::string> latches(int clock = 1, int data = 2, int loadEnable = 4) const {
    std::vector<std::string> words;
    std::string bits;
    int before = 0;
    for (const int now : bytes()) {
      const int rising = now & ~before;
      if ((rising & clock) != 0) bits.push_back((now & data) != 0 ? '1' : '0');
      if ((rising & loadEnable) != 0) words.push_back(std::exchange(bits, {}));
      before = now;
    }
    return words;
  }

  std::vector<Access> accesses;
  // The write, counted from 1, from which on a read gives what was written. Before it, the complement.
  int echoFromWrite = 1;
  // Accesses that fail after they were recorded.
  std::function<bool(const Access&)> fails;

 private:
  void write(std::uint16_t address, std::uint8_t value, bool throughDriver) {
    ++writes_;
    record({Access::Kind::write, address, value, throughDriver});
    registers_[address] = value;
  }
  std::uint8_t read(std::uint16_t address, bool throughDriver) {
    const auto written = registers_[address];
    const auto value = writes_ >= echoFromWrite ? written : static_cast<std::uint8_t>(~written);
    record({Access::Kind::read, address, value, throughDriver});
    return value;
  }
  void record(const Access& access) {
    accesses.push_back(access);
    if (fails && fails(access)) throw std::runtime_error("the port does not work");
  }

  std::map<std::uint16_t, std::uint8_t> registers_;
  int writes_ = 0;
};

inline constexpr int kNeverEchoes = 1'000'000'000;

// Calls are recorded as texts: "open 0", "write B 4", "shift B3 B2 B1 B0 0 10110", "read B", "pin A3",
// "close".
class FakeUsb : public UsbInterface {
 public:
  void UsbOpen(int device) override { record("open " + std::to_string(device)); }
  void UsbClose() override { record("close"); }
  void UsbWritePort(std::string_view port, std::uint8_t pins) override {
    record("write " + std::string(port) + " " + std::to_string(pins));
  }
  std::uint8_t UsbReadPort(std::string_view port) override {
    record("read " + std::string(port));
    return portPins;
  }
  void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode, std::string_view word) override {
    std::string call = "shift ";
    for (const auto pin : {clockPin, dataPin, loadPin, sparePin}) call.append(pin).append(" ");
    record(call + std::to_string(mode) + " " + std::string(word));
  }
  std::uint8_t UsbReadPin(std::string_view pin) override {
    record("pin " + std::string(pin));
    return lockPin;
  }

  std::vector<std::string> calls;
  std::uint8_t portPins = 0;
  std::uint8_t lockPin = 0;
  bool fails = false;

 private:
  void record(const std::string& call) {
    calls.push_back(call);
    if (fails) throw std::runtime_error("the USB interface does not answer");
  }
};

class FakeHost : public Host {
 public:
  struct RegistryValue {
    std::uint32_t type;
    std::string data;
  };

  std::optional<HostVersion> GetVersionExA() override { return version; }
  void startPortDriver() override { startProgram("port driver"); }
  void startProgram(const std::string& path) override {
    programs.push_back(path);
    if (startFails) throw std::runtime_error("no such program: " + path);
  }
  long RegOpenKeyExA(std::uint32_t root, const std::string& key, std::uint32_t access,
                     std::uintptr_t& handle) override {
    calls.push_back("open " + std::to_string(root) + ' ' + std::to_string(access));
    handle = kHandle;
    openKey_ = key + "\\";
    const auto entry = registry.lower_bound(openKey_);
    return entry != registry.end() && entry->first.starts_with(openKey_) ? 0 : kNotFound;
  }
  long RegQueryValueExA(std::uintptr_t, const std::string& name, std::uint32_t& type,
                        std::string& data) override {
    const auto entry = registry.find(openKey_ + name);
    if (entry == registry.end()) return kNotFound;
    type = entry->second.type;
    data = entry->second.data;
    return 0;
  }
  void RegCloseKey(std::uintptr_t handle) override {
    calls.emplace_back(handle == kHandle ? "close" : "close another");
  }
  std::vector<std::string> drives() override { return roots; }

  std::optional<HostVersion> version = HostVersion{2, 5, 1};
  std::vector<std::string> programs;  // those started; the port driver's is "port driver"
  bool startFails = false;
  std::map<std::string, RegistryValue> registry;  // by "key\name"
  std::vector<std::string> calls;                 // of the registry: "open ROOT ACCESS", "close"
  std::vector<std::string> roots{"/"};

 private:
  static constexpr std::uintptr_t kHandle = 5;
  static constexpr long kNotFound = 2;

  std::string openKey_;
};

struct Message {
  std::string text;
  Icon icon;
  std::string title;
  bool operator==(const Message&) const = default;
};

// Waits move the clock to the next scheduled action or to their end. Actions run in processEvents.
class FakeScreen : public Screen {
 public:
  explicit FakeScreen(FakeClock& clock) : clock_(clock) {}

  // Runs `action` in the first processEvents at or after `milliseconds` from now.
  void at(int milliseconds, std::function<void()> action) {
    actions_.add(clock_.elapsed + milliseconds * (FakeClock::kSecond / 1000), std::move(action));
  }

  void messageBox(const std::string& text, Icon icon, const std::string& title) override {
    messages.push_back({text, icon, title});
    if (whileMessageIsOpen) whileMessageIsOpen();
  }
  void showModal(forms::Form& form) override {
    form.Show();
    {
      const forms::Modality modality(form);
      if (whileModal) whileModal(form);
    }
    if (form.Visible) form.Unload();
  }
  void repaint(forms::Control&) override {}
  void processEvents() override {
    ++eventRounds;
    while (actions_.runOne(clock_.elapsed)) continue;
    if (ended) throw ProgramEnded();
  }
  void sleepUntilEvent(double seconds) override {
    const auto span = std::llround(seconds * static_cast<double>(FakeClock::kSecond));
    const auto end = clock_.elapsed + std::max<std::int64_t>(1, span);
    clock_.elapsed = std::max(clock_.elapsed, actions_.next(end));
  }
  [[noreturn]] void endProgram() override {
    ended = true;
    throw ProgramEnded{};
  }

  std::vector<Message> messages;
  std::function<void()> whileMessageIsOpen;
  std::function<void(forms::Form&)> whileModal;
  bool ended = false;   // every handler on the way out is ended too
  int eventRounds = 0;  // how often processEvents was called

 private:
  FakeClock& clock_;
  Timetable actions_;  // by FakeClock::elapsed
};

struct FakePlatform {
  FakePlatform() = default;
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;

  FakeClock clock;
  FakePort port;
  FakeUsb usb;
  FakeHost host;
  FakeScreen screen{clock};
  Platform platform{port, port, usb, host, clock, screen};
};

}  // namespace tessarine
