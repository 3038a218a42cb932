#include "panel/FactsCard.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFormLayout>
#include <QLocale>
#include <QVBoxLayout>

#include "platform/ShowableText.h"

namespace touchpanel {
namespace {

/// Gives the texts of the facts their place in the catalogues.
class Texts {
  Q_DECLARE_TR_FUNCTIONS(DeviceFacts)
};

constexpr std::string_view kNoFirmware = "---";

QString shown(const std::string& fromDevice) { return QString::fromStdString(showableText(fromDevice)); }

QString kindText(DeviceKind kind) {
  switch (kind) {
    case DeviceKind::Infrared:
      return Texts::tr("Infrared touchscreen");
    case DeviceKind::Optical:
      return Texts::tr("Optical touchscreen");
    case DeviceKind::ConfigurationOnly:
      return Texts::tr("Touchscreen whose calibration is kept in a file");
    case DeviceKind::Unknown:
      break;
  }
  return Texts::tr("Touchscreen");
}

QString errorText(const CalibrationFit& fit) {
  const auto text = [](double error) { return QLocale().toString(error, 'f', 1); };
  if (fit.millimetres)
    return Texts::tr("mean error %1 mm, largest %2 mm")
        .arg(text(fit.millimetres->mean), text(fit.millimetres->largest));
  return Texts::tr("mean error %1 pixels, largest %2 pixels")
      .arg(text(fit.pixels.mean), text(fit.pixels.largest));
}

QString calibrationText(const DeviceFacts& facts) {
  if (!facts.isCalibrated) return Texts::tr("None; touches land where the touchscreen says.");
  if (!facts.calibration) return Texts::tr("There is one; when it was made is not known here.");
  const auto& [accepted, fit] = *facts.calibration;
  QString text = QLocale().toString(QDateTime::fromSecsSinceEpoch(accepted.time_since_epoch().count()),
                                    QLocale::ShortFormat);
  if (!fit) return text;
  text += QStringLiteral(", ") + Texts::tr("%n target(s)", nullptr, fit->targets);
  return text + QStringLiteral(": ") + errorText(*fit);
}

QString modeText(std::int32_t mode) {
  switch (mode) {
    case kClickOnTouch:
      return Texts::tr("click on touch");
    case kClickOnRelease:
      return Texts::tr("click on release");
    case kDragAndHold:
      return Texts::tr("drag");
    case kMultiTouch:
      return Texts::tr("multi-touch");
    default:
      return Texts::tr("touch mode %1").arg(mode);
  }
}

QString settingsText(const DeviceFacts& facts) {
  if (!facts.inForce) {
    if (facts.driver == kErrorNotResponding)
      return Texts::tr("Not known: the touch driver service does not answer.");
    return facts.driver == kErrorNoDevice
               ? Texts::tr("None: the touch driver service does not serve this touchscreen.")
               : Texts::tr("Not known: the touch driver service does not tell them.");
  }
  const auto& settings = *facts.inForce;
  QStringList texts{settings.enableTouch ? Texts::tr("Touch is on") : Texts::tr("Touch is off"),
                    modeText(settings.mode)};
  if (settings.mode == kDragAndHold && settings.enableRightClick)
    texts += Texts::tr("right click after %1 ms").arg(settings.rightClickTime);
  if (settings.clickRange > 0) texts += Texts::tr("click range %1").arg(settings.clickRange);
  if (facts.kind == DeviceKind::Optical) {
    texts += Texts::tr("smoothing %1").arg(settings.smoothness);
    if (settings.enableTouchSensitivity)
      texts += Texts::tr("rest after %1 ms").arg(settings.touchSensitivityTime);
  }
  return texts.join(QStringLiteral(" · "));
}

FactsDrawing::State stateOf(const DeviceFacts& facts) {
  if (facts.driver == kErrorNotResponding) return FactsDrawing::State::NoAnswer;
  return facts.isCalibrated ? FactsDrawing::State::Calibrated : FactsDrawing::State::Uncalibrated;
}

}  // namespace

FactsCard::FactsCard(QWidget* parent)
    : QFrame(parent),
      drawing_(new FactsDrawing),
      name_(new QLabel),
      kind_(new QLabel),
      tryOut_(new QPushButton(Texts::tr("Try out"))) {
  setFrameShape(StyledPanel);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  drawing_->setFixedSize(64, 48);
  QFont large = name_->font();
  large.setPointSizeF(large.pointSizeF() * 1.3);
  large.setBold(true);
  name_->setFont(large);
  tryOut_->setObjectName("btnTryOut");
  tryOut_->setMinimumSize(110, 36);
  tryOut_->setToolTip(Texts::tr("See on the whole screen where touches land (F11)"));

  auto* names = new QVBoxLayout;
  names->setSpacing(0);
  names->addWidget(name_);
  names->addWidget(kind_);
  auto* head = new QHBoxLayout;
  head->setSpacing(12);
  head->addWidget(drawing_);
  head->addLayout(names, 1);
  head->addWidget(tryOut_);
  auto* rows = new QFormLayout;
  rows->setObjectName("rows");
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setHorizontalSpacing(16);
  rows->setVerticalSpacing(3);
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 8, 12, 8);
  column->setSpacing(6);
  column->addLayout(head);
  column->addLayout(rows);

  calibration_ = addRow(Texts::tr("Calibration"));
  screen_ = addRow(Texts::tr("Screen"));
  settings_ = addRow(Texts::tr("In force"));
  for (auto* label : {name_, kind_}) {
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(0);
    label->setWordWrap(true);
  }
}

QLabel* FactsCard::addRow(const QString& caption) {
  auto* value = new QLabel;
  value->setProperty("caption", caption);
  value->setTextFormat(Qt::PlainText);
  value->setWordWrap(true);
  findChild<QFormLayout*>("rows")->addRow(caption, value);
  return value;
}

void FactsCard::showFacts(const DeviceFacts& facts) {
  setVisible(facts.isSelected);
  if (!facts.isSelected) return;
  const QString kind = kindText(facts.kind);
  const QString name = facts.barCode.empty() ? kind : shown(facts.barCode);
  QStringList details;
  if (!facts.barCode.empty()) details += kind;
  if (facts.firmware != kNoFirmware) details += Texts::tr("firmware %1").arg(shown(facts.firmware));
  name_->setText(name);
  kind_->setText(details.join(QStringLiteral(", ")));
  calibration_->setText(calibrationText(facts));
  screen_->setText(facts.monitor == 0 ? Texts::tr("Main screen") : Texts::tr("Screen %1").arg(facts.monitor));
  settings_->setText(settingsText(facts));
  drawing_->show(stateOf(facts));
}

}  // namespace touchpanel
