#include "desktop/Style.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace tessarine::desktop {

namespace {

constexpr double kRadius = 4;
constexpr double kListRadius = 2;

QColor mix(const QColor& a, const QColor& b, double share) {
  const auto part = [share](float x, float y) {
    return static_cast<float>(static_cast<double>(x) * (1 - share) + static_cast<double>(y) * share);
  };
  return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()), part(a.blueF(), b.blueF()));
}

QPalette paletteOf(const char* window, const char* text, const char* base, const char* button,
                   const char* accent, const char* onAccent) {
  QPalette palette{QColor(button), QColor(window)};
  palette.setColor(QPalette::WindowText, QColor(text));
  palette.setColor(QPalette::Text, QColor(text));
  palette.setColor(QPalette::ButtonText, QColor(text));
  palette.setColor(QPalette::ToolTipText, QColor(text));
  palette.setColor(QPalette::Base, QColor(base));
  palette.setColor(QPalette::AlternateBase, mix(QColor(base), QColor(window), 0.5));
  palette.setColor(QPalette::ToolTipBase, QColor(base));
  palette.setColor(QPalette::Highlight, QColor(accent));
  palette.setColor(QPalette::HighlightedText, QColor(onAccent));
  palette.setColor(QPalette::Link, QColor(accent));
  palette.setColor(QPalette::PlaceholderText, mix(QColor(text), QColor(base), 0.5));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, mix(QColor(text), QColor(window), 0.55));
  }
  return palette;
}

bool isOn(const QStyleOption* option, QStyle::StateFlag flag) { return (option->state & flag) != 0; }

void drawChevron(QPainter& painter, const QRectF& area, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF middle = area.center();
  const double reach = std::min({area.width(), area.height(), 14.0}) / 4;
  painter.drawPolyline(QPolygonF{{middle.x() - reach, middle.y() - reach / 2},
                                 {middle.x(), middle.y() + reach / 2},
                                 {middle.x() + reach, middle.y() - reach / 2}});
  painter.restore();
}

void drawField(const QStyleOption* option, QPainter& painter, bool editable) {
  const Tones tones(option->palette);
  const bool enabled = isOn(option, QStyle::State_Enabled);
  const bool focused = enabled && isOn(option, QStyle::State_HasFocus);
  const bool hovered = enabled && isOn(option, QStyle::State_MouseOver);
  QColor fill = option->palette.color(editable ? QPalette::Base : QPalette::Button);
  if (!enabled) fill = tones.card;
  if (hovered && !editable) fill = tones.shade;
  drawBox(painter, option->rect, kRadius, fill, enabled ? tones.border : tones.edge);
  if (focused) drawFocus(painter, option->rect, kRadius, tones.accent);
}

void drawButton(const QStyleOptionButton& option, QPainter& painter) {
  const Tones tones(option.palette);
  const bool enabled = isOn(&option, QStyle::State_Enabled);
  const bool isDefault = enabled && (option.features & QStyleOptionButton::DefaultButton) != 0;
  const bool down = isOn(&option, QStyle::State_Sunken) || isOn(&option, QStyle::State_On);
  QColor fill = option.palette.color(QPalette::Button);
  QColor border = tones.border;
  if (!enabled) {
    fill = tones.card;
    border = tones.edge;
  } else if (isDefault) {
    fill = tones.accent;
    border = tones.accent;
  }
  if (enabled && down) {
    fill = mix(fill, tones.text, 0.18);
  } else if (enabled && isOn(&option, QStyle::State_MouseOver)) {
    fill = isDefault ? mix(fill, tones.onAccent, 0.12) : tones.shade;
  }
  drawBox(painter, option.rect, kRadius, fill, border);
  if (enabled && isOn(&option, QStyle::State_HasFocus)) {
    const QRectF ring = isDefault ? QRectF(option.rect).adjusted(2.5, 2.5, -2.5, -2.5) : option.rect;
    drawFocus(painter, ring, isDefault ? kRadius - 1.5 : kRadius, isDefault ? tones.onAccent : tones.accent);
  }
}

// The mark of a check box or, round, of an option button.
void drawMark(const QStyleOption* option, QPainter& painter, bool round) {
  const Tones tones(option->palette);
  const bool enabled = isOn(option, QStyle::State_Enabled);
  const bool on = isOn(option, QStyle::State_On);
  const double side = std::min(option->rect.width(), option->rect.height());
  const QRectF box(option->rect.x(), option->rect.y() + (option->rect.height() - side) / 2, side, side);
  QColor fill = on ? tones.accent : option->palette.color(QPalette::Base);
  if (!enabled) fill = on ? tones.border : tones.card;
  if (enabled && !on && isOn(option, QStyle::State_MouseOver)) fill = tones.shade;
  drawBox(painter, box, round ? side / 2 : 3, fill, on ? fill : tones.border);
  if (!on) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (round) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(tones.onAccent);
    painter.drawEllipse(box.center(), side * 0.2, side * 0.2);
  } else {
    painter.setPen(QPen(tones.onAccent, side * 0.13, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return box.topLeft() + QPointF(side * x, side * y); };
    painter.drawPolyline(QPolygonF{at(0.25, 0.53), at(0.43, 0.7), at(0.76, 0.32)});
  }
  painter.restore();
}

}  // namespace

