// The outside as tests see it: it records every access, can be told to misbehave, and owns a clock that moves
// only when the program waits.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "platform/Timetable.h"

namespace tessarine {

// The time of day in microseconds.
class FakeClock : public Clock {
 public:
  static constexpr std::int64_t kSecond = 1'000'000;
  static constexpr std::int64_t kDay = 86'400 * kSecond;

  double secondsSinceMidnight() override;
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

  [[nodiscard]] std::vector<int> bytes() const;  // the bytes written, in order, whatever the address
  [[nodiscard]] int count(Access::Kind kind) const;
  // Each load-enable pulse with the bits clocked in since the one before, first on the wire first.
  [[nodiscard]] std::vector<std::string> latches(int clock = 1, int data = 2, int loadEnable = 4) const;

  std::vector<Access> accesses;
  // The write, counted from 1, from which on a read gives what was written. Before it, the complement.
  int echoFromWrite = 1;
  // Accesses that fail, with a std::runtime_error after they were recorded.
  std::function<bool(const Access&)> fails;

 private:
  void write(std::uint16_t address, std::uint8_t value, bool throughDriver);
  std::uint8_t read(std::uint16_t address, bool throughDriver);

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
  void UsbWritePort(std::string_view port, std::uint8_t pins) override;
  std::uint8_t UsbReadPort(std::string_view port) override;
  void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode, std::string_view word) override;
  std::uint8_t UsbReadPin(std::string_view pin) override;

  std::vector<std::string> calls;
  std::uint8_t portPins = 0;
  std::uint8_t lockPin = 0;
  bool fails = false;

 private:
  void record(const std::string& call);
};

class FakeHost : public Host {
 public:
  struct RegistryValue {
    std::uint32_t type;
    std::string data;
  };

  std::optional<HostVersion> GetVersionExA() override { return version; }
  void startPortDriver() override { startProgram("port driver"); }
  void startProgram(const std::string& path) override;
  long RegOpenKeyExA(std::uint32_t root, const std::string& key, std::uint32_t access,
                     std::uintptr_t& handle) override;
  long RegQueryValueExA(std::uintptr_t handle, const std::string& name, std::uint32_t& type,
                        std::string& data) override;
  void RegCloseKey(std::uintptr_t handle) override;
  std::vector<std::string> drives() override { return roots; }

  std::optional<HostVersion> version = HostVersion{2, 5, 1};
  std::vector<std::string> programs;  // those started; the port driver's is "port driver"
  bool startFails = false;
  std::map<std::string, RegistryValue> registry;  // by "key\name"
  std::vector<std::string> calls;                 // of the registry: "open ROOT ACCESS", "close"
  std::vector<std::string> roots{"/"};

 private:
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
  void at(int milliseconds, std::function<void()> action);

  void messageBox(const std::string& text, Icon icon, const std::string& title) override;
  void showModal(forms::Form& form) override;
  void repaint(forms::Control&) override {}
  void processEvents() override;
  void sleepUntilEvent(double seconds) override;
  [[noreturn]] void endProgram() override;

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
