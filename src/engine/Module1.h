// The values that the whole program shares.
#pragma once

#include <cstdint>
#include <memory>

#include "engine/EngineView.h"
#include "engine/Types.h"

namespace tessarine {

class PLL;
class WaitWatch;
struct Platform;

struct Module1 {
  explicit Module1(Platform& host);
  ~Module1();
  Module1(const Module1&) = delete;
  Module1& operator=(const Module1&) = delete;

  // The one engine object, created on first use.
  PLL& ThePLL();

  Platform& platform;
  EngineView nobody;
  EngineView* view = &nobody;      // set by the main window, which outlives every command
  WaitWatch* waitWatch = nullptr;  // where set, told of each wait

  String CurrentModel;              // the model chosen in the menu: the key of every chip decision
  Integer PortAddress = 0;          // base address of the parallel port
  String PortType;                  // "LPT" or "USB"
  Integer UseDlPort = 0;            // non-zero: port access through the driver
  Integer PolarityNegative = 0;     // true while "Polarity Positive" is clear
  std::uint64_t WritesGivenUp = 0;  // to a port that did not give back what was written

  // The file browser's way of handing its result back.
  String BrowseResult;
  String BrowseFileName;
  String BrowsePath;
  String BrowseDrive;

 private:
  std::unique_ptr<PLL> pll_;
};

}  // namespace tessarine
