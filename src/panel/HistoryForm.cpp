#include "panel/HistoryForm.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHeaderView>
#include <QLocale>

#include "platform/ShowableText.h"

namespace touchpanel {
namespace {

/// Gives the texts of the sheet their place in the catalogues.
class HistoryTexts {
  Q_DECLARE_TR_FUNCTIONS(HistorySheet)
};

QString number(double value) { return QLocale().toString(value, 'f', 1); }

QString distanceText(double pixels, const std::optional<double>& millimetres) {
  if (!millimetres) return HistoryTexts::tr("%1 px").arg(number(pixels));
  return HistoryTexts::tr("%1 px, %2 mm").arg(number(pixels), number(*millimetres));
}

QString eventText(const CalibrationRecord& record) {
  switch (record.event) {
    case CalibrationEvent::AsFound:
      return record.isCalibrated() ? HistoryTexts::tr("As found")
                                   : HistoryTexts::tr("As found, not calibrated");
    case CalibrationEvent::Replaced:
      return record.isCalibrated() ? HistoryTexts::tr("As it was before")
                                   : HistoryTexts::tr("As it was before, not calibrated");
    case CalibrationEvent::Accepted:
      return HistoryTexts::tr("Calibrated");
    case CalibrationEvent::Reset:
      return HistoryTexts::tr("Reset");
    default:
      return record.isCalibrated() ? HistoryTexts::tr("Restored")
                                   : HistoryTexts::tr("Restored, not calibrated");
  }
}

QString withOutcome(const QString& event, WrittenState written) {
  switch (written) {
    case WrittenState::Yes:
      return event;
    case WrittenState::Partly:
      return HistoryTexts::tr("%1 (written only in part)").arg(event);
    case WrittenState::No:
      return HistoryTexts::tr("%1 (not written)").arg(event);
    default:
      return HistoryTexts::tr("%1 (not known whether written)").arg(event);
  }
}

QString whatText(const CalibrationRecord& record, bool isInUse) {
  const auto text = withOutcome(eventText(record), record.written);
  return isInUse ? HistoryTexts::tr("%1 – held now").arg(text) : text;
}

QStringList cellsOf(const CalibrationRecord& record, bool isInUse) {
  const auto time = QDateTime::fromSecsSinceEpoch(record.time.time_since_epoch().count());
  const auto none = QStringLiteral("\u2013");
  QStringList cells{QLocale().toString(time, QLocale::ShortFormat), whatText(record, isInUse), none, none,
                    none};
  if (!record.fit) return cells;
  const auto errorText = [&](double TouchErrors::*error) {
    const auto& millimetres = record.fit->millimetres;
    return distanceText(record.fit->pixels.*error,
                        millimetres ? std::optional((*millimetres).*error) : std::nullopt);
  };
  cells[2] = QLocale().toString(record.fit->targets);
  cells[3] = errorText(&TouchErrors::mean);
  cells[4] = errorText(&TouchErrors::largest);
  return cells;
}

/// What the map shows, in words.
QString mapInWords(const CalibrationFit& fit) {
  QStringList lines;
  for (const auto& distance : touchDistances(fit))
    lines << HistoryTexts::tr("Target %1: %2")
                 .arg(QLocale().toString(lines.size() + 1),
                      distanceText(distance.pixels, distance.millimetres));
  return lines.join('\n');
}

}  // namespace

HistoryForm::HistoryForm(QDialog& sheet) {
  ui_.setupUi(&sheet);
  ui_.historyTable->setHorizontalHeaderLabels(
      {HistoryTexts::tr("Date and time"), HistoryTexts::tr("What it was"), HistoryTexts::tr("Targets"),
       HistoryTexts::tr("Mean error"), HistoryTexts::tr("Largest error")});
  ui_.historyTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  ui_.historyTable->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  QObject::connect(ui_.historyTable, &QTableWidget::currentCellChanged, &sheet, [this] { showRow(); });
}

void HistoryForm::show(const ShownHistory& history) {
  history_ = history;
  const auto& records = history_.records;
  ui_.lbHistoryDevice->setText(QString::fromStdString(showableText(history.device)));
  ui_.lbHistoryDamaged->setVisible(history.isDamaged);
  ui_.historyStack->setCurrentWidget(records.empty() ? ui_.emptyHistoryPage : ui_.historyPage);
  ui_.btnRestore->setEnabled(!records.empty());
  ui_.historyTable->setRowCount(static_cast<int>(records.size()));
  for (std::size_t row = 0; row < records.size(); ++row) {
    const auto cells = cellsOf(records[row], history.inUse == row);
    for (int column = 0; column < cells.size(); ++column)
      ui_.historyTable->setItem(static_cast<int>(row), column, new QTableWidgetItem(cells[column]));
  }
  if (!records.empty()) ui_.historyTable->setCurrentCell(0, 0);
  showRow();
  if (records.empty())
    ui_.btnHistoryClose->setFocus();
  else
    ui_.historyTable->setFocus();
}

std::optional<std::size_t> HistoryForm::selectedRow() const {
  const int row = ui_.historyTable->currentRow();
  if (row < 0 || static_cast<std::size_t>(row) >= history_.records.size()) return std::nullopt;
  return static_cast<std::size_t>(row);
}

void HistoryForm::showRow() {
  const auto row = selectedRow();
  const auto fit = row ? history_.records[*row].fit : std::nullopt;
  ui_.errorMap->show(fit);
  const int exaggeration = ui_.errorMap->exaggeration();
  if (exaggeration == 0)
    ui_.lbErrorMap->setText(HistoryTexts::tr("Where its touches landed is not known."));
  else if (exaggeration == 1)
    ui_.lbErrorMap->setText(HistoryTexts::tr("Crosses are targets; dots are where their touches landed."));
  else
    ui_.lbErrorMap->setText(
        HistoryTexts::tr(
            "Crosses are targets; dots are where their touches landed, drawn %1 times as far off.")
            .arg(QLocale().toString(exaggeration)));
  ui_.errorMap->setAccessibleDescription(fit ? mapInWords(*fit) : QString());
}

}  // namespace touchpanel
