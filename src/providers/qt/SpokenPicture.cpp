#include "providers/qt/SpokenPicture.h"

#include <algorithm>

namespace touchpanel {

QStringList SpokenPicture::news(const std::vector<DrawnText>& drawn, bool isAnswer) {
  QStringList found;
  for (const auto& text : drawn) {
    if (std::ranges::none_of(text.shown, [](QChar character) { return character.isLetter(); })) continue;
    const auto before = std::ranges::find(before_, text.english, &DrawnText::english);
    const bool isThere = before != before_.end();
    if (isThere && before->shown == text.shown) continue;
    if (isThere && !isAnswer) clocks_.insert(text.english);
    if (!clocks_.contains(text.english)) found += text.shown.endsWith(u'.') ? text.shown : text.shown + u'.';
  }
  before_ = drawn;
  found.removeDuplicates();  // buttons are drawn twice
  return found;
}

}  // namespace touchpanel
