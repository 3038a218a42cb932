#pragma once

#include <QDialog>
#include <functional>

#include "app/ScreenView.h"
#include "ui_ScreenSheet.h"

namespace touchpanel {

/// The widgets of the sheet of the screens.
class ScreenForm final : public ScreenView {
 public:
  /// Lays `sheet` out, which is not owned.
  explicit ScreenForm(QDialog& sheet);

  void show(const ShownScreens& screens) override;

  const Ui::ScreenSheet& ui() const { return ui_; }
  std::function<void(std::size_t)> onScreen;
  std::function<void(std::size_t)> onTouchscreen;
  std::function<void()> onAssign;

 private:
  Ui::ScreenSheet ui_;
};

}  // namespace touchpanel
