#include "providers/qt/QtTable.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QTableView>

namespace touchpanel {
namespace {

/// A tool tip takes what looks like markup for markup unless all of it is.
QString plainToolTip(const QString& text) {
  return text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

}  // namespace

/// A copy of the source's texts.
class QtTable::Rows final : public QAbstractTableModel {
 public:
  explicit Rows(std::vector<Column> columns) : columns_(std::move(columns)) {}

  void reload(TableSource& source) {
    std::vector<QStringList> rows;
    const auto count = source.numberOfRows();
    for (std::int32_t row = 0; row < count; ++row) {
      auto& cells = rows.emplace_back();
      for (const auto& column : columns_) cells += column.shown(source.objectValue(column.identifier, row));
    }
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const auto& text = rows_.at(static_cast<std::size_t>(index.row())).at(index.column());
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return columns_.at(static_cast<std::size_t>(section)).title;
  }

 private:
  std::vector<Column> columns_;
  std::vector<QStringList> rows_;
};

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

QtTable::QtTable(QTableView& view, std::vector<Column> columns, CallbackGate& gate)
    : QtControl(view),
      view_(view),
      gate_(gate),
      rows_(std::make_unique<Rows>(std::move(columns))),
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
