#include "panel/EmptyPage.h"

#include "panel/StatusArea.h"
#include "panel/Translations.h"

namespace touchpanel {
namespace {

ListState pictureOf(ListNotice::State state) {
  switch (state) {
    case ListNotice::State::Waiting:
      return ListState::Waiting;
    case ListNotice::State::Refused:
      return ListState::Refused;
    case ListNotice::State::ServiceDown:
      return ListState::ServiceDown;
  }
  return ListState::Empty;
}

}  // namespace

void EmptyPage::show(const ListNotice& notice) {
  window_.setNotice(pictureOf(notice.state), translatedStatus(notice.why), alertText(notice.advice));
}

}  // namespace touchpanel
