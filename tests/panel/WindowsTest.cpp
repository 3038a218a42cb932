#include <QAccessible>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <algorithm>
#include <map>
#include <set>

#include "PanelRig.h"
#include "history/CalibrationHistory.h"
#include "history/TouchscreenKey.h"
#include "panel/PanelStyle.h"
#include "panel/ScreensPicture.h"
#include "panel/Themes.h"

namespace touchpanel::testing {
namespace {

/// Of 100: hardly compressed, since there are hundreds of pictures.
constexpr int kQuickly = 85;

/// The texts in `window` that are not shown whole.
QStringList clippedTexts(const QWidget& window) {
  QStringList clipped;
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (!label->isVisibleTo(&window) || label->text().isEmpty()) continue;
    const QSize whole =
        label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    if (whole.boundedTo(label->size()) != whole) clipped += label->text();
  }
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (button->isVisibleTo(&window) && !button->text().isEmpty() &&
        button->sizeHint().width() > button->width())
      clipped += button->text();
  return clipped;
}

/// The widgets that the tabulator key reaches when it is pressed again and again, from the uppermost one on.
std::vector<QWidget*> focusChain(QWidget& window) {
  const auto press = [&] {
    QTest::keyClick(window.focusWidget() == nullptr ? &window : window.focusWidget(), Qt::Key_Tab);
    return window.focusWidget();
  };
  std::vector<QWidget*> chain;
  for (QWidget* reached = press(); std::ranges::find(chain, reached) == chain.end(); reached = press())
    chain.push_back(reached);
  const auto height = [&](QWidget* widget) { return widget->mapTo(&window, QPoint()).y(); };
  std::ranges::rotate(chain, std::ranges::min_element(chain, {}, height));
  return chain;
}

/// What takes the keyboard and has no name for assistive technology.
QStringList unnamed(QWidget& window) {
  QStringList found;
  for (QWidget* widget : focusChain(window))
    if (qobject_cast<QTabBar*>(widget) == nullptr &&
        QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
      found += widget->objectName() + u' ' + QString::fromLatin1(widget->metaObject()->className());
  return found;
}

/// The commands that share their letter with another one.
QStringList ambiguous(const QWidget& window) {
  std::map<QString, std::set<QString>> owners;
  const auto note = [&](const QString& text) {
    if (const auto key = QKeySequence::mnemonic(text); !key.isEmpty()) owners[key.toString()].insert(text);
  };
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (button->isVisibleTo(&window)) note(button->text());
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->isVisibleTo(&window) && label->buddy() != nullptr) note(label->text());
  if (const auto* bar = window.findChild<QMenuBar*>())
    for (const auto* action : bar->actions()) note(action->text());
  if (const auto* tabs = window.findChild<QTabWidget*>())
    for (int tab = 0; tab < tabs->count(); ++tab) note(tabs->tabText(tab));
  QStringList found;
  for (const auto& [key, texts] : owners)
    if (texts.size() > 1) found += *texts.begin() + u'/' + *texts.rbegin();
  return found;
}

/// What erases a calibration or takes touch away, and does so at a single combination of keys.
QStringList dangerous(QWidget& window) {
  QStringList found;
  for (const char* name : {"btnReset", "btnEnableTouch"})
    if (const auto* button = window.findChild<QAbstractButton*>(QString::fromLatin1(name)))
      if (!button->shortcut().isEmpty()) found += button->text();
  for (const char* name : {"actionReset", "actionEnableTouch", "actionUndoReset"})
    if (const auto* action = window.findChild<QAction*>(QString::fromLatin1(name)))
      if (!action->shortcuts().isEmpty()) found += action->text();
  return found;
}

/// Where the keyboard moves against the order of reading: neither down nor to the right.
QStringList leaps(QWidget& window) {
  QStringList found;
  const QWidget* before = nullptr;
  for (const QWidget* widget : focusChain(window)) {
    if (before != nullptr) {
      const QPoint from = before->mapTo(&window, before->rect().center());
      const QPoint to = widget->mapTo(&window, widget->rect().center());
      const bool isOneLine = std::abs(from.y() - to.y()) < 10;
      if (!(isOneLine ? from.x() < to.x() : from.y() < to.y() || from.x() < to.x()))
        found += before->objectName() + u'>' + widget->objectName();
    }
    before = widget;
  }
  return found;
}

/// What shows that it can be changed, and what the tabulator key does not reach.
QStringList unreached(QWidget& window) {
  const auto chain = focusChain(window);
  QStringList found;
  for (auto* widget : window.findChildren<QWidget*>()) {
    const auto* choice = qobject_cast<QRadioButton*>(widget);
    const bool isControl = choice != nullptr ? choice->isChecked()
                                             : qobject_cast<QAbstractButton*>(widget) != nullptr ||
                                                   qobject_cast<QSlider*>(widget) != nullptr ||
                                                   qobject_cast<QSpinBox*>(widget) != nullptr ||
                                                   qobject_cast<QTableView*>(widget) != nullptr;
    if (isControl && widget->isVisibleTo(&window) && widget->isEnabled() &&
        std::ranges::find(chain, widget) == chain.end())
      found += widget->objectName() + u' ' + QString::fromLatin1(widget->metaObject()->className());
  }
  return found;
}

/// Before any window is made: its texts in the language that the test is about.
struct InLanguage : ::testing::WithParamInterface<const char*> {
  InLanguage() { QLocale::setDefault(QLocale(GetParam())); }
  ~InLanguage() override { QLocale::setDefault(before); }
  QLocale before;
};

/// Every window in every language and theme, looked at by the tests for clipped texts and, as pictures at
/// single and double density in the folder that TOUCHPANEL_SCREENS names, by people.
struct WindowsTest : InLanguage, PanelRig {
  WindowsTest() { QApplication::setStyle(new PanelStyle("fusion")); }
  ~WindowsTest() override { QApplication::setPalette(QPalette()); }

