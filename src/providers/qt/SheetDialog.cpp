#include "providers/qt/SheetDialog.h"

#include <QCloseEvent>

namespace touchpanel {

void SheetDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace touchpanel
