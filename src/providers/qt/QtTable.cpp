#include "providers/qt/QtTable.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QTableView>

#include "providers/qt/DeviceRows.h"

namespace touchpanel {

/// Turns what the user selects into a question to the table's source; only the table itself selects.
class QtTable::AskingSelection final : public QItemSelectionModel {
 public:
  AskingSelection(QAbstractItemModel* model, QtTable& table) : QItemSelectionModel(model), table_(table) {}

  void select(const QItemSelection& selection, SelectionFlags command) override {
    if (isOwn_) return QItemSelectionModel::select(selection, command);
    const auto indexes = selection.indexes();
    if (command.testAnyFlag(Select) && !indexes.isEmpty()) table_.choose(indexes.first().row());
  }
  void select(const QModelIndex& index, SelectionFlags command) override {
    select(QItemSelection(index, index), command);
  }
  void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override {
    if (isOwn_) return QItemSelectionModel::setCurrentIndex(index, command);
    if (index.isValid() && command.testAnyFlag(Select)) table_.choose(index.row());
  }
  void reset() override {
    const QScopedValueRollback<bool> own(isOwn_, true);
    QItemSelectionModel::reset();
  }
  void highlight(const QModelIndex& index) {
    const QScopedValueRollback<bool> own(isOwn_, true);
    if (index.isValid())
      setCurrentIndex(index, ClearAndSelect | Rows);
    else
      clear();
  }

 private:
  QtTable& table_;
  bool isOwn_ = false;
};

QtTable::QtTable(QTableView& view, CallbackGate& gate)
    : QtControl(view),
      view_(view),
      gate_(gate),
      rows_(std::make_unique<DeviceRows>()),
      selection_(std::make_unique<AskingSelection>(rows_.get(), *this)) {
  view_.setModel(rows_.get());
  view_.setSelectionModel(selection_.get());
  view_.horizontalHeader()->setSectionsClickable(false);
  view_.horizontalHeader()->setMinimumSectionSize(96);
  view_.horizontalHeader()->setMinimumHeight(32);
  view_.horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  view_.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  view_.verticalHeader()->setDefaultSectionSize(40);  // a finger's width
}

QtTable::~QtTable() { view_.setModel(nullptr); }

void QtTable::setSource(TableSource& source) { source_ = &source; }

void QtTable::reloadData() {
  if (source_ == nullptr) return;
  {
    const QScopedValueRollback<bool> reloading(isReloading_, true);
    rows_->reload(*source_);
  }
  highlight();
  if (onReload) onReload(rows_->rowCount());
}

void QtTable::selectRow(std::int32_t row) {
  selectedRow_ = row;
  if (!isReloading_) highlight();  // else the rows are not there yet
}

void QtTable::choose(int row) {
  if (source_ == nullptr || row == selectedRow_) return;
  bool agreed = false;
  gate_.pass([&] { agreed = source_->shouldSelectRow(row); });
  if (agreed) selectRow(row);
}

void QtTable::highlight() {
  if (selectedRow_ >= rows_->rowCount()) selectedRow_ = -1;
  selection_->highlight(selectedRow_ < 0 ? QModelIndex() : rows_->index(selectedRow_, 0));
}

}  // namespace touchpanel
