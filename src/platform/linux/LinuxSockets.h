// TCP on Linux, and the wait for it.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/Sockets.h"

namespace tessarine {

struct Listening {
  std::unique_ptr<Listener> listener;
  bool isLoopback = true;  // nobody beyond this computer reaches it
};

// An empty host is 127.0.0.1, port "0" any that is free. A Fault tells why not.
[[nodiscard]] Listening listenOn(const std::string& host, const std::string& port);

// Sleeps until one of them is as watched for, or `microseconds` have passed.
void waitFor(std::span<const Interest> interests, std::int64_t microseconds);

}  // namespace tessarine
