#include <QFormLayout>
#include <QHeaderView>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include "providers/qt/QtTable.h"
#include "support/FakeApplication.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

struct IntegerControlTest : ::testing::Test {
  IntegerControlTest() {
    field->setMinimum(100);
    field->setMaximum(5000);
    field->setSingleStep(100);
    field->setProperty("disabledReason", "Not with this device.");
    field->setToolTip("How long to hold");
    label->setBuddy(field);
    (new QFormLayout(&window))->addRow(label, field);
    control.emplace(*field);
    control->onEdited([this] { ++edits; });
    window.show();
  }
  QWidget window;
  IntegerField* field = new IntegerField;
  QLabel* label = new QLabel("&Hold time");
  std::optional<QtIntegerControl> control;
  int edits = 0;
};

TEST_F(IntegerControlTest, AnswersWhatWasSetOutsideItsRangeUntilTheUserChoosesOnEitherWidget) {
  const std::pair<int, int> setAndShown[] = {{1000, 1000}, {0, 100}, {-7, 100}, {60000, 5000}};
  for (const auto& [set, shown] : setAndShown) {
    control->setIntegerValue(set);
    EXPECT_EQ(control->integerValue(), set);
    EXPECT_EQ(field->spinBox().value(), shown);
    EXPECT_EQ(field->slider().value(), shown);
  }
  EXPECT_EQ(edits, 0) << "only the user edits";
  QTest::keyClick(&field->spinBox(), Qt::Key_Down);
  EXPECT_EQ(control->integerValue(), 4900);
  EXPECT_EQ(field->slider().value(), 4900);
  QTest::keyClick(&field->slider(), Qt::Key_Left);
  EXPECT_EQ(control->integerValue(), 4800);
  EXPECT_EQ(field->spinBox().value(), 4800);
  EXPECT_EQ(edits, 2);
}

TEST_F(IntegerControlTest, SaysWhyItIsDisabledAndWhatItIsCalled) {
  EXPECT_EQ(field->spinBox().accessibleName(), "Hold time");
  EXPECT_EQ(field->slider().accessibleName(), "Hold time");
  control->setEnabled(false);
  EXPECT_FALSE(control->isEnabled());
  EXPECT_FALSE(label->isEnabled());
  EXPECT_FALSE(field->spinBox().isEnabled());
  EXPECT_EQ(field->toolTip(), "Not with this device.");
  EXPECT_EQ(field->accessibleDescription(), "Not with this device.");
  control->setEnabled(true);
  EXPECT_TRUE(label->isEnabled());
  EXPECT_EQ(field->toolTip(), "How long to hold");
  EXPECT_EQ(field->accessibleDescription(), "");
  window.setEnabled(false);
  EXPECT_TRUE(control->isEnabled()) << "its own state, whatever its window's";
}

TEST(QtRadioGroup, AnswersARowThatItDoesNotHaveAndShowsNone) {
  QWidget container;
  auto* column = new QVBoxLayout(&container);
  std::vector<QRadioButton*> rows;
  for (const char* title : {"a", "b", "c"}) column->addWidget(rows.emplace_back(new QRadioButton(title)));
  container.show();
  QtRadioGroup group(container);
  int edits = 0;
  group.onEdited([&] { ++edits; });
  group.selectRow(1);
  EXPECT_TRUE(rows[1]->isChecked());
  for (const int unknown : {7, -1}) {
    group.selectRow(unknown);
    EXPECT_EQ(group.selectedRow(), unknown);
    for (const auto* row : rows) EXPECT_FALSE(row->isChecked());
  }
  EXPECT_EQ(edits, 0);
  QTest::mouseClick(rows[2], Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(group.selectedRow(), 2);
  EXPECT_EQ(edits, 1);
}

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

  std::vector<std::string> serials = {"A", "B", "C"};
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
  std::vector<int> selected() const {
    std::vector<int> rows;
    for (const auto& index : view.selectionModel()->selectedRows()) rows.push_back(index.row());
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

TEST_F(QtTableTest, SelectsARowOnlyWhenTheSourceAgreesAndNeverAColumn) {
  clickRow(1);
  EXPECT_EQ(selected(), std::vector{1});
  source.refused = 2;
  clickRow(2);
  EXPECT_EQ(selected(), std::vector{1});
  QTest::keyClick(&view, Qt::Key_Up);
  EXPECT_EQ(selected(), std::vector{0});
  EXPECT_EQ(source.asked, (std::vector<std::int32_t>{1, 2, 0}));
  table.selectRow(2);
  EXPECT_EQ(selected(), std::vector{2}) << "the program does not ask";
  EXPECT_EQ(source.asked.size(), 3U);
  auto* header = view.horizontalHeader();
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                    QPoint(header->sectionViewportPosition(1) + 5, 5));
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(selected(), std::vector{2});
  EXPECT_TRUE(view.selectionModel()->selectedColumns().isEmpty());
}

TEST_F(QtTableTest, KeepsItsSelectionThroughAReloadAndDropsItWithTheRow) {
  table.selectRow(2);
  table.reloadData();
  EXPECT_EQ(selected(), std::vector{2});
  source.serials.pop_back();
  table.reloadData();
  EXPECT_TRUE(selected().empty());
  source.onFirstCell = [&] { table.selectRow(0); };
  table.reloadData();
  EXPECT_EQ(selected(), std::vector{0}) << "one that is made while it asks for its first cell";
}

}  // namespace
}  // namespace touchpanel
