#include "panel/TryOutPage.h"

#include <QLocale>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <memory>

#include "providers/qt/SpokenLabels.h"
#include "ui_MainWindow.h"

namespace touchpanel {

TryOutPage::TryOutPage(MainWindowWidget& window)
    : window_(window),
      clear_(*window.ui().btnTryOutClear),
      print_(*window.ui().btnTryOutPrint),
      touches_(*window.ui().tryOutSurface, TryOut::Layout::Inside) {
  const auto& ui = window_.ui();
  touches_.onChange = [this] { show(); };
  QObject::connect(ui.btnTryOutClear, &QAbstractButton::clicked, &window_, [this] { touches_.startOver(); });
  QObject::connect(ui.btnTryOutPrint, &QAbstractButton::clicked, &window_, [this] { askForPrinter(); });
  show();
}

void TryOutPage::show() {
  const auto& ui = window_.ui();
  const auto errors = errorTexts(tryOut().result());
  ui.lbTouchCount->setText(QLocale().toString(static_cast<qulonglong>(tryOut().taps().size())));
  ui.lbMeanPixels->setText(errors.meanPixels);
  ui.lbMeanMillimetres->setText(errors.meanMillimetres);
  ui.lbLargestPixels->setText(errors.largestPixels);
  ui.lbLargestMillimetres->setText(errors.largestMillimetres);
  const QString unusual = unusualTouches(tryOut());
  ui.lbTryOutUnusual->setText(unusual);
  ui.lbTryOutUnusual->setVisible(!unusual.isEmpty());
  ui.lbTryOutNote->setVisible(
      unusual.isEmpty());  // it gives way: there is no room for both in a small window
  ui.lbTryOutScreen->setText(screenText());
  for (auto* button : {&clear_, &print_}) button->setEnabled(!tryOut().taps().empty());
  const QString hint = tryOutHint(tryOut());
  if (hint == ui.lbTryOutHint->text()) return;
  ui.lbTryOutHint->setText(hint);
  announce(*ui.lbTryOutHint);
}

QString TryOutPage::screenText() const {
  const auto* screen = window_.screen();
  const QSize pixels = (QSizeF(screen->geometry().size()) * screen->devicePixelRatio()).toSize();
  const QSizeF millimetres = screen->physicalSize();
  const auto size = QStringLiteral("%1\u00A0×\u00A0%2");  // a line break would tear the numbers apart
  const auto inPixels = size.arg(pixels.width()).arg(pixels.height());
  if (millimetres.isEmpty())
    return TryOutTexts::tr("Screen: %1 pixels; it does not tell its size in millimetres.").arg(inPixels);
  return TryOutTexts::tr("Screen: %1 pixels, %2 mm")
      .arg(inPixels, size.arg(qRound(millimetres.width())).arg(qRound(millimetres.height())));
}

TryOutReport TryOutPage::report() const {
  auto printed = touches_.picture();
  printed.marked.reset();
  printed.trail.clear();
  return {.screen = screenText(),
          .time = QDateTime::currentDateTime(),
          .surface = QSizeF(window_.ui().tryOutSurface->size()),
          .picture = std::move(printed),
          .touches = tryOut().taps().size(),
          .result = tryOut().result()};
}

/// Without a printer the dialog offers to print to a PDF file.
void TryOutPage::askForPrinter() {
  const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setDocName(TryOutTexts::tr("Touchscreen try-out"));
  printer->setPageOrientation(QPageLayout::Landscape);
  auto* dialog = new QPrintDialog(printer.get(), &window_);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  // The connection keeps the printer for as long as there is a dialog.
  QObject::connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), dialog,
                   [printer, toPrint = report()] { print(*printer, toPrint); });
  dialog->open();
}

}  // namespace touchpanel
