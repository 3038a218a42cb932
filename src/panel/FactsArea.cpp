#include "panel/FactsArea.h"

#include "ui_MainWindow.h"

namespace touchpanel {

void FactsArea::show(const DeviceFacts& facts) {
  window_.ui().factsCard->showFacts(facts);
  window_.ui().actionUndoReset->setEnabled(facts.canUndoReset);
  window_.ui().actionHistory->setEnabled(facts.isSelected);
}

}  // namespace touchpanel