  /// Shows `window` to the tests, and to people in every theme; at last to the tests on a small screen.
  void look(QWidget& window, const QString& name) {
    expectWellMade(window, name);
    const std::pair<const char*, QPalette> themes[] = {
        {"light", lightPalette()}, {"dark", darkPalette()}, {"contrast", highContrastPalette()}};
    for (const auto& [theme, palette] : themes) {
      // Colours are the same in every language: the theme that few use is pictured in one.
      if (theme == std::string("contrast") && GetParam() != std::string("en")) continue;
      QApplication::setPalette(palette);
      QCoreApplication::processEvents();
      for (const int scale : {1, 2}) save(window, name, theme, scale);
    }
    QApplication::setPalette(lightPalette());
    const QSize size = window.size();
    window.resize(780, 440);
    expectWellMade(window, name);
    EXPECT_EQ(window.size().boundedTo({800, 480}), window.size()) << name.toStdString();
    window.resize(size);
  }
  static void expectWellMade(QWidget& window, const QString& name) {
    QCoreApplication::processEvents();
    for (const auto& faults : {clippedTexts(window), unnamed(window), ambiguous(window), leaps(window),
                               unreached(window), dangerous(window)})
      EXPECT_EQ(faults.join(QStringLiteral(" | ")).toStdString(), "") << name.toStdString();
  }
  static void save(QWidget& window, const QString& name, const char* theme, int scale) {
    QPixmap pixmap(window.size() * scale);
    pixmap.setDevicePixelRatio(scale);
    window.render(&pixmap);
    save(pixmap, name, theme, scale);
  }
  static void save(const QPixmap& picture, const QString& name, const char* theme, int scale) {
    const QString all = qEnvironmentVariable("TOUCHPANEL_SCREENS");
    if (all.isEmpty()) return;  // nobody wants any
    QDir(all).mkpath(GetParam());
    const auto path = QStringLiteral("%1/%2/%3-%4-%5x.png").arg(all, GetParam(), name, theme).arg(scale);
    EXPECT_TRUE(picture.save(path, "PNG", kQuickly)) << path.toStdString();
  }
};

TEST_P(WindowsTest, MainWindowWithNoOneThreeAndFortyTouchscreens) {
  for (std::uint32_t i = 3; i < 40; ++i) {
    auto model = simulated::exampleTouchscreens().at(i % 3);
    model.description = firmware::exampleDevice(kindOf(model.description.productId), 100 + i);
    model.locationId = 0x20000000U + i;
    machine.add(std::move(model));
  }
  machine.registry().publish(touchscreen(Infrared));
  start();
  const auto& ui = panel.mainWindow().ui();
  const auto& rows = *ui.deviceTableView->model();
  for (const int count : {0, 1, 3, 40}) {
    for (auto i = static_cast<std::size_t>(rows.rowCount()); i < static_cast<std::size_t>(count); ++i)
      machine.plugIn(*machine.all()[i]);
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows.rowCount() == count; }));
    EXPECT_EQ(ui.emptyPage->isVisible(), count == 0);
    for (const QSize size : {QSize(920, 540), QSize(800, 480)}) {
      panel.mainWindow().resize(size);
      look(panel.mainWindow(), QStringLiteral("main-%1-%2").arg(count).arg(size.width()));
    }
  }
  for (const auto state : {ListState::Waiting, ListState::Refused, ListState::ServiceDown}) {
    panel.mainWindow().showRows(0, state);
    look(panel.mainWindow(), QStringLiteral("main-empty-%1").arg(static_cast<int>(state)));
  }
  EXPECT_EQ(rows.index(0, 2).data().toString() == "NO", GetParam() == std::string("en"));
}

