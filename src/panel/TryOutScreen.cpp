#include "panel/TryOutScreen.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "panel/TryOutReport.h"
#include "providers/qt/QtScreen.h"
#include "providers/qt/SpokenLabels.h"

namespace touchpanel {
namespace {

/// Letters of this height are read at three metres.
constexpr double kFarLetterMillimetres = 12;
/// Their bounds as parts of the screen's height: a small screen is not read from a distance.
constexpr double kSmallestLetter = 0.035, kLargestLetter = 0.055;

QLabel* textOf(QLayout& column) {
  auto* label = new QLabel;
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  column.addWidget(label);
  return label;
}

}  // namespace

TryOutScreen::TryOutScreen(QWidget& owner)
    : QWidget(&owner, Qt::Window | Qt::FramelessWindowHint),
      owner_(owner),
      surface_(new TryOutSurface(this)),
      texts_(makeTexts()),
      end_(new QPushButton(TryOutTexts::tr("&Close"))),
      touches_(*surface_, TryOut::Layout::ToTheEdges) {
  setObjectName("tryOutScreen");
  end_->setObjectName("btnTryOutClose");
  setWindowTitle(TryOutTexts::tr("Touchscreen try-out"));
  surface_->setAccessibleName(windowTitle());
  surface_->setFocusPolicy(Qt::NoFocus);
  // Between the upper and the middle row of test points, and the button between the middle and the lower one.
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addStretch(1);
  column->addWidget(texts_);
  column->addStretch(3);
  column->addWidget(end_, 0, Qt::AlignHCenter);
  column->addStretch(1);
  touches_.onChange = [this] { showTexts(); };
  connect(end_, &QAbstractButton::clicked, this, &QWidget::close);
}

QWidget* TryOutScreen::makeTexts() {
  auto* texts = new QWidget;
  texts->setAttribute(Qt::WA_TransparentForMouseEvents);  // a touch between the letters is a touch, too
  auto* column = new QVBoxLayout(texts);
  column->setSpacing(4);
  hint_ = textOf(*column);
  count_ = textOf(*column);
  mean_ = textOf(*column);
  largest_ = textOf(*column);
  unusual_ = textOf(*column);
  note_ = textOf(*column);
  note_->setText(TryOutTexts::tr("Escape or F11 ends the try-out. It changes nothing."));
  hint_->setProperty("announced", true);
  return texts;
}

void TryOutScreen::open(QScreen& screen) {
  touches_.startOver();
  setScreen(&screen);  // where windows do not place themselves
  setGeometry(screen.geometry());
  showFullScreen();
  raise();
  activateWindow();
  setFocus();
}

void TryOutScreen::resizeEvent(QResizeEvent* /*event*/) {
  surface_->setGeometry(rect());
  surface_->lower();
  scaleTexts();
}

void TryOutScreen::scaleTexts() {
  const auto scale = surfaceScaleOf(*this);
  const double perPoint = scale.millimetres ? scale.millimetres->perPointY : 0;
  const double wanted = perPoint > 0 ? kFarLetterMillimetres / perPoint : 0;
  const double large = std::clamp(wanted, kSmallestLetter * height(), kLargestLetter * height());
  const auto set = [](QLabel* label, double pixels, bool isBold) {
    QFont font = label->font();
    font.setPixelSize(std::max(1, qRound(pixels)));
    font.setBold(isBold);
    label->setFont(font);
  };
  for (auto* label : {count_, mean_, largest_}) set(label, large, true);
  for (auto* label : {hint_, unusual_, note_}) set(label, large * 0.6, false);
  end_->setMinimumSize(qRound(large * 5), qRound(large * 1.6));
  QFont font = end_->font();
  font.setPixelSize(std::max(1, qRound(large * 0.6)));
  end_->setFont(font);
}

void TryOutScreen::showTexts() {
  const auto errors = errorTexts(tryOut().result());
  count_->setText(TryOutTexts::tr("Touches: %1")
                      .arg(QLocale().toString(static_cast<qulonglong>(tryOut().taps().size()))));
  mean_->setText(
      TryOutTexts::tr("Mean error: %1 pixels, %2 mm").arg(errors.meanPixels, errors.meanMillimetres));
  largest_->setText(TryOutTexts::tr("Largest error: %1 pixels, %2 mm")
                        .arg(errors.largestPixels, errors.largestMillimetres));
  unusual_->setText(unusualTouches(tryOut()));
  const QString hint = tryOutHint(tryOut());
  if (hint == hint_->text()) return;
  hint_->setText(hint);
  announce(*hint_);
}

void TryOutScreen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F11)
    close();
  else
    QWidget::keyPressEvent(event);
}

void TryOutScreen::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  owner_.activateWindow();
}

}  // namespace touchpanel
