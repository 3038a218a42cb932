#include <QHeaderView>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "providers/qt/QtTable.h"
#include "support/FakeApplication.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

/// A list of serial numbers that agrees to every row but `refused`.
struct FakeSource final : TableSource {
  std::int32_t numberOfRows() override { return static_cast<std::int32_t>(serials.size()); }
  std::string objectValue(std::string_view column, std::int32_t row) override {
    if (onFirstCell) std::exchange(onFirstCell, nullptr)();
    return column == "SN" ? serials.at(static_cast<std::size_t>(row)) : "0";
  }
  bool shouldSelectRow(std::int32_t row) override {
    asked.push_back(row);
    return row != refused;
  }
  bool shouldSelectColumn(std::int32_t) override { return false; }

  std::vector<std::string> serials = {"<b>A", "B", "C"};
  std::int32_t refused = -1;
  std::vector<std::int32_t> asked;
  std::function<void()> onFirstCell;
};

struct QtTableTest : ::testing::Test {
  QtTableTest() {
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setSource(source);
    view.resize(600, 300);
    view.show();
    table.reloadData();
  }
  /// The rows that look selected.
  QList<int> selected() const {
    QList<int> rows;
    for (const auto& index : view.selectionModel()->selectedRows()) rows += index.row();
    return rows;
  }
  void clickRow(int row) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      view.visualRect(view.model()->index(row, 1)).center());
  }
  testing::FakeApplication application;
  testing::RecordingDiagnostics diagnostics;
  CallbackGate gate{application, diagnostics};
  FakeSource source;
  QTableView view;
  QtTable table{view, {{"SN", "Serial number"}, {"LocationID", "Location"}}, gate};
};

TEST_F(QtTableTest, SelectsARowOnlyWhenTheSourceAgreesAndKeepsItUntilItGoes) {
  EXPECT_EQ(view.model()->index(0, 0).data(Qt::ToolTipRole), "<span>&lt;b&gt;A</span>");
  clickRow(1);
  EXPECT_EQ(selected(), QList{1});
  source.refused = 2;
  clickRow(2);
  EXPECT_EQ(selected(), QList{1});
  QTest::keyClick(&view, Qt::Key_Up);
  EXPECT_EQ(selected(), QList{0});
  EXPECT_EQ(source.asked, (std::vector<std::int32_t>{1, 2, 0}));
  table.selectRow(2);
  EXPECT_EQ(selected(), QList{2}) << "the program does not ask";
  EXPECT_EQ(source.asked.size(), 3U);
  auto* header = view.horizontalHeader();
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                    QPoint(header->sectionViewportPosition(1) + 5, 5));
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(selected(), QList{2});
  EXPECT_TRUE(view.selectionModel()->selectedColumns().isEmpty());
  table.reloadData();
  EXPECT_EQ(selected(), QList{2});
  source.serials.pop_back();
  table.reloadData();
  EXPECT_TRUE(selected().empty());
  source.onFirstCell = [&] { table.selectRow(0); };
  table.reloadData();
  EXPECT_EQ(selected(), QList{0}) << "one that is made while it asks for its first cell";
}

}  // namespace
}  // namespace touchpanel
