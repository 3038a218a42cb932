#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "platform/Controls.h"

namespace touchpanel {

/// A copy of the texts of a TableSource, under the columns' human titles.
class DeviceRows final : public QAbstractTableModel {
 public:
  /// Takes everything from `source` anew.
  void reload(TableSource& source);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<QStringList> rows_;
};

}  // namespace touchpanel
