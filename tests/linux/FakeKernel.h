// A kernel with parallel ports, as tests see it: it records every system call and can be told what stands in
// the way.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/linux/Kernel.h"

namespace tessarine {

class FakeKernel : public Kernel {
 public:
  // A port on the bus: its registers answer. `name` empty: the kernel's driver does not know it.
  void addPort(std::uint16_t base, const std::string& name);

  int open(const std::string& path, int flags) override;
  void close(int descriptor) override;
  int flock(int descriptor, int operation) override;
  int ioctl(int descriptor, unsigned long request, void* argument) override;
  ssize_t pread(int descriptor, std::uint8_t& byte, off_t offset) override;
  ssize_t pwrite(int descriptor, std::uint8_t byte, off_t offset) override;
  int ioperm(unsigned long first, unsigned long count) override;
  void outb(std::uint16_t address, std::uint8_t value) override { registers_[address] = value; }
  std::uint8_t inb(std::uint16_t address) override { return at(address); }
  std::optional<std::string> textOf(const std::string& path) override;
  std::vector<std::string> entriesOf(const std::string& folder) override;
  std::optional<std::string> linkOf(const std::string& path) override { return textOf(path); }
  bool isRoot() override { return root; }
  double seconds() override { return now; }

  [[nodiscard]] std::uint8_t at(std::uint16_t address) const;
  // The system calls since the last time, one text each: "open /dev/parport0", "PPWDATA 2F", "pwrite 378 2F".
  [[nodiscard]] std::vector<std::string> taken();

  std::map<std::string, int> nodes;          // path to the result of open: 0, or a negative errno
  std::map<std::string, std::string> files;  // and links
  int flockResult = 0;
  int iopermResult = -1;          // -EPERM
  bool othersRegistered = false;  // another client, such as the printer driver, has signed up for the port
  bool othersExclusive = false;   // and wants it alone
  bool broken = false;            // the port was pulled out
  bool root = false;
  double now = 100;
  bool waitedForEver = false;  // a claim that only a signal would have ended

 private:
  struct Open {
    std::string path;
    std::uint16_t base = 0;
    bool exclusive = false;
    bool claimed = false;
  };

  int claim(Open& file);

  std::vector<std::string> calls_;
  std::map<int, Open> open_;
  std::map<std::string, std::uint16_t> parports_;  // node to base
  std::map<std::uint16_t, std::uint8_t> registers_;
  std::set<std::uint16_t> answering_;
  int nextDescriptor_ = 3;
};

[[nodiscard]] std::string hexByte(unsigned value);

// Whether docs/hardware.md has the sentence, for the operator who looks it up, and each command of the line
// to type.
[[nodiscard]] bool isInTheManual(std::string sentence);

}  // namespace tessarine
