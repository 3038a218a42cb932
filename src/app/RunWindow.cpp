#include "app/RunWindow.h"

namespace touchpanel {

void RunWindow::present(View& view) {
  window_->setContentView(view);
  window_->setShieldingLevel();
  window_->makeKeyAndOrderFront();
  window_->setInitialFirstResponder(view);
}

void RunWindow::close() {
  window_->close();
  facts_.update();
  const auto& result = run_.result();
  const auto sentence = sentenceOf(result, run_.entry()->text(entry_key::kSN));
  if (result.ending == RunResult::Ending::Accepted)
    writes_.report(run_.entry(), run_.deviceContext(), result.written, sentence);
  else
    statusLine_.show(sentence);
}

}  // namespace touchpanel
