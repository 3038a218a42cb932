#include "emulator/console/Commands.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "emulator/console/DeviceOptions.h"
#include "emulator/console/Words.h"
#include "platform/HexText.h"
#include "protocol/DeviceContext.h"

namespace touchpanel::emulator {
namespace {

using namespace std::chrono_literals;
using Arguments = std::vector<std::string>;

constexpr Time kGestureStep = 10ms;  // the rate at which a usual touchscreen reports a moving finger
constexpr Time kTapTime = 60ms;
constexpr Time kPortRetry = 20ms;    // a port becomes free without an event
constexpr Time kPortPatience = 20s;  // the kernel waits 5 s for a device that goes while it is being set up
constexpr Time kAwaitPatience = 10s;
constexpr std::uint64_t kLongestTimeMs = 3'600'000;

Step at(Time due, std::function<void()> action) {
  return [due, action = std::move(action)](Time now) -> Progress {
    if (now < due) return {Progress::State::Waiting, due, {}};
    if (action) action();
    return {};
  };
}

std::uint16_t scanTime(Time now) { return static_cast<std::uint16_t>(now / 100us); }

struct Context {
  const Arguments& words;  // the command's own name first
  Touchscreens& touchscreens;
  Time now;

  bool has(std::size_t index) const { return index < words.size(); }
  Touchscreen& touchscreen() const {
    if (Touchscreen* found = touchscreens.find(words[1])) return *found;
    throw WordError("there is no touchscreen called " + words[1]);
  }
  Touchscreen& pluggedTouchscreen() const {
    Touchscreen& found = touchscreen();
    if (!found.connection) throw WordError(words[1] + " is not plugged in");
    return found;
  }
  std::size_t finger(std::size_t index) const {
    return wholeNumber(words[index], 0, kFingers - 1, "a finger");
  }
  firmware::ScreenFraction point(std::size_t index) const {
    return {number(words[index], 0, 1, "a coordinate"), number(words[index + 1], 0, 1, "a coordinate")};
  }
  Time time(std::size_t index, Time otherwise) const {
    if (!has(index)) return otherwise;
    return std::chrono::milliseconds(wholeNumber(words[index], 0, kLongestTimeMs, "a time in milliseconds"));
  }
};

/// Where a finger is from a moment on; without a point it is off the glass.
struct Stop {
  Time due;
  std::optional<firmware::ScreenFraction> point;
};

/// Moves a finger from stop to stop. The reply is the raw point of its last touch, and how many reports were lost.
Plan gesture(Touchscreen& touchscreen, std::size_t finger, const std::vector<Stop>& stops) {
  Plan plan;
  const auto raw = std::make_shared<firmware::RawPoint>();
  for (const Stop& stop : stops) {
    plan.steps.push_back(at(stop.due, [=, &touchscreen] {
      if (!touchscreen.connection) return;  // unplugged meanwhile
      if (stop.point) {
        *raw = touchscreen.device.touch(finger, *stop.point, scanTime(stop.due));
      } else {
        touchscreen.device.lift(finger, scanTime(stop.due));
      }
    }));
  }
  plan.reply = [raw, &touchscreen, before = touchscreen.device.droppedReports()] {
    std::string text = "raw " + std::to_string(raw->x) + ' ' + std::to_string(raw->y);
    const std::uint64_t dropped = touchscreen.device.droppedReports() - before;
    if (dropped > 0) text += " dropped " + std::to_string(dropped);
    return text;
  };
  return plan;
}

Touchscreen& newTouchscreen(const Context& context) {
  const DeviceOptions options = deviceOptions(context.words[2], std::span(context.words).subspan(3));
  Touchscreen& added = context.touchscreens.add(
      context.words[1], UsbTouchscreen(options.description, options.distortion, options.seed));
  added.port = options.port;
  return added;
}

Plan plug(const Context& context) {
  const std::string& name = context.words[1];
  Touchscreen* const known = context.touchscreens.find(name);
  if (!known && !context.has(2)) throw WordError("a new touchscreen needs a kind");
  if (known && context.has(2)) throw WordError(name + " exists already; plug it in again without a kind");
  if (known && known->connection) throw WordError(name + " is plugged in already");
  Touchscreen& touchscreen = known ? *known : newTouchscreen(context);
  Plan plan;
  plan.steps.emplace_back([touchscreens = &context.touchscreens, &touchscreen, name, isNew = !known,
                           patience = context.now + kPortPatience](Time now) -> Progress {
    PlugResult result = touchscreens->plug(touchscreen);
    if (result.outcome == PlugResult::Outcome::Plugged) return {};
    if (result.outcome == PlugResult::Outcome::PortBusy && now < patience) {
      return {Progress::State::Waiting, now + kPortRetry, {}};
    }
    if (isNew) touchscreens->remove(name);
    return {Progress::State::Failed, {}, result.reason};
  });
  plan.reply = [&touchscreen] { return "port " + std::to_string(touchscreen.port.value_or(-1)); };
  return plan;
}

Plan unplug(const Context& context) {
  context.touchscreens.unplug(context.pluggedTouchscreen());
  return {};
}

Plan down(const Context& context) {
  return gesture(context.pluggedTouchscreen(), context.finger(2), {{context.now, context.point(3)}});
}

Plan up(const Context& context) {
  Touchscreen& touchscreen = context.pluggedTouchscreen();
  touchscreen.device.lift(context.finger(2), scanTime(context.now));
  return {};
}

Plan tap(const Context& context) {
  const Time lift = context.now + context.time(4, kTapTime);
  return gesture(context.pluggedTouchscreen(), 0, {{context.now, context.point(2)}, {lift, std::nullopt}});
}

Plan swipe(const Context& context) {
  const firmware::ScreenFraction from = context.point(2), to = context.point(4);
  const Time step = std::max<Time>(context.time(7, kGestureStep), 1ms);
  const auto moves = static_cast<int>(context.time(6, 0s) / step);
  std::vector<Stop> stops = {{context.now, from}};
  for (int i = 1; i <= moves; ++i) {
    const double part = static_cast<double>(i) / moves;
    stops.push_back(
        {context.now + i * step, {{from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)}}});
  }
  stops.push_back({stops.back().due + step, std::nullopt});
  return gesture(context.pluggedTouchscreen(), 0, stops);
}

Plan fault(const Context& context) {
  Touchscreen& touchscreen = context.touchscreen();
  const std::uint32_t argument =
      context.has(3) ? static_cast<std::uint32_t>(wholeNumber(context.words[3], 0, UINT32_MAX, "an argument"))
                     : 0;
  if (context.words[2] == "unplugs-after-packets") {
    if (argument == 0) throw WordError("unplugs-after-packets takes a number from 1");
    touchscreen.device.unplugAfter(argument);
    return {};
  }
  touchscreen.device.firmware().setFault({faultNamed(context.words[2]), argument});
  return {};
}

Plan await(const Context& context) {
  Touchscreen& touchscreen = context.touchscreen();
  const std::string& state = context.words[2];
  std::function<bool()> reached;
  if (state == "configured") {
    reached = [&touchscreen] { return touchscreen.device.configuration() != 0; };
  } else if (state == "listening") {
    reached = [&touchscreen] { return touchscreen.device.listened(); };
  } else if (state == "unplugged") {
    reached = [&touchscreen] { return !touchscreen.connection; };
  } else {
    throw WordError("a state is configured, listening or unplugged");
  }
  Plan plan;
  plan.steps.emplace_back([reached, deadline = context.now + context.time(3, kAwaitPatience),
                           what = context.words[1] + " is not " + state](Time now) -> Progress {
    if (reached()) return {};
    if (now < deadline) return {Progress::State::Waiting, deadline, {}};
    return {Progress::State::Failed, {}, what};
  });
  return plan;
}

Plan waitFor(const Context& context) {
  Plan plan;
  plan.steps.push_back(at(context.now + context.time(1, 0s), nullptr));
  return plan;
}

std::string hex(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint32_t byte : bytes) text += hexText(byte, 2);
  return text;
}

