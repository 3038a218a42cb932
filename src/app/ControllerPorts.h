#pragma once

#include "app/DeviceFacts.h"
#include "app/EarlierCalibrations.h"
#include "app/HistoryView.h"
#include "app/ListNotice.h"
#include "app/ScreenView.h"
#include "discovery/DiscoveryPorts.h"
#include "platform/Controls.h"
#include "platform/Monitors.h"
#include "platform/StatusLine.h"
#include "platform/View.h"

namespace touchpanel {

/// The platform as the control panel needs it, put together once where the program starts. Nothing is owned;
/// everything must outlive the controller.
struct ControllerPorts {
  DiscoveryPorts discovery;
  Sheets& sheets;
  Screen& screen;
  Monitors& monitors;
  Cursor& cursor;
  Presentation& presentation;
  StatusLine& statusLine;
  HistoryPorts history;
  FactsView& facts;
  HistoryView& earlier;
  ScreenView& screens;
  EmptyListPage& emptyList;
};

}  // namespace touchpanel
