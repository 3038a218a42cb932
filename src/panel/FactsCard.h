#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include "app/DeviceFacts.h"
#include "panel/Drawings.h"

namespace touchpanel {

/// What matters about the selected touchscreen, below the list: its kind and bar code, when and how well it was
/// calibrated, its screen, and the settings in force.
class FactsCard final : public QFrame {
 public:
  explicit FactsCard(QWidget* parent = nullptr);

  /// Replaces what is shown; nothing is when no touchscreen is selected.
  void showFacts(const DeviceFacts& facts);
  QPushButton& tryOutButton() { return *tryOut_; }

 private:
  QLabel* addRow(const QString& caption);

  FactsDrawing* drawing_;
  QLabel* name_;
  QLabel* kind_;
  QPushButton* tryOut_;
  QLabel* calibration_;
  QLabel* screen_;
  QLabel* settings_;
};

}  // namespace touchpanel

using touchpanel::FactsCard;  // Designer's files know no namespaces
