// A kernel with parallel ports, as tests see it: it records every system call and can be told what stands in
// the way.
#pragma once

#include <gmock/gmock.h>
#include <linux/ppdev.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/Kernel.h"
#include "support/FaultOf.h"

namespace tessarine {

[[nodiscard]] inline std::string hexByte(long value) {
  char text[20];
  std::snprintf(text, sizeof text, "%02lX", static_cast<unsigned long>(value));
  return text;
}

// Whether docs/hardware.md has the sentence, for the operator who looks it up, and each command of the line
// to type.
[[nodiscard]] inline bool isInTheManual(std::string sentence) {
  std::ifstream file(TESSARINE_SOURCE_DIR "/docs/hardware.md");
  const std::string manual{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto holds = [&](const std::string& part) { return manual.find(part) != std::string::npos; };
  bool found = holds("\n| " + sentence.substr(0, std::min(sentence.find(". "), sentence.find(" (ppdev0)"))));
  const std::size_t line = sentence.find("ype");
  if (line == std::string::npos) return found;
  sentence.erase(0, sentence.find(": ", line) + 2);
  sentence.erase(std::min(sentence.size(), sentence.find(" (and")));
  const std::regex joints("; | && | \\| ");
  for (std::sregex_token_iterator part(sentence.begin(), sentence.end(), joints, -1), end; part != end;
       ++part)
    found = found && holds(*part);
  return found;
}

// A sentence that begins so.
[[nodiscard]] inline auto advises(const std::string& beginning) {
  return ::testing::AllOf(::testing::StartsWith(beginning), ::testing::Truly(isInTheManual));
}

// What the kernel has in store, by chance.
struct Chance {
  template <class Thing>
  Thing oneOf(std::initializer_list<Thing> things) {
    return things.begin()[random() % things.size()];
  }
  bool once(unsigned in) { return random() % in == 0; }
  int result() { return oneOf({0, 0, 0, 0, 0, 0, 0, -ENOENT, -EACCES, -EPERM, -ENXIO, -ENODEV, -EIO}); }
  std::mt19937 random{1};
};

class FakeKernel : public Kernel {
 public:
  // A port on the bus: its registers answer. `name` empty: the kernel's driver does not know it.
  void addPort(std::uint16_t base, const std::string& name) {
    for (const int offset : {0, 1, 2}) registers_[static_cast<std::uint16_t>(base + offset)] = 0;
    if (name.empty()) return;
    files[kParports + name + "/base-addr"] = std::to_string(base) + "\t0\n";
    files[kParports + name + "/devices/active"] = "none\n";
    files[kParports + std::string("default/timeslice")] = "200\n";
    bases_["/dev/" + name] = base;
    nodes["/dev/" + name] = 0;
  }
  [[nodiscard]] std::uint8_t at(std::uint16_t address) const {
    const auto found = registers_.find(address);
    return found == registers_.end() ? std::uint8_t{0xFF} : found->second;
  }
  // The system calls since the last time, one text each: "open /dev/parport0", "PPWDATA 2F", "pwrite 378 2F".
  [[nodiscard]] std::vector<std::string> taken() { return std::exchange(calls_, {}); }
  [[nodiscard]] std::size_t openNodes() const { return open_.size(); }

  int open(const std::string& path, int) override {
    const auto node = nodes.find(path);
    const int result = record("open " + path, node == nodes.end() ? -ENOENT : node->second);
    if (result < 0) return result;
    open_[nextDescriptor_] = {.path = path, .base = bases_[path]};
    return nextDescriptor_++;
  }
  void close(int descriptor) override {
    record("close", 0);
    open_.erase(descriptor);
  }
  int flock(int, int operation) override {
    return record(operation == (LOCK_EX | LOCK_NB) ? "flock" : "another flock", flockResult);
  }
  int ioctl(int descriptor, unsigned long request, void* argument) override {
    static const std::map<unsigned long, const char*> kNames = {
        {PPEXCL, "PPEXCL"},         {PPCLAIM, "PPCLAIM"},    {PPRELEASE, "PPRELEASE"},
        {PPWDATA, "PPWDATA"},       {PPRDATA, "PPRDATA"},    {PPWCONTROL, "PPWCONTROL"},
        {PPRCONTROL, "PPRCONTROL"}, {PPDATADIR, "PPDATADIR"}};
    Open& file = open_.at(descriptor);
    std::string& call = calls_.emplace_back(kNames.at(request));
    if (broken) return -EIO;
    if (request == PPCLAIM) return claim(file);
    if (request == PPEXCL) file.exclusive = true;
    const int place = request == PPWDATA || request == PPRDATA ? 0 : 2;
    const auto address = static_cast<std::uint16_t>(file.base + place);
    auto* const byte = static_cast<std::uint8_t*>(argument);
    if (request == PPWDATA || request == PPWCONTROL) {
      call += " " + hexByte(*byte);
      outb(address, *byte);
    } else if (request == PPRDATA || request == PPRCONTROL) {
      *byte = at(address);
    } else if (request == PPDATADIR) {
      call += " " + std::to_string(*static_cast<int*>(argument));
    }
    return file.claimed || request == PPEXCL ? 0 : -EPERM;
  }
  ssize_t pread(int, std::uint8_t& byte, off_t offset) override {
    byte = at(static_cast<std::uint16_t>(offset));
    return record("pread " + hexByte(offset), broken ? 0 : 1);
  }
  ssize_t pwrite(int, std::uint8_t byte, off_t offset) override {
    outb(static_cast<std::uint16_t>(offset), byte);
    return record("pwrite " + hexByte(offset) + " " + hexByte(byte), broken ? 0 : 1);
  }
  int ioperm(unsigned long first, unsigned long count) override {
    return record("ioperm " + hexByte(static_cast<long>(first)) + " " + std::to_string(count), iopermResult);
  }
  void outb(std::uint16_t address, std::uint8_t value) override {
    if (registers_.contains(address)) registers_[address] = value;
  }
  std::uint8_t inb(std::uint16_t address) override { return at(address); }
  std::optional<std::string> textOf(const std::string& path) override {
    const auto found = files.find(path);
    return found == files.end() ? std::nullopt : std::optional(found->second);
  }
  std::vector<std::string> entriesOf(const std::string& folder) override {
    std::set<std::string> names;
    const auto list = [&](const auto& paths) {
      for (const auto& [path, content] : paths)
        if (path.starts_with(folder))
          names.insert(path.substr(folder.size(), path.find('/', folder.size()) - folder.size()));
    };
    list(files);
    list(nodes);
    return {names.begin(), names.end()};
  }
  std::optional<std::string> linkOf(const std::string& path) override { return textOf(path); }
  bool isRoot() override { return root; }
  double seconds() override { return now; }

  std::map<std::string, int> nodes;          // path to the result of open: 0, or a negative errno
  std::map<std::string, std::string> files;  // and links
  int flockResult = 0;
  int iopermResult = -EPERM;
  bool othersRegistered = false;  // another client, such as the printer driver, has signed up for the port
  bool othersExclusive = false;   // and wants it alone
  bool broken = false;            // the port was pulled out
  bool root = false;
  double now = 100;
  bool waitedForEver = false;  // a claim that only a signal would have ended

 private:
  static constexpr const char* kParports = "/proc/sys/dev/parport/";

  struct Open {
    std::string path;
    std::uint16_t base = 0;
    bool exclusive = false;
    bool claimed = false;
  };

  int record(const std::string& call, int result) {
    calls_.push_back(call);
    return result;
  }
  int claim(Open& file) {
    if (othersExclusive || (file.exclusive && othersRegistered)) return -ENXIO;
    if (files[kParports + file.path.substr(5) + "/devices/active"] != "none\n") {
      waitedForEver = true;
      return -EINTR;
    }
    file.claimed = true;
    outb(static_cast<std::uint16_t>(file.base + 2), 0x0C);
    return 0;
  }

  std::vector<std::string> calls_;
  std::map<int, Open> open_;
  std::map<std::string, std::uint16_t> bases_;       // by node
  std::map<std::uint16_t, std::uint8_t> registers_;  // those that answer
  int nextDescriptor_ = 3;
};

}  // namespace tessarine
