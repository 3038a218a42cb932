#include "driver/service/StateStore.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/HexText.h"

namespace touchpanel::driver {

namespace {
/// Leaves room in a file name for everything else.
constexpr std::size_t kLongestPlace = 160;

/// `text` in letters, digits, '.', ':' and '-', every other character as '_' and two digits: no two texts become one.
std::string fileNameOf(std::string_view text) {
  std::string name;
  for (const char each : text) {
    const auto byte = static_cast<unsigned char>(each);
    if (std::isalnum(byte) != 0 || each == '.' || each == ':' || each == '-')
      name += each;
    else
      name += '_' + hexText(byte, 2);
  }
  return name;
}

std::string describe(Status status) {
  switch (status) {
    case kErrorNoSpace:
      return "no space is left";
    case kErrorNotPermitted:
      return "permission denied, or read-only";
    case kErrorNotFound:
      return "there is no such directory";
    case kErrorUnsupported:
      return "it is damaged, or not one of ours";
    default:
      return "error " + hexText(status);
  }
}
}  // namespace

StateStore::StateStore(PropertyListFiles& files, FileWorker& worker, std::string directory,
                       Diagnostics& diagnostics)
    : files_(files),
      worker_(worker),
      directory_(std::move(directory)),
      diagnostics_(diagnostics),
      outage_(diagnostics) {}

StateStore::~StateStore() { worker_.finish(); }

std::string StateStore::pathOf(const TouchscreenIdentity& identity) const {
  const auto place = fileNameOf(identity.path);
  const bool lasts = !place.empty() && place.size() <= kLongestPlace;
  return directory_ + "/touchscreen-" + (lasts ? place : hexText(identity.locationId)) + "-" +
         hexText(identity.productId, 4) + ".plist";
}

Dictionary StateStore::load(const TouchscreenIdentity& identity) {
  return fileAt(pathOf(identity), pathOf({identity.locationId, identity.productId})).contents;
}

void StateStore::save(const TouchscreenIdentity& identity, const Dictionary& state) {
  save(pathOf(identity), state);
}

void StateStore::understood(const TouchscreenIdentity& identity, const Dictionary& state) {
  fileAt(pathOf(identity)).contents = state;
}

void StateStore::understoodInPart(const TouchscreenIdentity& identity, const Dictionary& state) {
  const auto path = pathOf(identity);
  diagnostics_.line("The state in " + path + " is damaged; what is sound of it is used.");
  if (files_.move(path, path + ".damaged") == kSuccess) return save(path, state);
  understood(identity, state);
}

void StateStore::load(HidSystem& hidSystem) {
  for (const auto& [name, value] : fileAt(hidSystemPath()).contents) hidSystem.setProperty(name, value);
}

void StateStore::save(const HidSystem& hidSystem) {
  save(hidSystemPath(), *hidSystem.properties().begin()->second.get<Dictionary>());
}

StateStore::File& StateStore::fileAt(const std::string& path, const std::string& formerPath) {
  const auto [found, isNew] = known_.try_emplace(path);
  if (!isNew) return found->second;
  Status status = kSuccess;
  auto contents = files_.read(path, status);
  if (status == kErrorNotFound && !formerPath.empty() && formerPath != path) {
    // Whatever is plugged in there from now on, it is another touchscreen's.
    if (files_.move(formerPath, path) == kSuccess) known_.erase(formerPath);
    contents = files_.read(path, status);
  }
  if (contents)
    found->second.contents = std::move(*contents);
  else if (status != kErrorNotFound)
    diagnostics_.line("The state in " + path + " cannot be read: " + describe(status) +
                      ". Defaults are used; the file is left alone until something is saved.");
  return found->second;
}

void StateStore::save(const std::string& path, const Dictionary& contents) {
  auto& file = fileAt(path);
  const bool isChanged = file.contents != contents;
  const bool isUnderWay = !queue_.empty() && queue_.front() == path;
  if (!isChanged && !isUnderWay && !file.queued && file.written == kSuccess) return;
  ++saves_;
  if (!isChanged && isUnderWay) return;
  file.contents = contents;
  if (std::exchange(file.queued, true)) return;
  queue_.push_back(path);
  if (queue_.size() == 1) writeNext();
}

void StateStore::writeNext() {
  auto& file = known_.at(queue_.front());
  file.queued = false;
  worker_.post(
      [&files = files_, path = queue_.front(), contents = file.contents]() {
        const auto status = files.writeAtomically(path, contents);
        return status == kErrorUnsupported ? kErrorInputOutput : status;
      },
      [this](Status status) { finishTurn(status); });
}

void StateStore::finishTurn(Status status) {
  known_.at(queue_.front()).written = status;
  queue_.pop_front();
  ++turnsDone_;
  if (!queue_.empty()) writeNext();
  if (status != kSuccess)
    outage_.begin("State cannot be saved in " + directory_ + ": " + describe(status) +
                  ". Settings are in force, and lost when the service ends.");
  else if (std::ranges::all_of(known_, [](const auto& each) { return each.second.written == kSuccess; }))
    outage_.end("State can be saved again.");

  for (auto& waiter : waiters_)
    if (status != kSuccess) waiter.status = status;
  while (!waiters_.empty() && waiters_.front().turn <= turnsDone_) {
    const auto waiter = std::move(waiters_.front());
    waiters_.pop_front();
    waiter.done(waiter.status);
  }
}

void StateStore::whenDurable(Done done) {
  if (queue_.empty()) return done(kSuccess);
  waiters_.push_back({turnsDone_ + queue_.size(), kSuccess, std::move(done)});
}

}  // namespace touchpanel::driver
