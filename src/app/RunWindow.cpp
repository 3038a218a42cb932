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
  const auto& result = run_.result();
  const auto sentence = sentenceOf(result, run_.entry()->text(entry_key::kSN));
  const auto* fit = run_.fit();
  if (result.ending == RunResult::Ending::Accepted)
    writes_.report(run_.entry(), run_.contextBefore(),
                   {.event = CalibrationEvent::Accepted,
                    .context = run_.deviceContext(),
                    .fit = fit ? keptFit(fit->report(), screen_) : std::nullopt},
                   result.written, sentence);
  else
    statusLine_.show(sentence);
  facts_.update();
}

}  // namespace touchpanel
