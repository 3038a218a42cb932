#pragma once

class QLabel;

namespace touchpanel {

/// Makes screen readers say a label's text, for as long as the program runs. A label with the dynamic property
/// "caption" is read as "caption: text", so that a value makes sense without the words beside it; one with
/// "announced" is a notification. Needs a QApplication.
void makeLabelsSpoken();

/// Has a screen reader say what `label`, an announced one, shows now, wherever the keyboard is.
void announce(QLabel& label);

}  // namespace touchpanel
