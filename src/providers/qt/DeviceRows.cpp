#include "providers/qt/DeviceRows.h"

#include <QCoreApplication>
#include <array>

namespace touchpanel {
namespace {

struct Column {
  const char* identifier;  ///< the device entry's key
  const char* title;
  bool isTranslated;  ///< its values are words, not names
};

constexpr std::array<Column, 5> kColumns = {{
    {"SN", QT_TRANSLATE_NOOP("DeviceTable", "Serial number"), false},
    {"FirmwareVersion", QT_TRANSLATE_NOOP("DeviceTable", "Firmware"), false},
    {"CalibrateStatus", QT_TRANSLATE_NOOP("DeviceTable", "Calibrated"), true},
    {"MonitorID", QT_TRANSLATE_NOOP("DeviceTable", "Monitor"), false},
    {"LocationID", QT_TRANSLATE_NOOP("DeviceTable", "Location"), false},
}};

[[maybe_unused]] constexpr std::array kWords = {QT_TRANSLATE_NOOP("DeviceTable", "YES"),
                                                QT_TRANSLATE_NOOP("DeviceTable", "NO")};

}  // namespace

void DeviceRows::reload(TableSource& source) {
  std::vector<QStringList> rows;
  const auto count = source.numberOfRows();
  for (std::int32_t row = 0; row < count; ++row) {
    QStringList cells;
    for (const auto& column : kColumns) {
      const auto text = source.objectValue(column.identifier, row);
      cells += column.isTranslated ? QCoreApplication::translate("DeviceTable", text.c_str())
                                   : QString::fromStdString(text);
    }
    rows.push_back(std::move(cells));
  }
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int DeviceRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int DeviceRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kColumns.size());
}

QVariant DeviceRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  return rows_.at(static_cast<std::size_t>(index.row())).at(index.column());
}

QVariant DeviceRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return QCoreApplication::translate("DeviceTable", kColumns.at(static_cast<std::size_t>(section)).title);
}

}  // namespace touchpanel
