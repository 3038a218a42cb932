#include "providers/qt/ViewSurface.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <cmath>
#include <utility>

#include "providers/qt/QtCanvas.h"
#include "providers/qt/SpokenLabels.h"

namespace touchpanel {
namespace {

/// What lies behind a view that does not fill its bounds: dark enough for yellow text, bright enough for a
/// half-transparent white to stand out.
constexpr QColor kWindowBackground(0x6C, 0x6C, 0x6C);

constexpr std::uint16_t kKeyKeypadEnter = 76;
constexpr std::uint16_t kKeyOther = 0xFFFF;

std::uint16_t virtualKeyCode(int key) {
  switch (key) {
    case Qt::Key_Return:
      return kKeyReturn;
    case Qt::Key_Escape:
      return kKeyEscape;
    case Qt::Key_Enter:
      return kKeyKeypadEnter;
    default:
      return kKeyOther;
  }
}

}  // namespace

ViewSurface::ViewSurface(CallbackGate& gate) : gate_(gate), spoken_(new QLabel(this)) {
  spoken_->setProperty("announced", true);
  spoken_->resize(0, 0);
  setWindowTitle(QCoreApplication::translate("CalibrationScreen", "Calibration"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

void ViewSurface::setView(View* view) {
  view_ = view;
  if (view_ == nullptr && canvas_ != nullptr) canvas_->stop();
  if (view_ != nullptr) requestDisplay();
}

void ViewSurface::requestDisplay() {
  if (isRequested_ || view_ == nullptr) return;
  isRequested_ = true;
  QMetaObject::invokeMethod(
      this, [this] { display(); }, Qt::QueuedConnection);
}

void ViewSurface::display() {
  isRequested_ = false;
  if (view_ == nullptr || !isVisible()) return;
  const bool drawn = gate_.pass([this] {
    prepareImage();
    QPainter painter(&image_);
    QtCanvas canvas(painter, static_cast<float>(height()));
    const QScopedValueRollback<QtCanvas*> drawing(canvas_, &canvas);
    view_->drawRect(canvas);
    if (view_ != nullptr) speak(canvas);
  });
  if (drawn) {
    if (view_ != nullptr) update();
    return;
  }
  isRequested_ = true;
  gate_.whenOpen(*this, [this] { display(); });
}

void ViewSurface::speak(const QtCanvas& canvas) {
  const QStringList news = picture_.news(canvas.drawnTexts(), std::exchange(isAnswer_, false));
  if (news.isEmpty()) return;
  spoken_->setText(news.join(u' '));
  announce(*spoken_);
}

void ViewSurface::prepareImage() {
  const double ratio = devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(width() * ratio)),
                     static_cast<int>(std::ceil(height() * ratio)));
  if (image_.size() != pixels) image_ = QImage(pixels, QImage::Format_RGB32);
  image_.setDevicePixelRatio(ratio);
  if (!view_->isOpaque()) image_.fill(kWindowBackground);
}

void ViewSurface::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (image_.isNull()) {
    painter.fillRect(rect(), kWindowBackground);
    return;
  }
  painter.drawImage(QPointF(0, 0), image_);
  if (!banner_.isEmpty()) paintBanner(painter);
  if (image_.devicePixelRatio() != devicePixelRatioF()) requestDisplay();
}

void ViewSurface::paintBanner(QPainter& painter) {
  QFont large = font();
  large.setPixelSize(18);
  painter.setFont(large);
  QRectF text = painter.boundingRect(QRectF(rect()), Qt::AlignCenter, banner_);
  text.moveCenter(QPointF(width() / 2.0, height() * 0.85));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 200));
  painter.drawRoundedRect(text.adjusted(-24, -14, 24, 14), 8, 8);
  painter.setPen(Qt::white);
  painter.drawText(text, Qt::AlignCenter, banner_);
}

void ViewSurface::setBanner(const QString& text) {
  banner_ = text;
  if (!text.isEmpty()) {
    spoken_->setText(text);
    announce(*spoken_);
  }
  repaint();
}

ViewSurface* ViewSurface::shown() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* surface = dynamic_cast<ViewSurface*>(window); surface != nullptr && surface->isVisible())
      return surface;
  return nullptr;
}

void ViewSurface::resizeEvent(QResizeEvent* /*event*/) { requestDisplay(); }

void ViewSurface::showEvent(QShowEvent* /*event*/) { requestDisplay(); }

void ViewSurface::mousePressEvent(QMouseEvent* event) {
  if (const auto location = buttonLocation(*event)) gate_.pass([&] { view_->mouseDown(*location); });
}

void ViewSurface::mouseMoveEvent(QMouseEvent* event) {
  if (const auto location = buttonLocation(*event))
    gate_.pass([&] { view_->mouseDragged(*location); });
  else if (view_ != nullptr && event->buttons() == Qt::NoButton)
    gate_.pass([&] { view_->mouseMoved(locationOf(*event)); });
}

void ViewSurface::mouseReleaseEvent(QMouseEvent* event) {
  isAnswer_ = true;
  if (const auto location = buttonLocation(*event)) gate_.pass([&] { view_->mouseUp(*location); });
}

std::optional<Point> ViewSurface::buttonLocation(const QMouseEvent& event) const {
  constexpr Qt::MouseButtons kCounting = Qt::LeftButton | Qt::RightButton;
  const bool isMove = event.type() == QEvent::MouseMove;
  const auto buttons = isMove ? event.buttons() : Qt::MouseButtons(event.button());
  if (view_ == nullptr || !(buttons & kCounting)) return std::nullopt;
  return locationOf(event);
}

Point ViewSurface::locationOf(const QMouseEvent& event) const {
  return {static_cast<float>(event.position().x()), static_cast<float>(height() - event.position().y())};
}

void ViewSurface::keyPressEvent(QKeyEvent* event) { sendKey(virtualKeyCode(event->key())); }

void ViewSurface::sendKey(std::uint16_t keyCode) {
  isAnswer_ = true;
  if (view_ == nullptr || !view_->acceptsFirstResponder()) return;
  gate_.pass([&] { view_->keyDown(keyCode); });
}

void ViewSurface::closeEvent(QCloseEvent* event) {
  // The desktop's own way of closing a window must not leave the view's run behind: it counts as Escape.
  event->ignore();
  sendKey(kKeyEscape);
}

}  // namespace touchpanel
