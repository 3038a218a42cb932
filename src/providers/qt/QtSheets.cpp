#include "providers/qt/QtSheets.h"

#include <QDialog>

#include "providers/qt/QtWindow.h"

namespace touchpanel {
namespace {

QDialog& dialogOf(Window& sheet) { return dynamic_cast<QDialog&>(dynamic_cast<QtWindow&>(sheet).widget()); }

}  // namespace

void QtSheets::begin(Window& sheet, Window& parent) {
  auto& dialog = dialogOf(sheet);
  auto& owner = dynamic_cast<QtWindow&>(parent).widget();
  if (dialog.parentWidget() != &owner) dialog.setParent(&owner, dialog.windowFlags());
  dialog.open();
}

void QtSheets::end(Window& sheet, int returnCode) { dialogOf(sheet).done(returnCode); }

}  // namespace touchpanel
