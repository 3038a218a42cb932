#pragma once

class QLabel;
class QWidget;

namespace touchpanel {

/// The label whose buddy is `widget`, in the same window; null when there is none.
QLabel* buddyLabelOf(const QWidget& widget);

}  // namespace touchpanel
