#include "platform/Version.h"

namespace tessarine {

const char* applicationVersion() { return TESSARINE_VERSION; }

}  // namespace tessarine
