#pragma once

#include "app/ListNotice.h"
#include "panel/MainWindowWidget.h"

namespace touchpanel {

/// The main window's page without touchscreens, in the user's language.
class EmptyPage final : public EmptyListPage {
 public:
  explicit EmptyPage(MainWindowWidget& window);
  void show(const ListNotice& notice) override;
  void clear() override;

 private:
  void setTexts(const QString& title, const QString& hint);

  MainWindowWidget& window_;
  QString title_;  ///< the invitation, as the interface description has it
  QString hint_;
};

}  // namespace touchpanel
