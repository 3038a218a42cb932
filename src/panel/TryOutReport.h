#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <optional>

#include "app/TryOut.h"
#include "panel/TryOutPicture.h"

class QPrinter;

namespace touchpanel {

/// Gives the texts of the try-out their place in the catalogues.
class TryOutTexts {
  Q_DECLARE_TR_FUNCTIONS(TryOut)
};

/// A try-out as an integrator files it.
struct TryOutReport {
  QString screen;  ///< its size, in words
  QDateTime time;
  QSizeF surface;  ///< of the picture, in points
  TryOutPicture picture;
  std::size_t touches = 0;
  std::optional<TryOutResult> result;  ///< none before there were enough touches
};

/// The errors of a result as texts of the user's language, ready for a table.
struct TryOutErrors {
  QString meanPixels, largestPixels;
  QString meanMillimetres, largestMillimetres;  ///< "–" where they are not known
};
TryOutErrors errorTexts(const std::optional<TryOutResult>& result);

/// What the user is to do next.
QString tryOutHint(const TryOut& tryOut);
/// How many of the touches drifted or were slow, and how they are drawn; empty when none was.
QString unusualTouches(const TryOut& tryOut);

/// Prints `report` on one page, in the colours of paper whatever the theme is. Blocks while it does.
void print(QPrinter& printer, const TryOutReport& report);

/// Draws `report` onto one page: `page` is its printable area in units of `painter`, of which there are
/// `unitsPerPoint` to a 72nd of an inch.
void paint(QPainter& painter, const QRectF& page, double unitsPerPoint, const TryOutReport& report);

}  // namespace touchpanel