TEST_P(WindowsTest, SettingsOfEachKindInEachTouchMode) {
  startWithAll();
  const std::pair<Kind, const char*> kinds[] = {
      {Infrared, "infrared"}, {Optical, "optical"}, {ConfigurationOnly, "file"}};
  for (const auto& [kind, kindName] : kinds) {
    selectRow(kind);
    panel.controller().Settings();
    auto& sheet = panel.settingsSheet();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&sheet));
    for (int mode = 0; mode < 4; ++mode) {
      sheet.findChild<QAbstractButton*>(QStringLiteral("touchMode%1").arg(mode))->click();
      auto& pages = *sheet.findChild<QTabWidget*>();
      const int pagesThatTheModeChanges = 2;
      for (int page = 0; page < (mode == 2 ? pages.count() : pagesThatTheModeChanges); ++page) {
        pages.setCurrentIndex(page);
        look(sheet, QStringLiteral("settings-%1-mode%2-page%3").arg(kindName).arg(mode).arg(page));
      }
    }
    panel.controller().SettingsCancel();
  }
}

TEST_P(WindowsTest, TryOutPageBeforeAndAfterAHandfulOfTouches) {
  startWithAll();
  auto& ui = panel.mainWindow().ui();
  ui.tabView->setCurrentWidget(ui.tryOutPage);
  look(panel.mainWindow(), "try-out-first");
  panel.mainWindow().resize(800, 480);
  for (std::size_t tap = 0; tap < 7; ++tap) {
    const auto marked = panel.tryOutPage().tryOut().markedPoint().value();
    const QPointF landed(marked.x + 14 - 4 * static_cast<float>(tap), marked.y + 9);
    user.click(ui.tryOutSurface->mapToGlobal(landed.toPoint()));
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.tryOutPage().tryOut().taps().size() == tap + 1; }));
  }
  QImage paper(1123, 794, QImage::Format_RGB32);  // A4 at 96 dots to the inch
  paper.fill(Qt::white);
  QPainter painter(&paper);
  paint(painter, QRectF(paper.rect()).adjusted(40, 40, -40, -40), 96 / 72.0, panel.tryOutPage().report());
  painter.end();
  save(QPixmap::fromImage(paper), "try-out-printed", "paper", 1);
  look(panel.mainWindow(), "try-out-result");
}

TEST_P(WindowsTest, AboutSheet) {
  startWithAll();
  panel.controller().About();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.aboutSheet()));
  look(panel.aboutSheet(), "about");
  const auto& confirmation = *panel.aboutSheet().findChild<QLabel*>("lbCopied");
  panel.aboutSheet().findChild<QAbstractButton*>("btnCopyReport")->click();
  EXPECT_NE(confirmation.text(), "");
  look(panel.aboutSheet(), "about-copied");
  const auto report = QGuiApplication::clipboard()->text();
  for (const auto* part : {"15.1.3.0004", "LocationID", qVersion()})
    EXPECT_TRUE(report.contains(part)) << part;
  const auto licences = panel.aboutSheet().findChild<QPlainTextEdit*>("aboutLicences")->toPlainText();
  EXPECT_TRUE(licences.startsWith(QStringLiteral("Qt %1: GNU LGPL").arg(qVersion())));
  panel.controller().AboutClose();
  EXPECT_EQ(confirmation.text(), "") << "a later report is not confirmed by this one";
}

