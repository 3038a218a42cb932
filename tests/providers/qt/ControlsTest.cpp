#include <QAction>
#include <QFormLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include "panel/QtStatusLine.h"
#include "panel/QtWaitNotice.h"
#include "providers/qt/QtButton.h"
#include "providers/qt/QtCheckBox.h"
#include "providers/qt/QtIntegerControl.h"
#include "providers/qt/QtRadioGroup.h"
#include "providers/qt/QtSheets.h"
#include "providers/qt/QtTable.h"
#include "providers/qt/QtWindow.h"
#include "providers/qt/SheetDialog.h"
#include "support/FakeApplication.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

struct IntegerControlTest : ::testing::Test {
  IntegerControlTest() {
    field = new IntegerField;
    field->setMinimum(100);
    field->setMaximum(5000);
    field->setSingleStep(100);
    field->setSuffix(" ms");
    field->setProperty("disabledReason", "Not with this device.");
    field->setToolTip("How long to hold");
    label = new QLabel("&Hold time");
    label->setBuddy(field);
    auto* form = new QFormLayout(&window);
    form->addRow(label, field);
    control.emplace(*field);
    control->onEdited([this] { ++edits; });
    window.show();
  }
  QWidget window;
  IntegerField* field = nullptr;
  QLabel* label = nullptr;
  std::optional<QtIntegerControl> control;
  int edits = 0;
};

TEST_F(IntegerControlTest, ShowsAClampedValueButAnswersTheOneThatWasSet) {
  const std::pair<int, int> setAndShown[] = {{1000, 1000}, {0, 100}, {-7, 100}, {60000, 5000}};
  for (const auto& [set, shown] : setAndShown) {
    control->setIntegerValue(set);
    EXPECT_EQ(control->integerValue(), set);
    EXPECT_EQ(field->spinBox().value(), shown);
    EXPECT_EQ(field->slider().value(), shown);
  }
  EXPECT_EQ(edits, 0) << "only the user edits";
}

TEST_F(IntegerControlTest, AnswersWhatTheUserChoseOnEitherOfItsTwoWidgets) {
  control->setIntegerValue(60000);
  QTest::keyClick(&field->spinBox(), Qt::Key_Down);
  EXPECT_EQ(control->integerValue(), 4900);
  EXPECT_EQ(field->slider().value(), 4900);
  QTest::keyClick(&field->slider(), Qt::Key_Left);
  EXPECT_EQ(control->integerValue(), 4800);
  EXPECT_EQ(field->spinBox().value(), 4800);
  EXPECT_EQ(edits, 2);
}

TEST_F(IntegerControlTest, TellsWhyItIsDisabledAndWhatItIsCalled) {
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
  const auto shown = [&] {
    std::vector<bool> checked;
    for (const auto* row : rows) checked.push_back(row->isChecked());
    return checked;
  };
  group.selectRow(1);
  EXPECT_EQ(shown(), (std::vector{false, true, false}));
  for (const int unknown : {7, -1}) {
    group.selectRow(unknown);
    EXPECT_EQ(group.selectedRow(), unknown);
    EXPECT_EQ(shown(), (std::vector{false, false, false}));
  }
  EXPECT_EQ(edits, 0);
  QTest::mouseClick(rows[2], Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(group.selectedRow(), 2);
  EXPECT_EQ(edits, 1);
}

TEST(QtCheckBox, TellsOnlyTheUsersChanges) {
  QCheckBox widget("hold");
  QtCheckBox box(widget);
  int edits = 0;
  box.onEdited([&] { ++edits; });
  box.setOn(true);
  EXPECT_TRUE(widget.isChecked());
  EXPECT_EQ(edits, 0);
  widget.click();
  EXPECT_FALSE(box.isOn());
  EXPECT_EQ(edits, 1);
}

TEST(QtButton, SharesStateAndTitleWithItsMenuEntryAndStateWithItsFollower) {
  QPushButton widget("Disable Touch");
  QPushButton second("Calibrate region");
  QAction entry("Disable Touch");
  QtButton follower(second);
  QtButton button(widget, {&entry}, &follower);
  button.setEnabled(false);
  EXPECT_FALSE(entry.isEnabled());
  EXPECT_FALSE(second.isEnabled());
  button.setTitle("Enable Touch");
  EXPECT_EQ(widget.text(), "Enable Touch");
  EXPECT_EQ(entry.text(), "Enable Touch");
  EXPECT_EQ(second.text(), "Calibrate region");
}

/// A list of serial numbers that agrees to every row but those in `refused`.
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
  QtTable table{view, gate};
};

TEST_F(QtTableTest, SelectsARowOnlyWhenTheSourceAgrees) {
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
}

TEST_F(QtTableTest, NeverSelectsAColumn) {
  clickRow(1);
  auto* header = view.horizontalHeader();
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                    QPoint(header->sectionViewportPosition(2) + 5, 5));
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(selected(), std::vector{1});
  EXPECT_TRUE(view.selectionModel()->selectedColumns().isEmpty());
}

TEST_F(QtTableTest, KeepsItsSelectionThroughAReloadAndDropsItWithTheRow) {
  table.selectRow(2);
  table.reloadData();
  EXPECT_EQ(selected(), std::vector{2});
  source.serials.pop_back();
  table.reloadData();
  EXPECT_TRUE(selected().empty());
  source.serials.clear();
  table.reloadData();
  EXPECT_EQ(view.model()->rowCount(), 0);
}

TEST_F(QtTableTest, TakesASelectionThatIsMadeWhileItAsksForItsFirstCell) {
  source.onFirstCell = [&] { table.selectRow(0); };
  table.reloadData();
  EXPECT_EQ(selected(), std::vector{0});
}

TEST(QtSheets, BelongToTheirParentAndCloseOnlyByEnd) {
  QWidget parentWidget;
  SheetDialog dialog;
  QtWindow parent(parentWidget);
  QtWindow sheet(dialog);
  QtSheets sheets;
  int wishes = 0;
  dialog.onDismiss = [&] { ++wishes; };
  parentWidget.show();
  sheets.begin(sheet, parent);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
  EXPECT_EQ(dialog.parentWidget(), &parentWidget);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  dialog.close();
  EXPECT_EQ(wishes, 2);
  EXPECT_TRUE(dialog.isVisible());
  sheets.end(sheet, 1);
  sheet.orderOut();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.result(), 1);
  sheets.begin(sheet, parent);
  EXPECT_TRUE(dialog.isVisible()) << "it can be used again";
  dialog.setParent(nullptr);
}

TEST(QtWaitNotice, ShowsTheWaitOverTheLastOutcomeAndThenTheOutcomeAgain) {
  QLabel label;
  StatusArea area(label);
  StartUpPanel startUp;
  QtCursor cursor;
  QtStatusLine status(area);
  QtWaitNotice notice(cursor, area, startUp);
  label.show();
  status.show({StatusText::CalibrationReset, "TS-1"});
  EXPECT_EQ(label.text(), "A reset of the calibration was sent to TS-1.");
  notice.waitingFor({WaitText::TouchscreenInUse, 7});
  EXPECT_TRUE(label.text().contains("attempt 7 of 50")) << label.text().toStdString();
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  status.show({StatusText::TouchEnabled, "TS-1"});
  EXPECT_TRUE(label.text().contains("attempt 7 of 50")) << "the wait goes on";
  notice.done();
  EXPECT_EQ(label.text(), "Touch was enabled on TS-1.");
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace touchpanel
