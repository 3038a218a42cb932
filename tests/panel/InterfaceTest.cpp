#include <QAccessible>
#include <QAction>
#include <QDialog>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "ClippedTexts.h"
#include "panel/MainWindowWidget.h"
#include "panel/Translations.h"
#include "ui_AboutSheet.h"
#include "ui_MainWindow.h"
#include "ui_SettingsSheet.h"

namespace touchpanel {
namespace {

/// The three windows of the interface description.
struct InterfaceTest : ::testing::TestWithParam<const char*> {
  InterfaceTest() {
    settings.setupUi(&settingsSheet);
    about.setupUi(&aboutSheet);
  }
  /// Calls `check` with each window as the user meets it: every page of its tabs in turn.
  void forEachPage(const std::function<void(QWidget& window, const std::string& page)>& check) {
    for (QWidget* window : {static_cast<QWidget*>(&mainWindow), static_cast<QWidget*>(&settingsSheet),
                            static_cast<QWidget*>(&aboutSheet)}) {
      window->show();
      auto* tabs = window->findChild<QTabWidget*>();
      for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
        if (tabs != nullptr) tabs->setCurrentIndex(page);
        check(*window, window->objectName().toStdString() + " page " + std::to_string(page));
      }
      window->hide();
    }
  }
  /// The widgets that the tabulator key reaches, in its order.
  static std::vector<QWidget*> focusChain(QWidget& window) {
    std::vector<QWidget*> chain;
    for (QWidget* widget = window.nextInFocusChain(); widget != &window; widget = widget->nextInFocusChain())
      if (widget->isVisibleTo(&window) && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
          widget->focusProxy() == nullptr)
        chain.push_back(widget);
    return chain;
  }

  Translations translations{QLocale(QString::fromUtf8(GetParam()))};
  MainWindowWidget mainWindow;
  QDialog settingsSheet;
  Ui::SettingsSheet settings;
  QDialog aboutSheet;
  Ui::AboutSheet about;
};

TEST_P(InterfaceTest, NamesEverythingThatTakesTheKeyboard) {
  forEachPage([](QWidget& window, const std::string& page) {
    for (QWidget* widget : focusChain(window)) {
      if (qobject_cast<QTabBar*>(widget) != nullptr) continue;

      auto* accessible = QAccessible::queryAccessibleInterface(widget);
      ASSERT_NE(accessible, nullptr);
      EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
          << page << ": " << widget->objectName().toStdString() << " (" << widget->metaObject()->className()
          << ")";
    }
  });
}

TEST_P(InterfaceTest, GivesEachLetterOfAPageToOneCommand) {
  forEachPage([](QWidget& window, const std::string& page) {
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
    for (const auto& [key, texts] : owners)
      EXPECT_EQ(texts.size(), 1U) << page << ": " << key.toStdString() << " is "
                                  << texts.begin()->toStdString() << " and " << texts.rbegin()->toStdString();
  });
}

TEST_P(InterfaceTest, MovesTheKeyboardInReadingOrder) {
  forEachPage([](QWidget& window, const std::string& page) {
    const QWidget* before = nullptr;
    for (const QWidget* widget : focusChain(window)) {
      if (before != nullptr && before->parentWidget() == widget->parentWidget()) {
        const QPoint from = before->geometry().center();
        const QPoint to = widget->geometry().center();
        const bool isOneLine = std::abs(from.y() - to.y()) < 10;
        EXPECT_TRUE(isOneLine ? from.x() < to.x() : from.y() < to.y() || from.x() < to.x())
            << page << ": from " << before->objectName().toStdString() << " to "
            << widget->objectName().toStdString();
      }
      before = widget;
    }
  });
}

TEST_P(InterfaceTest, FitsASmallScreenWithoutClippingAText) {
  mainWindow.resize(800, 480);
  settingsSheet.resize(780, 440);
  aboutSheet.resize(620, 420);
  forEachPage([](QWidget& window, const std::string& page) {
    EXPECT_LE(window.minimumSizeHint().width(), 800) << page;
    EXPECT_LE(window.minimumSizeHint().height(), 480) << page;
    EXPECT_EQ(testing::clippedTexts(window).join(" | "), "") << page;
  });
}

INSTANTIATE_TEST_SUITE_P(Languages, InterfaceTest, ::testing::Values("en", "de", "zh_CN"),
                         [](const auto& language) { return std::string(language.param); });

}  // namespace
}  // namespace touchpanel
