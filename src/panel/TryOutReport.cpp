#include "panel/TryOutReport.h"

#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

#include "panel/Themes.h"

namespace touchpanel {
namespace {

QString number(double value) { return QLocale().toString(value, 'f', 1); }

QFont fontOf(double points, bool isBold) {
  QFont font;
  font.setPointSizeF(points);
  font.setBold(isBold);
  return font;
}

/// The largest rectangle of the shape of `size` at the top of `area`, in its middle.
QRectF fitted(const QSizeF& size, const QRectF& area) {
  const QSizeF scaled = size.scaled(area.size(), Qt::KeepAspectRatio);
  return {QPointF(area.center().x() - scaled.width() / 2, area.top()), scaled};
}

void drawPicture(QPainter& painter, const QRectF& place, const TryOutReport& report) {
  painter.save();
  painter.setPen(QPen(Qt::black, 0));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(place);
  painter.setClipRect(place);
  painter.translate(place.topLeft());
  const double scale = place.width() / report.surface.width();
  painter.scale(scale, scale);
  paint(painter, report.picture, lightPalette());
  painter.restore();
}

}  // namespace

TryOutErrors errorTexts(const std::optional<TryOutResult>& result) {
  const auto unknown = QStringLiteral("\u2013");
  TryOutErrors errors{unknown, unknown, unknown, unknown};
  if (!result) return errors;
  errors.meanPixels = number(result->pixels.mean);
  errors.largestPixels = number(result->pixels.largest);
  if (!result->millimetres) return errors;
  errors.meanMillimetres = number(result->millimetres->mean);
  errors.largestMillimetres = number(result->millimetres->largest);
  return errors;
}

QString tryOutHint(const TryOut& tryOut) {
  const auto missing = static_cast<int>(tryOut.tapsUntilResult());
  return missing > 0 ? TryOutTexts::tr("Touch the marked point. The result comes after %n more touch(es).",
                                       nullptr, missing)
                     : TryOutTexts::tr("This is the result. More touches make it more certain.");
}

QString unusualTouches(const TryOut& tryOut) {
  QStringList texts;
  const auto& manners = tryOut.manners();
  if (const auto drifted = std::ranges::count_if(manners, [](const auto& tap) { return !tap.drift.empty(); }))
    texts +=
        TryOutTexts::tr("%n touch(es) drifted: see the dotted paths.", nullptr, static_cast<int>(drifted));
  if (const auto held = std::ranges::count(manners, true, &TryOutManner::wasHeld))
    texts += TryOutTexts::tr("%n touch(es) were slow: see the squares.", nullptr, static_cast<int>(held));
  return texts.join(u' ');
}

void print(QPrinter& printer, const TryOutReport& report) {
  QPainter painter(&printer);
  paint(painter, QRectF(QPointF(), printer.pageRect(QPrinter::DevicePixel).size()),
        printer.resolution() / 72.0, report);
}

void paint(QPainter& painter, const QRectF& page, double unitsPerPoint, const TryOutReport& report) {
  const auto errors = errorTexts(report.result);
  const double line = 15 * unitsPerPoint;
  QRectF rest = page;
  const auto write = [&](const QString& text, const QFont& font, double height) {
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(QRectF(rest.topLeft(), QSizeF(rest.width(), height)), Qt::AlignLeft | Qt::AlignTop,
                     text);
    rest.setTop(rest.top() + height);
  };
  write(TryOutTexts::tr("Touchscreen try-out"), fontOf(18, true), 2 * line);
  write(QLocale().toString(report.time, QLocale::LongFormat), fontOf(10, false), line);
  write(report.screen, fontOf(10, false), line);
  write(TryOutTexts::tr("Touches: %1").arg(report.touches), fontOf(10, false), line);
  write(TryOutTexts::tr("Mean error: %1 pixels, %2 mm").arg(errors.meanPixels, errors.meanMillimetres),
        fontOf(10, true), line);
  write(
      TryOutTexts::tr("Largest error: %1 pixels, %2 mm").arg(errors.largestPixels, errors.largestMillimetres),
      fontOf(10, true), 2 * line);
  if (!report.surface.isEmpty()) drawPicture(painter, fitted(report.surface, rest), report);
}

}  // namespace touchpanel
