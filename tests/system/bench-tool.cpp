// Helps on the emulated bench: `bench-tool hold` takes the parallel port the plain way, without asking
// whether others want it, and keeps it; `bench-tool clock` tells the milliseconds since the computer started.
#include <fcntl.h>
#include <linux/ppdev.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <ratio>
#include <string_view>

namespace {

int hold() {
  const int port = ::open("/dev/parport0", O_RDWR);
  if (port < 0 || ::ioctl(port, PPCLAIM) != 0) {
    std::perror("bench-tool");
    return 1;
  }
  return ::pause();
}

int tellTime() {
  using Milliseconds = std::chrono::duration<double, std::milli>;
  std::printf("CLOCK %.3f\n", Milliseconds(std::chrono::steady_clock::now().time_since_epoch()).count());
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const std::string_view task = count > 1 ? words[1] : "";
  if (task == "hold") return hold();
  if (task == "clock") return tellTime();
  return 2;
}
