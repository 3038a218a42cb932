#include "demo/tour/Stage.h"

#include <QApplication>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QWindow>
#include <algorithm>

namespace touchpanel::demo {
namespace {

constexpr std::chrono::seconds kPatience(30);

QWidget* visibleWidget(const QString& name) {
  for (auto* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    if (window->objectName() == name) return window;
    for (auto* child : window->findChildren<QWidget*>(name))
      if (child->isVisible()) return child;
  }
  return nullptr;
}

bool isOnScreen(const QWidget& widget) {
  const auto* window = widget.window()->windowHandle();
  return widget.isVisible() && window != nullptr && window->isExposed();
}

}  // namespace

void Stage::until(const std::function<bool()>& condition, const std::string& what) const {
  bool isOver = false;
  std::string inTheWay;
  QTimer timer;
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    isOver = true;
    // A window with a loop of its own would keep us from ever coming back.
    if (auto* window = QApplication::activeModalWidget(); window != nullptr) {
      inTheWay = "; in the way: \"" + window->windowTitle().toStdString() + "\"";
      window->close();
    }
  });
  timer.start(kPatience);
  while (!condition()) {
    if (isOver)
      throw StepFailed(std::string("waited ")
                           .append(std::to_string(kPatience.count()))
                           .append(" s in vain for ")
                           .append(what)
                           .append(inTheWay));
    if (demo_.application().isEnding()) throw StepFailed("the panel ended while waiting for " + what);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
}

QWidget& Stage::widget(const char* name) const {
  QWidget* found = nullptr;
  until([&] { return (found = visibleWidget(QString::fromLatin1(name))) != nullptr; },
        std::string("a visible ") + name);
  return *found;
}

void Stage::untilShown(const char* name) const {
  const auto& shown = widget(name);
  until([&] { return isOnScreen(shown); }, std::string(name) + " on the screen");
}

void Stage::untilHidden(const char* name) const {
  until([&] { return visibleWidget(QString::fromLatin1(name)) == nullptr; },
        std::string("the end of ") + name);
}

QWidget& Stage::usable(const char* name) const {
  auto& found = widget(name);
  until([&] { return found.isEnabled() && isOnScreen(found); }, std::string(name) + " to be usable");
  return found;
}

void Stage::click(QPoint pixel) {
  input_.moveTo(pixel.x(), pixel.y());
  input_.pressLeft();
  input_.releaseLeft();
}

void Stage::click(const char* name) {
  const auto& target = usable(name);
  click(target.mapToGlobal(target.rect().center()));
}

void Stage::clickChoice(const char* name) {
  const auto& target = usable(name);
  const int fromEdge = target.height() / 2;
  const int x = target.layoutDirection() == Qt::RightToLeft ? target.width() - fromEdge : fromEdge;
  click(target.mapToGlobal(QPoint(x, target.height() / 2)));
}

void Stage::turnTo(const char* tabs, const char* page) {
  auto& pages = dynamic_cast<QTabWidget&>(usable(tabs));
  auto* wanted = pages.findChild<QWidget*>(QString::fromLatin1(page));
  require(wanted != nullptr, std::string("there is no page ") + page);
  click(pages.tabBar()->mapToGlobal(pages.tabBar()->tabRect(pages.indexOf(wanted)).center()));
  until([&] { return wanted->isVisible(); }, std::string("the page ") + page);
}

void Stage::select(const simulated::SimulatedTouchscreen& touchscreen) {
  const auto& list = demo_.state().deviceListArray;
  const auto entry = demo_.entryOf(touchscreen);
  require(entry != nullptr, touchscreen.model().name + " is not listed");
  const auto row = static_cast<int>(std::ranges::find(list, entry) - list.begin());
  const auto& table = dynamic_cast<QTableView&>(usable("deviceTableView"));
  click(table.viewport()->mapToGlobal(table.visualRect(table.model()->index(row, 0)).center()));
  until([&] { return demo_.state().currentDict == entry; }, touchscreen.model().name + " to be selected");
}

}  // namespace touchpanel::demo
