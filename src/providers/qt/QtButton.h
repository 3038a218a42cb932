#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <vector>

#include "providers/qt/QtControl.h"

namespace touchpanel {

/// A button, with the menu entries that do the same: they share its state and its title.
class QtButton final : public QtControl<Button> {
 public:
  /// `follower` can be used exactly when this can; null for none.
  explicit QtButton(QAbstractButton& button, std::vector<QAction*> entries = {}, QtButton* follower = nullptr)
      : QtControl(button), button_(button), entries_(std::move(entries)), follower_(follower) {}

  void setEnabled(bool enabled) override {
    QtControl::setEnabled(enabled);
    for (auto* entry : entries_) entry->setEnabled(enabled);
    if (follower_ != nullptr) follower_->setEnabled(enabled);
  }
  void setTitle(std::string_view title) override {
    const auto text = QCoreApplication::translate("Controls", std::string(title).c_str());
    button_.setText(text);
    for (auto* entry : entries_) entry->setText(text);
  }

 private:
  QAbstractButton& button_;
  std::vector<QAction*> entries_;
  QtButton* follower_;
};

}  // namespace touchpanel
