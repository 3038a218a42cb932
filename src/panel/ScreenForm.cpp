#include "panel/ScreenForm.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSignalBlocker>

#include "panel/StatusArea.h"
#include "platform/ShowableText.h"
#include "providers/qt/SpokenLabels.h"

namespace touchpanel {
namespace {

/// Gives the texts of the sheet their place in the catalogues.
class ScreenTexts {
  Q_DECLARE_TR_FUNCTIONS(ScreenSheet)
};

QString numberOf(std::size_t screen) { return QLocale().toString(qulonglong{screen} + 1); }

/// What the picture shows, in words.
QString inWords(const ShownScreens& screens) {
  QStringList lines{ScreenTexts::tr("Screen %1 is chosen.").arg(numberOf(screens.screen))};
  for (std::size_t index = 0; index < screens.desktop.monitors.size(); ++index)
    lines << ScreenTexts::tr("Screen %1: %2")
                 .arg(numberOf(index),
                      QString::fromStdString(showableText(screens.desktop.monitors[index].name)));
  return lines.join(u'\n');
}

}  // namespace

ScreenForm::ScreenForm(QDialog& sheet) {
  ui_.setupUi(&sheet);
  ui_.screensPicture->onMark = [this](std::size_t index) { onScreen(index); };
  ui_.screensPicture->onAssign = [this] { onAssign(); };
  QObject::connect(ui_.touchscreenList, &QListWidget::currentRowChanged, &sheet, [this](int row) {
    if (row >= 0) onTouchscreen(static_cast<std::size_t>(row));
  });
}

void ScreenForm::show(const ShownScreens& screens) {
  ui_.screensPicture->show(screens);
  ui_.screensPicture->setAccessibleDescription(inWords(screens));
  {
    const QSignalBlocker quiet(ui_.touchscreenList);
    ui_.touchscreenList->clear();
    for (const auto& [name, screen] : screens.touchscreens)
      ui_.touchscreenList->addItem(ScreenTexts::tr("%1: on screen %2")
                                       .arg(QString::fromStdString(showableText(name)), numberOf(screen)));
    ui_.touchscreenList->setCurrentRow(static_cast<int>(screens.touchscreen));
  }
  const auto number = numberOf(screens.screen);
  ui_.btnTouchScreen->setText(ScreenTexts::tr("&Touch the screen that shows %1").arg(number));
  ui_.btnAssignScreen->setText(ScreenTexts::tr("&Put it on screen %1").arg(number));
  const QString outcome = screens.outcome.text.empty() ? QString() : translatedStatus(screens.outcome);
  if (outcome == ui_.lbScreenOutcome->text()) return;
  ui_.lbScreenOutcome->setText(outcome);
  announce(*ui_.lbScreenOutcome);
}

}  // namespace touchpanel
