#include "app/DiscoveredDevices.h"

#include "platform/Translatable.h"

namespace touchpanel {

DiscoveredDevices::DiscoveredDevices(const Outlets& outlets, ControllerState& state, DeviceTable& table,
                                     CalibrationWrites& writes, SelectedDeviceFacts& facts,
                                     StatusLine& statusLine, EmptyListPage& emptyList)
    : outlets_(outlets),
      state_(state),
      table_(table),
      writes_(writes),
      facts_(facts),
      statusLine_(statusLine),
      emptyList_(emptyList) {}

void DiscoveredDevices::reloadDeviceTable() {
  outlets_.deviceTableView.reloadData();
  const auto& list = state_.deviceListArray;
  if (list.size() > shown_)
    statusLine_.show(
        {TRANSLATABLE_TEXT("StatusLine", "%1 was connected."), list.back()->text(entry_key::kSN)});
  if (list.size() < shown_)
    statusLine_.show({TRANSLATABLE_TEXT("StatusLine", "A touchscreen was unplugged.")});
  shown_ = list.size();
  if (!list.empty()) emptyList_.clear();
  writes_.update();
  facts_.update();
}

bool DiscoveredDevices::shouldSelectRow(std::int32_t row) {
  const bool selected = table_.shouldSelectRow(row);
  if (selected) outlets_.deviceTableView.selectRow(row);
  return selected;
}

void DiscoveredDevices::arriving() {
  if (!state_.deviceListArray.empty()) return;
  emptyList_.show({.state = ListNotice::State::Waiting,
                   .why = {TRANSLATABLE_TEXT("StatusLine", "A touchscreen was found.")},
                   .advice = TRANSLATABLE_TEXT("Alert", "It is being opened and read.")});
}

void DiscoveredDevices::notListed(const NotListed& reason) {
  const auto notice = noticeOf(reason);
  statusLine_.show(notice.why);
  if (state_.deviceListArray.empty()) emptyList_.show(notice);
}

void DiscoveredDevices::readInPart(ContentSet failed) {
  sayOfLast(
      failed.contains(Content::DeviceConfig)
          ? TRANSLATABLE_TEXT("StatusLine", "%1 was connected, but its configuration could not be read.")
          : TRANSLATABLE_TEXT("StatusLine", "%1 was connected, but not all that it holds could be read."));
}

void DiscoveredDevices::settingsUnreadable() {
  sayOfLast(TRANSLATABLE_TEXT(
      "StatusLine",
      "%1 was connected; the file with the settings could not be read, so it has the defaults."));
}

void DiscoveredDevices::sayOfLast(std::string_view text) {
  statusLine_.show({text, state_.deviceListArray.back()->text(entry_key::kSN)});
}

}  // namespace touchpanel
