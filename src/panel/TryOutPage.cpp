#include "panel/TryOutPage.h"

#include <QLocale>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <memory>

#include "providers/qt/QtScreen.h"
#include "ui_MainWindow.h"

namespace touchpanel {
namespace {

QPointF toQt(Point point) { return {static_cast<double>(point.x), static_cast<double>(point.y)}; }

Point fromQt(QPointF point) { return {static_cast<float>(point.x()), static_cast<float>(point.y())}; }

}  // namespace

TryOutPage::TryOutPage(MainWindowWidget& window)
    : window_(window), clear_(*window.ui().btnTryOutClear), print_(*window.ui().btnTryOutPrint) {
  const auto& ui = window_.ui();
  auto& surface = *ui.tryOutSurface;
  surface.onPlaced = [this] { place(); };
  surface.onPress = [this](QPointF at) {
    place();
    tryOut_.press(fromQt(at));
    show();
  };
  surface.onMove = [this](QPointF at) {
    tryOut_.move(fromQt(at));
    show();
  };
  surface.onRelease = [this](QPointF at) {
    tryOut_.release(fromQt(at));
    show();
  };
  surface.onCancel = [this] {
    tryOut_.cancel();
    show();
  };
  QObject::connect(ui.btnTryOutClear, &QAbstractButton::clicked, &window_, [this] { startOver(); });
  QObject::connect(ui.btnTryOutPrint, &QAbstractButton::clicked, &window_, [this] { askForPrinter(); });
  show();
}

/// The window outlives the page and hides its surface when it goes.
TryOutPage::~TryOutPage() {
  auto& surface = *window_.ui().tryOutSurface;
  surface.onPress = surface.onMove = surface.onRelease = nullptr;
  surface.onCancel = surface.onPlaced = nullptr;
}

void TryOutPage::place() {
  const auto& surface = *window_.ui().tryOutSurface;
  tryOut_.setSurface({static_cast<float>(surface.width()), static_cast<float>(surface.height())},
                     surfaceScaleOf(surface));
  show();
}

void TryOutPage::startOver() {
  tryOut_.clear();
  show();
}

void TryOutPage::show() {
  const auto& ui = window_.ui();
  const auto errors = errorTexts(tryOut_.result());
  ui.tryOutSurface->setPicture(picture());
  ui.lbTouchCount->setText(QLocale().toString(static_cast<qulonglong>(tryOut_.taps().size())));
  ui.lbMeanPixels->setText(errors.meanPixels);
  ui.lbMeanMillimetres->setText(errors.meanMillimetres);
  ui.lbLargestPixels->setText(errors.largestPixels);
  ui.lbLargestMillimetres->setText(errors.largestMillimetres);
  ui.lbTryOutScreen->setText(screenText());
  for (auto* button : {&clear_, &print_}) button->setEnabled(!tryOut_.taps().empty());
  showInstruction();
}

void TryOutPage::showInstruction() {
  const auto missing = static_cast<int>(tryOut_.tapsUntilResult());
  window_.ui().lbTryOutHint->setText(
      missing > 0 ? TryOutTexts::tr("Touch the marked point. The result comes after %n more touch(es).",
                                    nullptr, missing)
                  : TryOutTexts::tr("This is the result. More touches make it more certain."));
}

TryOutPicture TryOutPage::picture() const {
  TryOutPicture picture;
  for (const auto& point : tryOut_.testPoints()) picture.testPoints.append(toQt(point));
  if (const auto marked = tryOut_.markedPoint()) picture.marked = toQt(*marked);
  for (const auto& tap : tryOut_.taps()) picture.taps.append(QLineF(toQt(tap.meant), toQt(tap.landed)));
  for (const auto& point : tryOut_.trail()) picture.trail.append(toQt(point));
  return picture;
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
  auto printed = picture();
  printed.marked.reset();
  printed.trail.clear();
  return {.screen = screenText(),
          .time = QDateTime::currentDateTime(),
          .surface = QSizeF(window_.ui().tryOutSurface->size()),
          .picture = std::move(printed),
          .touches = tryOut_.taps().size(),
          .result = tryOut_.result()};
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
