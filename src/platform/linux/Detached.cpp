#include "platform/linux/Detached.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/Fault.h"
#include "platform/linux/Kernel.h"

namespace tessarine {
namespace {

// Runs in the second child; uses nothing but system calls.
[[noreturn]] void runProgram(char* const* arguments, Terminal terminal, int report) {
  if (terminal == Terminal::none) {
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nothing >= 0)
      for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, stream);
  }
  ::execv(arguments[0], arguments);
  const int error = errno;
  (void)!::write(report, &error, sizeof error);
  ::_exit(127);
}

}  // namespace

void startDetached(const std::vector<std::string>& command, Terminal terminal) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);

  std::array<int, 2> report{};  // closes by itself when the program starts, else brings the error
  if (::pipe2(report.data(), O_CLOEXEC) != 0)
    throw Fault(command.front() + " cannot be started: " + errorName(errno));
  const pid_t child = ::fork();
  if (child == 0) {
    ::setsid();
    // A child of the child has nobody left to wait for it but the system, so it leaves no zombie.
    const pid_t program = ::fork();
    if (program == 0) runProgram(arguments.data(), terminal, report[1]);
    if (program < 0) {
      const int error = errno;
      (void)!::write(report[1], &error, sizeof error);
    }
    ::_exit(0);
  }
  int error = child < 0 ? errno : 0;
  ::close(report[1]);
  if (child > 0) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    ssize_t got = 0;
    do {
      got = ::read(report[0], &error, sizeof error);
    } while (got < 0 && errno == EINTR);
  }
  ::close(report[0]);
  if (error != 0) throw Fault(command.front() + " cannot be started: " + errorName(error));
}

}  // namespace tessarine
