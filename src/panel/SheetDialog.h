#pragma once

#include <QDialog>
#include <functional>

namespace touchpanel {

/// A dialog that only its owner closes: Escape and the window's close button are passed on as a wish. It
/// draws a thin frame, its only edge where there is no window manager.
class SheetDialog final : public QDialog {
 public:
  using QDialog::QDialog;
  std::function<void()> onDismiss;

  void reject() override {
    if (onDismiss) onDismiss();
  }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
};

}  // namespace touchpanel
