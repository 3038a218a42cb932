#include "providers/qt/SpokenLabels.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

namespace touchpanel {
namespace {

constexpr const char* kCaption = "caption";
constexpr const char* kAnnounced = "announced";

class SpokenLabel final : public QAccessibleWidget {
 public:
  explicit SpokenLabel(QLabel& label)
      : QAccessibleWidget(&label, label.property(kAnnounced).toBool() ? QAccessible::Notification
                                                                      : QAccessible::StaticText),
        label_(label) {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    const QString caption = label_.property(kCaption).toString();
    return caption.isEmpty() || label_.text().isEmpty()
               ? label_.text()
               : QStringLiteral("%1: %2").arg(caption, label_.text());
  }

 private:
  const QLabel& label_;
};

QAccessibleInterface* spokenLabel(const QString& /*className*/, QObject* object) {
  auto* label = qobject_cast<QLabel*>(object);
  if (label == nullptr || !(label->property(kCaption).isValid() || label->property(kAnnounced).isValid()))
    return nullptr;
  return new SpokenLabel(*label);  // the toolkit takes it over
}

}  // namespace

void makeLabelsSpoken() { QAccessible::installFactory(&spokenLabel); }

void announce(QLabel& label) {
  if (label.text().isEmpty()) return;
  // What comes into view is what a screen reader says of a notification.
  QAccessibleEvent shown(&label, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&shown);
}

}  // namespace touchpanel
