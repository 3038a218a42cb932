#pragma once

#include <QStringList>
#include <set>
#include <string>
#include <vector>

namespace touchpanel {

/// A text that a view has drawn: as it was given and as it is shown.
struct DrawnText {
  std::string english;
  QString shown;
};

/// Finds in the pictures of a view what is news to somebody who does not see them.
///
/// A text that was not in the picture before is news. One whose numbers alone have changed is news in the answer
/// to something that the user did; where numbers change by themselves, that is a clock, which is never read out.
class SpokenPicture {
 public:
  /// Takes the next picture. `isAnswer`: the user has touched or pressed a key since the one before.
  QStringList news(const std::vector<DrawnText>& drawn, bool isAnswer);

 private:
  std::vector<DrawnText> before_;
  std::set<std::string> clocks_;
};

}  // namespace touchpanel
