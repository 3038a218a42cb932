#pragma once

#include "app/ListNotice.h"
#include "panel/MainWindowWidget.h"

namespace touchpanel {

/// The main window's page without touchscreens, in the user's language.
class EmptyPage final : public EmptyListPage {
 public:
  explicit EmptyPage(MainWindowWidget& window) : window_(window) {}
  void show(const ListNotice& notice) override;
  void clear() override { window_.setNotice(ListState::Empty, {}, {}); }

 private:
  MainWindowWidget& window_;
};

}  // namespace touchpanel