Plan dump(const Context& context) {
  const Touchscreen& touchscreen = context.touchscreen();
  const firmware::Firmware& firmware = touchscreen.device.firmware();
  const firmware::DeviceDescription& stored = firmware.stored();
  std::string text = "product=0x" + hexText(std::uint32_t{stored.productId}, 4);
  text += " ScreenProps=" + hex(imageOf(stored.screenProps));
  text += " DeviceConfig=" + hex(imageOf(stored.deviceConfig));
  text += " CalibParams=" + hex(imageOf(stored.calibParams));
  text += " version=" + hex(stored.version) + " barcode=" + hex(stored.barCode);
  text += std::string(" mode=") + (firmware.inCommandMode() ? "command" : "work");
  text += " packets=" + std::to_string(firmware.packetsReceived());
  text += " dropped=" + std::to_string(touchscreen.device.droppedReports());
  return {.steps = {}, .reply = [text] { return text; }};
}

Plan list(const Context& context) {
  std::string text;
  for (const auto& [name, touchscreen] : context.touchscreens.all()) {
    if (!text.empty()) text += ' ';
    text += name + (touchscreen->connection ? '@' + std::to_string(*touchscreen->port) : "@-");
  }
  return {.steps = {}, .reply = [text] { return text; }};
}

Plan quit(const Context&) { return {.steps = {}, .quit = true}; }

