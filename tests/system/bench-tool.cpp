// Helps on the emulated bench: `bench-tool hold` takes the parallel port the plain way, without asking whether
// others want it, and keeps it; `bench-tool nap` tells by how many milliseconds a bare sleep ends late.
#include <fcntl.h>
#include <linux/ppdev.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>

namespace {

int hold() {
  const int port = ::open("/dev/parport0", O_RDWR);
  if (port < 0 || ::ioctl(port, PPCLAIM) != 0) {
    std::perror("bench-tool");
    return 1;
  }
  return ::pause();
}

int nap() {
  using Clock = std::chrono::steady_clock;
  using Milliseconds = std::chrono::duration<double, std::milli>;
  double best = 1e9;
  for (int i = 0; i < 60; ++i) {
    const auto end = Clock::now() + std::chrono::milliseconds(10);
    std::this_thread::sleep_until(end);
    best = std::min(best, Milliseconds(Clock::now() - end).count());
  }
  std::printf("LATE %.3f\n", best);
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const std::string_view task = count > 1 ? words[1] : "";
  if (task == "hold") return hold();
  if (task == "nap") return nap();
  return 2;
}
