#include "engine/Module1.h"

#include "engine/PLL.h"

namespace tessarine {

Module1::Module1(Platform& host) : platform(host) {}

Module1::~Module1() = default;

PLL& Module1::ThePLL() {
  if (!pll_) pll_ = std::make_unique<PLL>(*this);
  return *pll_;
}

}  // namespace tessarine
