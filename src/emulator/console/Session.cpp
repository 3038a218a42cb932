#include "emulator/console/Session.h"

#include <utility>

#include "emulator/console/Commands.h"
#include "emulator/console/Words.h"

namespace touchpanel::emulator {

void Session::feed(std::string_view text) {
  for (char character : text) {
    if (character != '\n') {
      partialLine_ += character;
      continue;
    }
    lines_.push_back(std::exchange(partialLine_, {}));
  }
}

void Session::finish() {
  if (!partialLine_.empty()) lines_.push_back(std::exchange(partialLine_, {}));
}

void Session::proceed(Time now) {
  deadline_.reset();
  while (!quit_) {
    if (!current_) {
      if (lines_.empty()) return;
      const std::string line = std::move(lines_.front());
      lines_.pop_front();
      begin(line, now);
      continue;
    }
    if (current_->steps.empty()) {
      answer("ok", current_->reply());
      continue;
    }
    const Progress progress = current_->steps.front()(now);
    switch (progress.state) {
      case Progress::State::Done:
        current_->steps.pop_front();
        break;
      case Progress::State::Failed:
        answer("error", progress.reason);
        break;
      case Progress::State::Waiting:
        deadline_ = progress.wakeAt;
        return;
    }
  }
}

void Session::begin(const std::string& line, Time now) {
  try {
    current_ = planFor(line, touchscreens_, now);
    quit_ = current_ && current_->quit;
  } catch (const WordError& error) {
    answer("error", error.what());
  }
}

void Session::answer(std::string_view verdict, const std::string& text) {
  output_ += verdict;
  if (!text.empty()) output_ += ' ' + text;
  output_ += '\n';
  current_.reset();
}

}  // namespace touchpanel::emulator
