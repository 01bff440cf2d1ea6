#include "desktop/Icon.h"

#include <QPainterPath>
#include <QPixmap>
#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>
#include <vector>

#include "desktop/IconSvg.h"

namespace tessarine::desktop {

namespace {

struct Shape {
  QPainterPath path;
  QBrush fill = Qt::NoBrush;
  QPen stroke = Qt::NoPen;
};

// The side of the drawing's view box.
constexpr double kSide = 64;

QPainterPath pathOf(const QString& data) {
  QPainterPath path;
  const QStringList words = data.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  qsizetype next = 0;
  const auto point = [&] {
    const double x = words.value(next++).toDouble();
    const double y = words.value(next++).toDouble();
    return QPointF(x, y);
  };
  while (next < words.size()) {
    const QString& command = words[next++];
    if (command == QLatin1String("M")) {
      path.moveTo(point());
    } else if (command == QLatin1String("L")) {
      path.lineTo(point());
    } else if (command == QLatin1String("C")) {
      const QPointF first = point();
      const QPointF second = point();
      path.cubicTo(first, second, point());
    } else if (command == QLatin1String("Z")) {
      path.closeSubpath();
    }
  }
  return path;
}

Shape shapeOf(QStringView element, const QXmlStreamAttributes& attributes) {
  const auto number = [&](const char* name) { return attributes.value(QLatin1String(name)).toDouble(); };
  Shape shape;
  if (element == QLatin1String("rect")) {
    shape.path.addRoundedRect(number("x"), number("y"), number("width"), number("height"), number("rx"),
                              number("rx"));
  } else {
    shape.path = pathOf(attributes.value(QLatin1String("d")).toString());
  }
  const QString fill = attributes.value(QLatin1String("fill")).toString();
  if (fill != QLatin1String("none")) shape.fill = QColor(fill);
  const QString stroke = attributes.value(QLatin1String("stroke")).toString();
  if (!stroke.isEmpty()) {
    shape.stroke = QPen(QColor(stroke), number("stroke-width"), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  }
  return shape;
}

const std::vector<Shape>& shapes() {
  static const std::vector<Shape> all = [] {
    std::vector<Shape> read;
    QXmlStreamReader reader{QLatin1String(kIconSvg)};
    while (!reader.atEnd()) {
      if (reader.readNext() != QXmlStreamReader::StartElement) continue;
      if (reader.name() == QLatin1String("rect") || reader.name() == QLatin1String("path")) {
        read.push_back(shapeOf(reader.name(), reader.attributes()));
      }
    }
    return read;
  }();
  return all;
}

}  // namespace

void drawIcon(QPainter& painter, const QRectF& area) {
  const double side = std::min(area.width(), area.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(area.center() - QPointF(side / 2, side / 2));
  painter.scale(side / kSide, side / kSide);
  for (const Shape& shape : shapes()) {
    painter.setBrush(shape.fill);
    painter.setPen(shape.stroke);
    painter.drawPath(shape.path);
  }
  painter.restore();
}

QIcon windowIcon() {
  QIcon icon;
  for (const int side : {16, 32, 64}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawIcon(painter, QRectF(0, 0, side, side));
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace tessarine::desktop