TEST_P(WindowsTest, HistorySheet) {
  startWithAll();
  selectRow(Infrared);
  auto& sheet = panel.historySheet();
  const auto open = [&] {
    panel.mainWindow().ui().actionHistory->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&sheet));
  };
  open();
  EXPECT_TRUE(sheet.findChild<QLabel*>("lbEmptyHistory")->isVisible());
  look(sheet, "history-empty");
  user.type("Escape");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !sheet.isVisible(); }));

  CalibrationRecord accepted{.event = CalibrationEvent::Accepted, .context = contextOf(selected())};
  accepted.context.CalibParams.X.A00 += 1;
  accepted.fit = {.targets = 4,
                  .pixels = {6, 12},
                  .millimetres = TouchErrors{2, 4},
                  .screen = {1280, 1024},
                  .touches = {{{3000, 3000}, {3307, 3000}},
                              {{29000, 3000}, {29000, 3000}},
                              {{3000, 29000}, {3000, 29384}},
                              {{29000, 29000}, {29000, 29000}}}};
  CalibrationHistory history(files, "/state");
  history.keep(touchscreenKeyOf(selected()), contextOf(selected()), accepted);
  accepted.written = WrittenState::No;
  history.keep(touchscreenKeyOf(selected()), {}, accepted);
  open();
  look(sheet, "history");
  auto& table = *sheet.findChild<QTableWidget*>();
  const auto described = [&] {
    return QAccessible::queryAccessibleInterface(sheet.findChild<QWidget*>("errorMap"))
        ->text(QAccessible::Description);
  };
  EXPECT_EQ(described().split('\n').size(), 4);
  EXPECT_TRUE(described().contains(QLocale().toString(12.0, 'f', 1))) << described().toStdString();
  EXPECT_EQ(table.rowCount(), 4);
  table.setFocus();
  for (int row = 1; row < 4; ++row) user.type("Down");
  EXPECT_TRUE(QTest::qWaitFor([&] { return table.currentRow() == 3; }));
  EXPECT_EQ(described(), "") << "of what was found no touches are known";
  user.type("Tab");
  user.type("Return");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet.isVisible(); }));
  EXPECT_EQ(history.read(touchscreenKeyOf(selected())).records.back().event, CalibrationEvent::Restored);
}

TEST_P(WindowsTest, ScreenSheet) {
  startWithAll();
  selectRow(Infrared);
  monitors.become({{{.connector = "eDP-1", .name = "eDP-1", .area = {0, 200, 1280, 800}, .isPrimary = true},
                    {.connector = "DP-1", .name = "U2415 (DP-1)", .area = {1280, 0, 768, 1024}, .turn = 1}},
                   2048,
                   1024});
  auto& sheet = panel.screenSheet();
  panel.mainWindow().ui().actionScreens->trigger();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&sheet));
  auto& picture = dynamic_cast<ScreensPicture&>(*sheet.findChild<QWidget*>("screensPicture"));
  const auto& list = *sheet.findChild<QListWidget*>();
  const auto chosen = [&] { return touchscreen(Infrared).driver().monitor(); };
  ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isActiveWindow(); }));
  picture.setFocus();
  user.type("Left");
  user.type("Right");
  user.type("Right");
  user.type("Return");
  ASSERT_TRUE(QTest::qWaitFor([&] { return chosen().identity == "DP-1"; }));
  EXPECT_EQ(chosen().pointer.turn, 1);
  EXPECT_NE(sheet.findChild<QLabel*>("lbScreenOutcome")->text(), "");
  EXPECT_TRUE(list.currentItem()->text().contains('2')) << list.currentItem()->text().toStdString();
  EXPECT_TRUE(
      QAccessible::queryAccessibleInterface(&picture)->text(QAccessible::Description).contains("U2415"));
  look(sheet, "screens");
  user.click(picture.mapToGlobal(picture.areaOf(0).center().toPoint()));
  user.click(*sheet.findChild<QPushButton*>("btnAssignScreen"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return chosen().identity == "eDP-1"; }));
  user.type("Escape");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet.isVisible() && ViewSurface::shown() == nullptr; }));
  EXPECT_EQ(chosen().identity, "");
}

TEST_P(WindowsTest, CalibrationInEachState) {
  startWithAll();
  selectRow(Infrared);
  const auto shoot = [](const char* name) {
    ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
    save(*ViewSurface::shown(), QStringLiteral("calibration-%1").arg(name), "screen", 1);
  };
  for (const auto mode : {kFourTargets, kTwentyFiveTargets}) {
    startCalibration(mode);
    shoot(mode == kFourTargets ? "4-first" : "25-first");
    collect(Infrared);
    shoot(mode == kFourTargets ? "4-finished" : "25-finished");
    user.press(okButton());
    shoot("held");
    user.release(cancelButton());
    expectClosed();
  }
  panel.controller().RegionCalibration();
  ASSERT_TRUE(QTest::qWaitFor([] { return run() != nullptr; }));
  shoot("region-choosing");
  user.type("Escape");
  expectClosed();
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowsTest, ::testing::Values("en", "de", "zh_CN"),
                         [](const auto& language) { return std::string(language.param); });

}  // namespace
}  // namespace touchpanel::testing
