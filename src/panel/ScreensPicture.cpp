#include "panel/ScreensPicture.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "platform/ShowableText.h"

namespace touchpanel {
namespace {

constexpr double kMargin = 6, kGap = 2;

QString textOf(const std::string& text) { return QString::fromStdString(showableText(text)); }

/// How far `to` is from `from` in the direction of `key`; below 0 when it is not there.
double stepTowards(int key, const QPointF& from, const QPointF& to) {
  const QPointF way = to - from;
  switch (key) {
    case Qt::Key_Left:
      return -way.x();
    case Qt::Key_Right:
      return way.x();
    case Qt::Key_Up:
      return -way.y();
    default:
      return way.y();
  }
}

}  // namespace

void ScreensPicture::show(const ShownScreens& screens) {
  screens_ = screens;
  update();
}

QRectF ScreensPicture::areaOf(std::size_t screen) const {
  const auto& desktop = screens_.desktop;
  const double scale = std::min((width() - 2 * kMargin) / std::max(desktop.width, 1),
                                (height() - 2 * kMargin) / std::max(desktop.height, 1));
  const QPointF corner((width() - desktop.width * scale) / 2, (height() - desktop.height * scale) / 2);
  const auto& [x, y, wide, high] = desktop.monitors[screen].area;
  return QRectF(corner.x() + x * scale, corner.y() + y * scale, wide * scale, high * scale)
      .adjusted(kGap, kGap, -kGap, -kGap);
}

void ScreensPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (std::size_t index = 0; index < screens_.desktop.monitors.size(); ++index) {
    const bool isMarked = index == screens_.screen;
    const QRectF area = areaOf(index);
    const auto ink = palette().color(isMarked ? QPalette::HighlightedText : QPalette::Text);
    // The frame is thicker, too, where colours do not differ.
    painter.setPen(QPen(palette().color(QPalette::Text), isMarked ? 3 : 1));
    painter.setBrush(palette().color(isMarked ? QPalette::Highlight : QPalette::Base));
    painter.drawRoundedRect(area, 4, 4);
    painter.setPen(ink);
    QFont large = font();
    large.setPixelSize(std::max(12, qRound(std::min(area.height() * 0.4, area.width() * 0.4))));
    large.setBold(true);
    painter.setFont(large);
    const QRectF upper = area.adjusted(4, 4, -4, -area.height() * 0.5);
    painter.drawText(upper, Qt::AlignCenter, QLocale().toString(qulonglong{index} + 1));
    painter.setFont(font());
    QStringList lines{textOf(screens_.desktop.monitors[index].name)};
    for (const auto& touchscreen : screens_.touchscreens)
      if (touchscreen.screen == index) lines << textOf(touchscreen.name);
    for (auto& line : lines)
      line = painter.fontMetrics().elidedText(line, Qt::ElideMiddle, static_cast<int>(area.width()) - 8);
    painter.drawText(
        QRectF(area.left() + 4, upper.bottom(), area.width() - 8, area.bottom() - upper.bottom() - 4),
        Qt::AlignHCenter | Qt::AlignTop, lines.join(u'\n'));
  }
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ScreensPicture::mousePressEvent(QMouseEvent* event) {
  for (std::size_t index = 0; index < screens_.desktop.monitors.size(); ++index)
    if (areaOf(index).contains(event->position())) return onMark(index);
}

void ScreensPicture::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return onAssign();
  if (key < Qt::Key_Left || key > Qt::Key_Down) return QWidget::keyPressEvent(event);
  const QPointF from = areaOf(screens_.screen).center();
  std::optional<std::size_t> nearest;
  double least = 0;
  for (std::size_t index = 0; index < screens_.desktop.monitors.size(); ++index) {
    const QPointF way = areaOf(index).center() - from;
    const double step = stepTowards(key, from, areaOf(index).center());
    // Not to one that lies more aside than ahead.
    const double away = way.manhattanLength();
    if (step <= 0 || 2 * step < away || (nearest && away >= least)) continue;
    nearest = index;
    least = away;
  }
  if (nearest) onMark(*nearest);
}

}  // namespace touchpanel
