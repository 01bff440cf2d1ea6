// The faces that texts are set in, all of them sizes and weights of the application's font.
#pragma once

#include <QFont>

#include "forms/Controls.h"

namespace tessarine::desktop {

// Between groups of four bits of a word, in characters.
inline constexpr double kWordGap = 0.4;

[[nodiscard]] QFont fontOf(forms::Look look, const QFont& base);
[[nodiscard]] QFont frameTitleFont(const QFont& base);
// The program's name where a picture has room for it.
[[nodiscard]] QFont bannerFont(const QFont& base);

}  // namespace tessarine::desktop
