#pragma once

#include <QDialog>
#include <functional>

#include "app/HistoryView.h"
#include "ui_HistorySheet.h"

namespace touchpanel {

/// The widgets of the sheet of earlier calibrations.
class HistoryForm final : public HistoryView {
 public:
  /// Lays `sheet` out, which is not owned.
  explicit HistoryForm(QDialog& sheet);

  void show(const ShownHistory& history) override;

  const Ui::HistorySheet& ui() const { return ui_; }
  /// The row that is selected; none when there is nothing to restore.
  std::optional<std::size_t> selectedRow() const;

 private:
  void showRow();

  Ui::HistorySheet ui_;
  ShownHistory history_;
};

}  // namespace touchpanel
