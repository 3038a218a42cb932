#include "panel/EmptyPage.h"

#include "panel/StatusArea.h"
#include "panel/Translations.h"

namespace touchpanel {

void EmptyPage::show(const ListNotice& notice) {
  window_.setNotice(translatedStatus(notice.why), alertText(notice.advice));
}

}  // namespace touchpanel
