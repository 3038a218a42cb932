#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "providers/qt/CallbackGate.h"
#include "providers/qt/QtControls.h"

class QTableView;

namespace touchpanel {

/// A table view over a TableSource. Columns can never be selected; a row only when the source agrees.
class QtTable final : public QtControl<Table> {
 public:
  struct Column {
    std::string identifier;                                                      ///< what the source calls it
    QString title;                                                               ///< for the user
    std::function<QString(const std::string&)> shown = &QString::fromStdString;  ///< a cell, for the user
  };

  QtTable(QTableView& view, std::vector<Column> columns, CallbackGate& gate);
  ~QtTable() override;

  /// `source` is asked from now on; not owned.
  void setSource(TableSource& source);
  /// Asks the source for everything at once, so that painting asks it nothing.
  void reloadData() override;
  void selectRow(std::int32_t row) override;
  /// Called after each reload with the number of rows.
  std::function<void(int)> onReload;

 private:
  class Rows;
  class AskingSelection;

  void choose(int row);
  void highlight();

  QTableView& view_;
  CallbackGate& gate_;
  TableSource* source_ = nullptr;
  std::unique_ptr<Rows> rows_;
  std::unique_ptr<AskingSelection> selection_;
  std::int32_t selectedRow_ = -1;
  bool isReloading_ = false;
};

}  // namespace touchpanel
