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
  dialog.activateWindow();  // nobody else does where there is no window manager
}

void QtSheets::end(Window& sheet, int returnCode) {
  auto& dialog = dialogOf(sheet);
  dialog.done(returnCode);
  if (auto* owner = dialog.parentWidget()) owner->activateWindow();
}

}  // namespace touchpanel