QPalette lightPalette() {
  return paletteOf("#e9edf0", "#1c252b", "#ffffff", "#f8fafb", "#12717f", "#ffffff");
}

QPalette darkPalette() { return paletteOf("#1b2126", "#dfe5e9", "#14191d", "#2f383f", "#4fb7c4", "#0d1417"); }

Tones::Tones(const QPalette& palette)
    : text(palette.color(QPalette::WindowText)),
      muted(mix(text, palette.color(QPalette::Window), 0.3)),
      card(mix(palette.color(QPalette::Window), palette.color(QPalette::Button), 0.55)),
      edge(mix(palette.color(QPalette::Window), text, 0.12)),
      border(mix(palette.color(QPalette::Window), text, 0.3)),
      accent(palette.color(QPalette::Highlight)),
      onAccent(palette.color(QPalette::HighlightedText)),
      tint(mix(palette.color(QPalette::Base), accent, 0.2)),
      shade(mix(palette.color(QPalette::Button), accent, 0.16)) {}

void drawBox(QPainter& painter, const QRectF& box, double radius, const QColor& fill, const QColor& border) {
  // Whole device pixels: the edges are snapped, and the line is a whole number of pixels wide.
  const QTransform toDevice = painter.deviceTransform();
  const double scale = toDevice.m11();
  const double line = std::max(1.0, std::floor(scale)) / scale;
  const auto snapX = [&](double x) {
    return (std::round(x * scale + toDevice.dx()) - toDevice.dx()) / scale;
  };
  const auto snapY = [&](double y) {
    return (std::round(y * scale + toDevice.dy()) - toDevice.dy()) / scale;
  };
  const QRectF snapped(QPointF(snapX(box.left()), snapY(box.top())),
                       QPointF(snapX(box.right()), snapY(box.bottom())));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(border, line));
  painter.setBrush(fill);
  const double half = line / 2;
  painter.drawRoundedRect(snapped.adjusted(half, half, -half, -half), radius, radius);
  painter.restore();
}

void drawFocus(QPainter& painter, const QRectF& box, double radius, const QColor& accent) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(accent, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), radius - 0.5, radius - 0.5);
  painter.restore();
}

Style::Style() : QProxyStyle(QStringLiteral("fusion")) {}

void Style::polish(QWidget* widget) {
  // The base style takes every button for one that needs the ground beneath it painted.
  const bool opaque = widget->testAttribute(Qt::WA_OpaquePaintEvent);
  QProxyStyle::polish(widget);
  widget->setAttribute(Qt::WA_OpaquePaintEvent, opaque);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        drawButton(*button, *painter);
      }
      return;
    case PE_PanelLineEdit:
      // The line of an editable combo box stands in the box's own frame.
      if (const auto* panel = qstyleoption_cast<const QStyleOptionFrame*>(option); panel->lineWidth > 0) {
        drawField(option, *painter, true);
      }
      return;
    case PE_FrameLineEdit:
      return;
    case PE_IndicatorCheckBox:
      drawMark(option, *painter, false);
      return;
    case PE_IndicatorRadioButton:
      drawMark(option, *painter, true);
      return;
    case PE_FrameFocusRect:
      drawFocus(*painter, option->rect, kRadius, Tones(option->palette).accent);
      return;
    case PE_Frame: {
      const Tones tones(option->palette);
      drawBox(*painter, option->rect, kListRadius, option->palette.color(QPalette::Base), tones.border);
      if (isOn(option, State_HasFocus)) drawFocus(*painter, option->rect, kListRadius, tones.accent);
      return;
    }
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  if (element == CE_MenuItem) {
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (entry && entry->menuItemType == QStyleOptionMenuItem::Separator) {
      painter->fillRect(option->rect, option->palette.color(QPalette::Window));
      painter->fillRect(
          QRect(option->rect.left() + 6, option->rect.center().y(), option->rect.width() - 12, 1),
          Tones(option->palette).border);
      return;
    }
  }
  if (element == CE_PushButtonLabel) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (button && (button->features & QStyleOptionButton::DefaultButton) != 0 &&
        isOn(button, State_Enabled)) {
      QStyleOptionButton onAccent = *button;
      onAccent.palette.setColor(QPalette::ButtonText, button->palette.color(QPalette::HighlightedText));
      QProxyStyle::drawControl(element, &onAccent, painter, widget);
      return;
    }
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
  const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (control != CC_ComboBox || !box) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  drawField(option, *painter, box->editable);
  const QRectF arrow = proxy()->subControlRect(CC_ComboBox, box, SC_ComboBoxArrow, widget);
  drawChevron(*painter, arrow, option->palette.color(QPalette::ButtonText));
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const {
  switch (hint) {
    case SH_Widget_Animation_Duration:
      return 0;  // an idle window costs no processor time
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    case SH_ComboBox_Popup:
      return 0;  // a list below the field, not a menu over it
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
  }
}

}  // namespace tessarine::desktop
