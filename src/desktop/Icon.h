// The program's icon, drawn sharp at any size from packaging/tessarine.svg.
#pragma once

#include <QIcon>
#include <QPainter>

namespace tessarine::desktop {

// Draws the icon into the largest square in the middle of `area`.
void drawIcon(QPainter& painter, const QRectF& area);

[[nodiscard]] QIcon windowIcon();

}  // namespace tessarine::desktop
