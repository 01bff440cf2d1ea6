// How much room a control's text takes in a font.
#pragma once

#include <QFont>
#include <QSize>

#include "desktop/Scale.h"
#include "forms/Form.h"

namespace tessarine::desktop {

// The room that the control needs as it stands, in pixels.
[[nodiscard]] QSize neededSize(const forms::Control& control, const QFont& font);

// Whether a label is high enough for more than one line: its text wraps.
[[nodiscard]] bool wraps(const forms::Label& label);

// The scale at which no text of the form is cut.
[[nodiscard]] Scale fittingScale(const forms::Form& form, const QFont& font);

// The size of the form's own area, below its menus.
[[nodiscard]] QSize contentSize(const forms::Form& form, const Scale& scale);

}  // namespace tessarine::desktop
