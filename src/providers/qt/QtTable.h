#pragma once

#include <QPointer>
#include <memory>

#include "providers/qt/CallbackGate.h"
#include "providers/qt/QtControl.h"

class QTableView;

namespace touchpanel {

class DeviceRows;

/// A table view over a TableSource. Columns can never be selected; a row only when the source agrees.
class QtTable final : public QtControl<Table> {
 public:
  QtTable(QTableView& view, CallbackGate& gate);
  ~QtTable() override;

  /// `source` is asked from now on; not owned.
  void setSource(TableSource& source);
  /// Asks the source for everything at once, so that painting asks it nothing.
  void reloadData() override;
  void selectRow(std::int32_t row) override;
  /// Called after each reload with the number of rows.
  std::function<void(int)> onReload;

 private:
  class AskingSelection;

  void choose(int row);
  void highlight();

  QTableView& view_;
  CallbackGate& gate_;
  TableSource* source_ = nullptr;
  std::unique_ptr<DeviceRows> rows_;
  std::unique_ptr<AskingSelection> selection_;
  std::int32_t selectedRow_ = -1;
  bool isReloading_ = false;
};

}  // namespace touchpanel