struct CommandRule {
  std::string_view name;
  std::string_view arguments;
  std::size_t fewest, most;  // words after the name
  Plan (*make)(const Context&);
  std::string_view meaning;
};

constexpr std::array kRules = {
    CommandRule{"plug", "NAME [KIND [OPTION=VALUE...]]", 1, 16, plug,
                "plug in a new touchscreen, or one again that was unplugged"},
    CommandRule{"unplug", "NAME", 1, 1, unplug, "pull it out; what it has stored lives on"},
    CommandRule{"down", "NAME FINGER X Y", 4, 4, down, "put finger 0..9 on the glass"},
    CommandRule{"move", "NAME FINGER X Y", 4, 4, down, "move it"},
    CommandRule{"up", "NAME FINGER", 2, 2, up, "take it off"},
    CommandRule{"tap", "NAME X Y [MS]", 3, 4, tap, "touch and leave after 60 ms"},
    CommandRule{"hold", "NAME X Y MS", 4, 4, tap, "touch and leave after a time"},
    CommandRule{"swipe", "NAME X Y TO-X TO-Y MS [STEP-MS]", 6, 7, swipe,
                "touch, move and leave, a report every 10 ms"},
    CommandRule{"fault", "NAME FAULT [NUMBER]", 2, 3, fault, "from now on it has that fault; none ends it"},
    CommandRule{"dump", "NAME", 1, 1, dump, "tell what it has stored, in hexadecimal"},
    CommandRule{"list", "", 0, 0, list, "tell all touchscreens with their ports"},
    CommandRule{"await", "NAME STATE [MS]", 2, 3, await,
                "wait until it is configured, listening or unplugged, at most 10 s"},
    CommandRule{"wait", "MS", 1, 1, waitFor, "do nothing for a time"},
    CommandRule{"quit", "", 0, 0, quit, "unplug everything and end"},
};

}  // namespace

std::optional<Plan> planFor(std::string_view line, Touchscreens& touchscreens, Time now) {
  const Arguments words = wordsOf(line);
  if (words.empty()) return std::nullopt;
  const auto rule =
      std::find_if(kRules.begin(), kRules.end(), [&](const auto& each) { return each.name == words[0]; });
  if (rule == kRules.end()) throw WordError("there is no command " + words[0]);
  if (words.size() - 1 < rule->fewest || words.size() - 1 > rule->most)
    throw WordError("usage: " + std::string(rule->name) + ' ' + std::string(rule->arguments));
  return rule->make({words, touchscreens, now});
}

std::string commandHelp() {
  std::string text;
  for (const CommandRule& rule : kRules) {
    std::string usage = "  " + std::string(rule.name) + ' ' + std::string(rule.arguments);
    usage.resize(std::max<std::size_t>(usage.size() + 1, 40), ' ');
    text += usage + std::string(rule.meaning) + '\n';
  }
  return text;
}

}  // namespace touchpanel::emulator
