#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "panel/Drawings.h"

namespace Ui {
class MainWindow;
}

namespace touchpanel {

/// The main window as its interface description lays it out.
class MainWindowWidget final : public QMainWindow {
 public:
  MainWindowWidget();
  ~MainWindowWidget() override;

  Ui::MainWindow& ui() { return *ui_; }
  /// Chooses between the table and, without rows, the page that says why there are none; `state` is never
  /// Waiting.
  void showRows(int count, ListState state = ListState::Empty);
  /// Has that page say what is being waited for, drawn at once; an empty text ends the wait.
  void showWait(const QString& text);
  /// What that page says and draws instead: why a touchscreen is not listed, and what to do. Empty texts end it.
  void setNotice(ListState state, const QString& title, const QString& hint);
  /// Asked when the user closes the window; false keeps it open.
  std::function<bool()> mayClose;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Words {
    QString title, hint;
  };
  void describeEmptyList(ListState state, const QString& wait = {});

  std::unique_ptr<Ui::MainWindow> ui_;
  ListState state_ = ListState::Empty;
  ListState noticeState_ = ListState::Empty;
  Words notice_;
};

}  // namespace touchpanel
