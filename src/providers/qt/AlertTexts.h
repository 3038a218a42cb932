#pragma once

#include <QString>
#include <string_view>

namespace touchpanel {

/// `english`, a text of an alert as the logic gives it, in the user's language. A text that is in no
/// catalogue is shown as it is.
QString alertText(std::string_view english);

}  // namespace touchpanel
