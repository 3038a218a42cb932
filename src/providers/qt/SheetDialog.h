#pragma once

#include <QDialog>
#include <functional>

namespace touchpanel {

/// A dialog that only its owner closes: Escape and the window's close button are passed on as a wish.
class SheetDialog final : public QDialog {
 public:
  using QDialog::QDialog;
  std::function<void()> onDismiss;

  void reject() override {
    if (onDismiss) onDismiss();
  }

 protected:
  void closeEvent(QCloseEvent* event) override;
};

}  // namespace touchpanel
