#include "panel/PanelStyle.h"

#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

namespace touchpanel {
namespace {

constexpr double kFocusWidth = 2;

QColor ink(const QStyleOption& option, float strength) {
  QColor colour = option.palette.color(QPalette::WindowText);
  colour.setAlphaF(strength);
  return colour;
}

void drawFrame(QPainter& painter, const QRect& rect, const QColor& colour, double width) {
  const double inside = width / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect).adjusted(inside, inside, -inside, -inside), 2, 2);
  painter.restore();
}

/// The outline of a button, a field or a slider's handle. What has the keyboard is framed broadly.
void outline(QPainter& painter, const QStyleOption& option, const QRect& rect) {
  const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
  drawFrame(painter, rect, hasFocus ? option.palette.color(QPalette::Highlight) : ink(option, 0.45F),
            hasFocus ? kFocusWidth : 1);
}

/// What has the keyboard, where it has no outline of its own. On a selected cell the highlight is the ground.
void focusFrame(QPainter& painter, const QStyleOption& option) {
  const auto* frame = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
  const QColor highlight = option.palette.color(QPalette::Highlight);
  const bool isOnHighlight = frame != nullptr && frame->backgroundColor == highlight;
  drawFrame(painter, option.rect, isOnHighlight ? option.palette.color(QPalette::HighlightedText) : highlight,
            kFocusWidth);
}

void indicator(QPainter& painter, const QStyleOption& option, bool isRound) {
  const double side = std::min(option.rect.width(), option.rect.height()) - 1;
  QRectF box(0, 0, side, side);
  box.moveCenter(QRectF(option.rect).center());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const bool isOn = option.state.testFlag(QStyle::State_On);
  const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
  const QColor colour = hasFocus ? option.palette.color(QPalette::Highlight) : ink(option, 0.8F);
  painter.setPen(QPen(colour, hasFocus ? 2 : 1.2));
  painter.setBrush(option.palette.color(QPalette::Base));
  if (isRound)
    painter.drawEllipse(box);
  else
    painter.drawRoundedRect(box, 2, 2);
  if (isOn && isRound) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink(option, 1));
    painter.drawEllipse(box.center(), side * 0.26, side * 0.26);
  } else if (isOn) {
    painter.setPen(QPen(ink(option, 1), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return box.topLeft() + QPointF(x, y) * side; };
    painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.42, 0.72), at(0.76, 0.3)}));
  }
  painter.restore();
}

}  // namespace

PanelStyle::PanelStyle(const QString& base)
    : QProxyStyle(base.isEmpty() ? nullptr : QStyleFactory::create(base)) {}

int PanelStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_HeaderMargin) return 9;
  if (metric == PM_FocusFrameHMargin) return 8;  // around the text of a table cell
  return QProxyStyle::pixelMetric(metric, option, widget);
}

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (isQtsOwn() && (element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox))
    return indicator(*painter, *option, element == PE_IndicatorRadioButton);
  if (isQtsOwn() && element == PE_FrameFocusRect) {
    // A button's outline shows it already.
    if (qobject_cast<const QPushButton*>(widget) == nullptr) focusFrame(*painter, *option);
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (isQtsOwn() && element == PE_PanelButtonCommand) outline(*painter, *option, option->rect);
}

void PanelStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (isQtsOwn() && control == CC_SpinBox) outline(*painter, *option, option->rect);
  if (isQtsOwn() && control == CC_Slider)
    outline(*painter, *option, subControlRect(CC_Slider, option, SC_SliderHandle, widget));
}

}  // namespace touchpanel
