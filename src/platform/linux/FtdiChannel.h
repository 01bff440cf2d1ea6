// One channel of a USB module, at the calls of libftdi.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tessarine {

// Results are those of libftdi: negative for an error, whose text errorText() gives.
class FtdiChannel {
 public:
  virtual ~FtdiChannel() = default;
  // On the module that is this device of this bus. Takes the channel from the kernel's serial driver.
  virtual int open(int bus, int device) = 0;
  virtual void close() = 0;
  // Bit-bang: the pins of `outputs` are driven, the others are inputs.
  virtual int setOutputs(std::uint8_t outputs) = 0;
  virtual int setBaudRate(int rate) = 0;
  virtual int write(std::span<const std::uint8_t> levels) = 0;  // one transfer; gives the bytes taken
  virtual int readPins(std::uint8_t& pins) = 0;
  [[nodiscard]] virtual std::string errorText() const = 0;
};

// Results of libftdi's open that are told apart.
inline constexpr int kFtdiNotFound = -3;
inline constexpr int kFtdiNotOpened = -4;
inline constexpr int kFtdiNotClaimed = -5;
inline constexpr int kFtdiNotPermitted = -8;

class FtdiLibrary {
 public:
  virtual ~FtdiLibrary() = default;
  // `name` is 'A' or 'B'. A Fault when libftdi has no memory for it.
  [[nodiscard]] virtual std::unique_ptr<FtdiChannel> channel(char name) = 0;
};

class LibFtdi : public FtdiLibrary {
 public:
  [[nodiscard]] std::unique_ptr<FtdiChannel> channel(char name) override;
};

}  // namespace tessarine
