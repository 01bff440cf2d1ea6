#include "platform/linux/Kernel.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#if defined(__x86_64__) || defined(__i386__)
#include <sys/io.h>
#endif

namespace tessarine {
namespace {

template <class Result>
Result orError(Result result) {
  return result < 0 ? -errno : result;
}

}  // namespace

int SystemKernel::open(const std::string& path, int flags) {
  return orError(::open(path.c_str(), flags | O_CLOEXEC));
}

void SystemKernel::close(int descriptor) { ::close(descriptor); }

int SystemKernel::flock(int descriptor, int operation) { return orError(::flock(descriptor, operation)); }

int SystemKernel::ioctl(int descriptor, unsigned long request, void* argument) {
  return orError(::ioctl(descriptor, request, argument));
}

ssize_t SystemKernel::pread(int descriptor, std::uint8_t& byte, off_t offset) {
  return orError(::pread(descriptor, &byte, 1, offset));
}

ssize_t SystemKernel::pwrite(int descriptor, std::uint8_t byte, off_t offset) {
  return orError(::pwrite(descriptor, &byte, 1, offset));
}

#if defined(__x86_64__) || defined(__i386__)
int SystemKernel::ioperm(unsigned long first, unsigned long count) {
  return orError(::ioperm(first, count, 1));
}

void SystemKernel::outb(std::uint16_t address, std::uint8_t value) { ::outb(value, address); }

std::uint8_t SystemKernel::inb(std::uint16_t address) { return ::inb(address); }
#else
int SystemKernel::ioperm(unsigned long, unsigned long) { return -ENOSYS; }

void SystemKernel::outb(std::uint16_t, std::uint8_t) {}

std::uint8_t SystemKernel::inb(std::uint16_t) { return 0xFF; }
#endif

std::optional<std::string> SystemKernel::textOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string text;
  std::getline(file, text, '\0');  // all of it: these are texts
  if (file.bad()) return std::nullopt;
  return text;
}

std::vector<std::string> SystemKernel::entriesOf(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  while (!error && entry != std::filesystem::directory_iterator()) {
    names.push_back(entry->path().filename().string());
    entry.increment(error);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::string> SystemKernel::linkOf(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::read_symlink(path, error);
  if (error) return std::nullopt;
  return target.string();
}

bool SystemKernel::isRoot() { return ::geteuid() == 0; }

double SystemKernel::seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::string errorName(int error) { return std::generic_category().message(error < 0 ? -error : error); }

}  // namespace tessarine
