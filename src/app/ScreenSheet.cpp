#include "app/ScreenSheet.h"

#include <algorithm>

#include "app/OutcomeSentences.h"
#include "contract/MonitorPlacement.h"
#include "platform/Translatable.h"

namespace touchpanel {
namespace {

constexpr int kScreenReturnCode = 0;

RegistryObject driverOf(const DeviceEntry& entry) { return registryObjectOf(*entry, entry_key::kHandle); }

}  // namespace

void ScreenSheet::open() {
  if (!listed_.empty()) return;
  if (!state_.hasSelection()) return ports_.statusLine.show(kNoDeviceSelected);
  shown_ = {};
  for (const auto& entry : state_.deviceListArray) {
    if (entry == state_.currentDict) shown_.touchscreen = listed_.size();
    listed_.push_back({entry, monitorOf(ports_.registry, driverOf(entry)).value_or(Dictionary())});
  }
  shown_.desktop = ports_.monitors.desktop();
  if (shown_.desktop.monitors.empty()) {
    listed_.clear();
    return ports_.statusLine.show(
        {TRANSLATABLE_TEXT("StatusLine", "Nothing is known of the screens of this desktop.")});
  }
  show();
  shown_.screen = shown_.touchscreens[shown_.touchscreen].screen;
  show();
  numbers_.showSmall(shown_.desktop, shown_.screen);
  ports_.sheets.begin(ports_.sheet, ports_.parent);
}

void ScreenSheet::show() {
  shown_.touchscreens.clear();
  for (const auto& [entry, before] : listed_) {
    const auto published = monitorOf(ports_.registry, driverOf(entry)).value_or(Dictionary());
    const auto* monitor = monitorFor(shown_.desktop, published.text(monitor_key::kIdentity));
    shown_.touchscreens.push_back(
        {entry->text(entry_key::kSN), static_cast<std::size_t>(monitor - shown_.desktop.monitors.data())});
  }
  ports_.view.show(shown_);
}

void ScreenSheet::markTouchscreen(std::size_t index) {
  if (index >= listed_.size() || index == shown_.touchscreen) return;
  shown_.touchscreen = index;
  ports_.view.show(shown_);
}

void ScreenSheet::markScreen(std::size_t index) {
  if (listed_.empty() || index >= shown_.desktop.monitors.size() || index == shown_.screen) return;
  shown_.screen = index;
  numbers_.showSmall(shown_.desktop, index);
  ports_.view.show(shown_);
}

void ScreenSheet::assign() {
  if (shown_.touchscreen < listed_.size()) put(listed_[shown_.touchscreen]);
}

void ScreenSheet::put(const Listed& listed) {
  const auto& monitor = shown_.desktop.monitors[shown_.screen];
  const Status status = choose(listed.entry, monitor.identity, monitor.name);
  shown_.outcome = sentenceOfScreen(listed.entry->text(entry_key::kSN), status);
  show();
}

Status ScreenSheet::choose(const DeviceEntry& entry, const std::string& identity, const std::string& name) {
  // In force before the session's own program has heard of it, and where there is none.
  auto message = placementMessage(shown_.desktop, identity);
  message.set(monitor_key::kIdentity, identity);
  message.set(monitor_key::kName, name);
  return ports_.registry.setProperty(driverOf(entry), property::kMonitor, message);
}

void ScreenSheet::startTouching() {
  if (listed_.empty() || isTouching_) return;
  isTouching_ = true;
  shown_.outcome = {};
  setCapture(true);
  numbers_.showFull(shown_.desktop, shown_.screen);
}

void ScreenSheet::setCapture(bool on) {
  for (const auto& [entry, before] : listed_) {
    const Status status = driver_.setCapture(driverOf(entry), on);
    if (on && status != kSuccess) shown_.outcome = sentenceOfScreen(entry->text(entry_key::kSN), status);
  }
}

void ScreenSheet::released() {
  const auto touched = std::ranges::find_if(listed_, [&](const Listed& listed) {
    const auto captured = driver_.readCapture(driverOf(listed.entry));
    return captured && captured->x != 0 && captured->y != 0;
  });
  if (touched == listed_.end()) return;  // a mouse
  stopTouching();
  shown_.touchscreen = static_cast<std::size_t>(touched - listed_.begin());
  put(*touched);
}

void ScreenSheet::escaped() {
  stopTouching();
  ports_.view.show(shown_);
}

void ScreenSheet::stopTouching() {
  isTouching_ = false;
  setCapture(false);
  numbers_.showSmall(shown_.desktop, shown_.screen);
}

void ScreenSheet::monitorsChanged() {
  if (listed_.empty()) return;
  auto desktop = ports_.monitors.desktop();
  if (desktop.monitors.empty() || desktop == shown_.desktop) return;
  shown_.desktop = std::move(desktop);
  shown_.screen = std::min(shown_.screen, shown_.desktop.monitors.size() - 1);
  if (isTouching_)
    stopTouching();
  else
    numbers_.showSmall(shown_.desktop, shown_.screen);
  show();
}

void ScreenSheet::ok() {
  if (!shown_.outcome.text.empty()) ports_.statusLine.show(shown_.outcome);
  close();
}

void ScreenSheet::cancel() {
  for (const auto& [entry, before] : listed_) {
    const auto now = monitorOf(ports_.registry, driverOf(entry));
    const auto identity = before.text(monitor_key::kIdentity);
    if (!now || now->text(monitor_key::kIdentity) == identity) continue;
    const Status status = choose(entry, identity, before.text(monitor_key::kName));
    if (status != kSuccess) ports_.statusLine.show(sentenceOfScreen(entry->text(entry_key::kSN), status));
  }
  close();
}

void ScreenSheet::close() {
  if (isTouching_) stopTouching();
  numbers_.hide();
  listed_.clear();
  ports_.sheet.orderOut();
  ports_.sheets.end(ports_.sheet, kScreenReturnCode);
}

}  // namespace touchpanel
