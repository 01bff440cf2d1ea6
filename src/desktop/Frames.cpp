#include "desktop/Frames.h"

#include <QPainter>
#include <algorithm>
#include <memory>

#include "desktop/ControlWidget.h"
#include "desktop/Fonts.h"
#include "desktop/Icon.h"
#include "desktop/Style.h"
#include "platform/Platform.h"

namespace tessarine::desktop {

using forms::Aspect;

namespace {

constexpr double kPlateRadius = 6;

// A ground of its own: it covers what lies beneath.
class Plate : public QWidget, public ControlWidget {
 public:
  Plate(QWidget& parent, forms::Container& container) : QWidget(&parent), container_(container) {
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

  QWidget& widget() override { return *this; }

  void take(Aspect aspect) override {
    if (aspect != Aspect::Caption) return;
    setAccessibleName(toQt(container_.value()).trimmed());
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const Tones tones(palette());
    painter.fillRect(rect(), groundOf(*parentWidget()));
    drawBox(painter, rect(), kPlateRadius, tones.card, tones.edge);
    drawContents(painter);
  }

  virtual void drawContents(QPainter& painter) = 0;

  forms::Container& container_;
};

class FramePlate : public Plate {
 public:
  using Plate::Plate;

 protected:
  void drawContents(QPainter& painter) override {
    painter.setFont(frameTitleFont(font()));
    painter.setPen(palette().color(QPalette::WindowText));
    const int em = fontMetrics().height();
    painter.drawText(QRect(em * 3 / 4, em / 3, width() - em, em * 3 / 2), Qt::AlignLeft | Qt::AlignVCenter,
                     toQt(container_.value()).trimmed());
  }
};

// Shows the icon; where there is room beside it, the program's name too.
class Picture : public Plate {
 public:
  using Plate::Plate;

 protected:
  void drawContents(QPainter& painter) override {
    const bool banner = width() > 2 * height();
    const double margin = height() * (banner ? 0.2 : 0.02);
    const QRectF area = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    if (!banner) {
      drawIcon(painter, area);
      return;
    }
    const QRectF square(area.topLeft(), QSizeF(area.height(), area.height()));
    drawIcon(painter, square);
    painter.setFont(bannerFont(font()));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRectF(square.right() + margin, area.top(), area.width(), area.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, QString::fromLatin1(kApplicationTitle));
  }
};

class Divider : public QWidget, public ControlWidget {
 public:
  explicit Divider(QWidget& parent) : QWidget(&parent) {}
  QWidget& widget() override { return *this; }
  void take(Aspect) override {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const bool across = width() >= height();
    const QRect line = across ? QRect(0, height() / 2, width(), 1) : QRect(width() / 2, 0, 1, height());
    painter.fillRect(line, Tones(palette()).edge);
  }
};

}  // namespace

QColor groundOf(const QWidget& container) {
  const bool plate = dynamic_cast<const Plate*>(&container) != nullptr;
  return plate ? Tones(container.palette()).card : container.palette().color(QPalette::Window);
}

std::unique_ptr<ControlWidget> makeFrame(forms::Frame& frame, QWidget& parent) {
  return std::make_unique<FramePlate>(parent, frame);
}

std::unique_ptr<ControlWidget> makePictureBox(forms::PictureBox& box, QWidget& parent) {
  return std::make_unique<Picture>(parent, box);
}

std::unique_ptr<ControlWidget> makeLine(forms::Line& /*line*/, QWidget& parent) {
  return std::make_unique<Divider>(parent);
}

}  // namespace tessarine::desktop
