// The few system calls under the ways out, so that tests can count them and answer in the kernel's place.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tessarine {

class Kernel {
 public:
  virtual ~Kernel() = default;

  // Each gives what the system call gives, or the negative errno.
  virtual int open(const std::string& path, int flags) = 0;
  virtual void close(int descriptor) = 0;
  virtual int flock(int descriptor, int operation) = 0;
  virtual int ioctl(int descriptor, unsigned long request, void* argument) = 0;
  virtual ssize_t pread(int descriptor, std::uint8_t& byte, off_t offset) = 0;
  virtual ssize_t pwrite(int descriptor, std::uint8_t byte, off_t offset) = 0;
  virtual int ioperm(unsigned long first, unsigned long count) = 0;  // for the calling thread alone

  // Port instructions; the calling thread must have been let in by ioperm.
  virtual void outb(std::uint16_t address, std::uint8_t value) = 0;
  virtual std::uint8_t inb(std::uint16_t address) = 0;

  // Small files of /proc and /sys; nothing where there is none or it cannot be read.
  virtual std::optional<std::string> textOf(const std::string& path) = 0;
  virtual std::vector<std::string> entriesOf(const std::string& folder) = 0;  // sorted
  virtual std::optional<std::string> linkOf(const std::string& path) = 0;

  virtual bool isRoot() = 0;
  virtual double seconds() = 0;  // steady, from any start
};

class SystemKernel : public Kernel {
 public:
  int open(const std::string& path, int flags) override;
  void close(int descriptor) override;
  int flock(int descriptor, int operation) override;
  int ioctl(int descriptor, unsigned long request, void* argument) override;
  ssize_t pread(int descriptor, std::uint8_t& byte, off_t offset) override;
  ssize_t pwrite(int descriptor, std::uint8_t byte, off_t offset) override;
  int ioperm(unsigned long first, unsigned long count) override;
  void outb(std::uint16_t address, std::uint8_t value) override;
  std::uint8_t inb(std::uint16_t address) override;
  std::optional<std::string> textOf(const std::string& path) override;
  std::vector<std::string> entriesOf(const std::string& folder) override;
  std::optional<std::string> linkOf(const std::string& path) override;
  bool isRoot() override;
  double seconds() override;
};

// Held during each operation on the hardware. A thread that brings the lines to rest because a signal ends
// the program takes it and keeps it, so that nothing is written after that. Free of system calls while nobody
// waits.
using Gate = std::timed_mutex;

// "No such device", and so on.
[[nodiscard]] std::string errorName(int error);

}  // namespace tessarine
