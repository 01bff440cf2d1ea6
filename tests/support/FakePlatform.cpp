#include "support/FakePlatform.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "forms/Form.h"
#include "platform/Fault.h"

namespace tessarine {
namespace {

constexpr std::uintptr_t kHandle = 5;
constexpr long kNotFound = 2;

}  // namespace

double FakeClock::secondsSinceMidnight() {
  return static_cast<double>((startOfDay + elapsed) % kDay) / static_cast<double>(kSecond);
}

void FakePort::write(std::uint16_t address, std::uint8_t value, bool throughDriver) {
  ++writes_;
  accesses.push_back({Access::Kind::write, address, value, throughDriver});
  if (fails && fails(accesses.back())) throw std::runtime_error("the port cannot be written");
  registers_[address] = value;
}

std::uint8_t FakePort::read(std::uint16_t address, bool throughDriver) {
  const auto written = registers_[address];
  const auto value = writes_ >= echoFromWrite ? written : static_cast<std::uint8_t>(~written);
  accesses.push_back({Access::Kind::read, address, value, throughDriver});
  if (fails && fails(accesses.back())) throw std::runtime_error("the port cannot be read");
  return value;
}

std::vector<int> FakePort::bytes() const {
  std::vector<int> written;
  for (const auto& access : accesses) {
    if (access.kind == Access::Kind::write) written.push_back(access.value);
  }
  return written;
}

int FakePort::count(Access::Kind kind) const {
  return static_cast<int>(std::count_if(accesses.begin(), accesses.end(),
                                        [kind](const Access& access) { return access.kind == kind; }));
}

std::vector<std::string> FakePort::latches(int clock, int data, int loadEnable) const {
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

void FakeUsb::record(const std::string& call) {
  calls.push_back(call);
  if (fails) throw std::runtime_error("the USB interface does not answer");
}

void FakeUsb::UsbWritePort(std::string_view port, std::uint8_t pins) {
  record("write " + std::string(port) + " " + std::to_string(pins));
}

std::uint8_t FakeUsb::UsbReadPort(std::string_view port) {
  record("read " + std::string(port));
  return portPins;
}

void FakeUsb::UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                           std::string_view sparePin, int mode, std::string_view word) {
  std::string call = "shift ";
  for (const auto pin : {clockPin, dataPin, loadPin, sparePin}) call.append(pin).append(" ");
  record(call + std::to_string(mode) + " " + std::string(word));
}

std::uint8_t FakeUsb::UsbReadPin(std::string_view pin) {
  record("pin " + std::string(pin));
  return lockPin;
}

void FakeHost::startProgram(const std::string& path) {
  programs.push_back(path);
  if (startFails) throw std::runtime_error("no such program: " + path);
}

long FakeHost::RegOpenKeyExA(std::uint32_t root, const std::string& key, std::uint32_t access,
                             std::uintptr_t& handle) {
  std::ostringstream call;
  call << "open " << std::hex << root << ' ' << access;
  calls.push_back(call.str());
  handle = kHandle;
  openKey_ = key + "\\";
  const auto entry = registry.lower_bound(openKey_);
  return entry != registry.end() && entry->first.starts_with(openKey_) ? 0 : kNotFound;
}

long FakeHost::RegQueryValueExA(std::uintptr_t, const std::string& name, std::uint32_t& type,
                                std::string& data) {
  const auto entry = registry.find(openKey_ + name);
  if (entry == registry.end()) return kNotFound;
  type = entry->second.type;
  data = entry->second.data;
  return 0;
}

void FakeHost::RegCloseKey(std::uintptr_t handle) {
  calls.emplace_back(handle == kHandle ? "close" : "close another");
}

void FakeScreen::at(int milliseconds, std::function<void()> action) {
  actions_.add(clock_.elapsed + milliseconds * (FakeClock::kSecond / 1000), std::move(action));
}

void FakeScreen::messageBox(const std::string& text, Icon icon, const std::string& title) {
  messages.push_back({text, icon, title});
  if (whileMessageIsOpen) whileMessageIsOpen();
}

void FakeScreen::showModal(forms::Form& form) {
  form.Show();
  {
    const forms::Modality modality(form);
    if (whileModal) whileModal(form);
  }
  if (form.Visible) form.Unload();
}

void FakeScreen::processEvents() {
  ++eventRounds;
  while (actions_.runOne(clock_.elapsed)) continue;
  if (ended) throw ProgramEnded();
}

void FakeScreen::sleepUntilEvent(double seconds) {
  const auto span =
      std::max<std::int64_t>(1, std::llround(seconds * static_cast<double>(FakeClock::kSecond)));
  clock_.elapsed = std::max(clock_.elapsed, actions_.next(clock_.elapsed + span));
}

void FakeScreen::endProgram() {
  ended = true;
  throw ProgramEnded{};
}

}  // namespace tessarine
