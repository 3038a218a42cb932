#pragma once

#include <QImage>
#include <QLabel>
#include <QWidget>
#include <optional>

#include "platform/View.h"
#include "providers/qt/CallbackGate.h"
#include "providers/qt/SpokenPicture.h"

namespace touchpanel {

class QtCanvas;

/// A widget that shows a View and hands it the pointer and the keyboard.
///
/// The view draws into an image, from an event of its own, and painting the widget only copies that image.
/// What a view does while it draws (it may write to a device, end its run and close its window) therefore
/// never happens inside the toolkit's painting.
class ViewSurface final : public QWidget {
 public:
  explicit ViewSurface(CallbackGate& gate);

  /// `view` is not owned; null takes the view away, after which nothing reaches it any more, also when this
  /// happens inside one of its own handlers.
  void setView(View* view);
  View* view() const { return view_; }

  /// Has the view draw itself, soon and from the event loop. Requests before that are merged.
  void requestDisplay();
  /// Whether the picture is that of the last request.
  bool isUpToDate() const { return !isRequested_; }
  /// A line of text in front of the view's picture, drawn at once; empty takes it away.
  void setBanner(const QString& text);

  /// The surface that covers the screen now; null when there is none.
  static ViewSurface* shown();
  /// What the view drew last, in device pixels.
  const QImage& image() const { return image_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void display();
  void prepareImage();
  void paintBanner(QPainter& painter);
  /// Where `event` happened when the button that changed, or one that is held, counts: the left one, and the right one,
  /// since that is what a touch driver makes of a finger that holds still.
  std::optional<Point> buttonLocation(const QMouseEvent& event) const;
  Point locationOf(const QMouseEvent& event) const;
  void sendKey(std::uint16_t keyCode);
  /// Has a screen reader say what is new in the picture.
  void speak(const QtCanvas& canvas);

  CallbackGate& gate_;
  View* view_ = nullptr;
  QtCanvas* canvas_ = nullptr;  ///< while the view draws
  bool isRequested_ = false;
  QString banner_;
  QImage image_;
  QLabel* spoken_;  ///< shows nothing: what screen readers say of the picture
  SpokenPicture picture_;
  bool isAnswer_ = true;  ///< the user has done something since the last picture
};

}  // namespace touchpanel
