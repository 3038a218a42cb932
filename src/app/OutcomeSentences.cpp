#include "app/OutcomeSentences.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/Translatable.h"

namespace touchpanel {

namespace {

/// The sentences about one attempt, by WriteOutcome::Kind.
using ByOutcome = std::array<const char*, 4>;

struct WriteSentences {
  ByOutcome inUse;         ///< the driver instance confirmed it
  ByOutcome notConfirmed;  ///< it did not
};

constexpr ByOutcome kRepetition = {
    TRANSLATABLE_TEXT("StatusLine", "What was to be written to %1 is written now."),
    TRANSLATABLE_TEXT("StatusLine", "%1 could not be written this time either: %2."),
    TRANSLATABLE_TEXT("StatusLine", "Only part was written to %1: %2."),
    TRANSLATABLE_TEXT("StatusLine", "Whether %1 is written now is not known: %2.")};

constexpr WriteSentences kCalibration = {
    {TRANSLATABLE_TEXT("StatusLine", "The new calibration of %1 is written and in use."),
     TRANSLATABLE_TEXT("StatusLine", "The new calibration of %1 is in use, but was not written: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The new calibration of %1 is in use, but was written only in part: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The new calibration of %1 is in use, but whether it was written is not known: %2.")},
    {TRANSLATABLE_TEXT("StatusLine",
                       "The new calibration of %1 is written, but not confirmed to be in use: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The new calibration of %1 is not confirmed to be in use, and was not written: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The new calibration of %1 is not confirmed to be in use, and was written only in part: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The new calibration of %1 is not confirmed to be in use, and whether it was written is "
         "not known: %2.")}};

constexpr WriteSentences kReset = {
    {TRANSLATABLE_TEXT("StatusLine", "%1 has no calibration any more; that is written and in force."),
     TRANSLATABLE_TEXT("StatusLine", "The reset of %1 is in force, but was not written: %2."),
     TRANSLATABLE_TEXT("StatusLine", "The reset of %1 is in force, but was written only in part: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The reset of %1 is in force, but whether it was written is not known: %2.")},
    {TRANSLATABLE_TEXT("StatusLine", "The reset of %1 is written, but not confirmed to be in force: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The reset of %1 is not confirmed to be in force, and was not written: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The reset of %1 is not confirmed to be in force, and was written only in part: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The reset of %1 is not confirmed to be in force, and whether it was written is not known: %2.")}};

constexpr WriteSentences kRestore = {
    {TRANSLATABLE_TEXT("StatusLine", "The earlier calibration of %1 is written and in use again."),
     TRANSLATABLE_TEXT("StatusLine", "The earlier calibration of %1 is in use, but was not written: %2."),
     TRANSLATABLE_TEXT("StatusLine",
                       "The earlier calibration of %1 is in use, but was written only in part: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The earlier calibration of %1 is in use, but whether it was written is not known: %2.")},
    {TRANSLATABLE_TEXT("StatusLine",
                       "The earlier calibration of %1 is written, but not confirmed to be in use: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The earlier calibration of %1 is not confirmed to be in use, and was not written: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The earlier calibration of %1 is not confirmed to be in use, and was written only in part: %2."),
     TRANSLATABLE_TEXT(
         "StatusLine",
         "The earlier calibration of %1 is not confirmed to be in use, and whether it was written is "
         "not known: %2.")}};

const WriteSentences& sentencesOf(WriteAttempt attempt) {
  switch (attempt) {
    case WriteAttempt::Reset:
      return kReset;
    case WriteAttempt::Restore:
      return kRestore;
    default:
      return kCalibration;
  }
}

/// `whyNotInUse` is empty when the driver instance confirmed it.
StatusMessage sentenceOfWrite(WriteAttempt attempt, std::string device, const WriteOutcome& written,
                              std::string_view whyNotInUse) {
  const auto kind = static_cast<std::size_t>(written.kind);
  const bool inUse = whyNotInUse.empty();
  const auto& [ifInUse, ifNotConfirmed] = sentencesOf(attempt);
  const char* text = attempt == WriteAttempt::Repetition ? kRepetition.at(kind)
                                                         : (inUse ? ifInUse : ifNotConfirmed).at(kind);
  return {.text = text,
          .device = std::move(device),
          .reason = written.isWritten() ? whyNotInUse : written.reason,
          .canRepeat = !written.isWritten()};
}

/// A service that did not answer may have done what it was asked for.
bool mayHaveArrived(Status driver) {
  return driver == kErrorNotResponding || driver == kErrorTimeout || driver == kErrorGeneral;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const auto& name : names) text.append(text.empty() ? "" : ", ").append(name);
  return text;
}

}  // namespace

StatusMessage sentenceOf(WriteAttempt attempt, std::string device, const WriteOutcome& written,
                         Status driver) {
  return sentenceOfWrite(attempt, std::move(device), written,
                         driver == kSuccess ? std::string_view() : reasonOfDriver(driver));
}

StatusMessage sentenceOf(const RunResult& run, std::string device) {
  const std::string_view reason = run.driver == kSuccess ? std::string_view() : reasonOfDriver(run.driver);
  switch (run.ending) {
    case RunResult::Ending::Accepted:
      return sentenceOfWrite(
          WriteAttempt::Calibration, std::move(device), run.written,
          run.isSolved ? reason : TRANSLATABLE_TEXT("StatusLine", "no calibration fits these touches"));
    case RunResult::Ending::NoDriver:
      return {.text = TRANSLATABLE_TEXT("StatusLine", "%1 cannot be calibrated now: %2."),
              .device = std::move(device),
              .reason = reason};
    case RunResult::Ending::Left:
      if (!run.wasTried) break;
      if (run.driver != kSuccess)
        return {.text = TRANSLATABLE_TEXT("StatusLine",
                                          "The calibration of %1 ended; nothing was written, and what is in "
                                          "use is not known: %2."),
                .device = std::move(device),
                .reason = reason};
      return {.text = TRANSLATABLE_TEXT(
                  "StatusLine",
                  "The new calibration of %1 stays in use; nothing was written to the touchscreen."),
              .device = std::move(device)};
    default:
      if (!run.wasTried || run.driver == kSuccess) break;
      return {
          .text = TRANSLATABLE_TEXT("StatusLine",
                                    "The calibration of %1 ended; nothing was written, but the driver did "
                                    "not confirm that it went back: %2."),
          .device = std::move(device),
          .reason = reason};
  }
  return {.text = TRANSLATABLE_TEXT("StatusLine",
                                    "The calibration of %1 ended; nothing was written to the touchscreen."),
          .device = std::move(device)};
}

StatusMessage sentenceOf(const SettingsOutcome& settings) {
  const bool saved = settings.file == kSuccess;
  StatusMessage message{.text = "", .device = joined(settings.notTaken), .count = settings.taken};
  if (!settings.notTaken.empty()) {
    message.reason = reasonOfDriver(settings.driver);
    if (settings.taken == 0)
      message.text =
          saved
              ? TRANSLATABLE_TEXT("StatusLine",
                                  "The settings are saved for the next start, but %1 did not take them: %2.")
              : TRANSLATABLE_TEXT("StatusLine", "The settings are not saved, and %1 did not take them: %2.");
    else
      message.text =
          saved ? TRANSLATABLE_COUNT("StatusLine",
                                     "Settings were sent to %n touchscreen(s) and saved, but %1 did "
                                     "not take them: %2.")
                : TRANSLATABLE_COUNT("StatusLine",
                                     "Settings were sent to %n touchscreen(s), but not saved, and %1 "
                                     "did not take them: %2.");
    return message;
  }
  if (settings.doubleClick != kSuccess) {
    message.reason = reasonOfDriver(settings.doubleClick);
    message.text = saved
                       ? TRANSLATABLE_COUNT("StatusLine",
                                            "Settings were sent to %n touchscreen(s) and saved, but the "
                                            "double click was not set: %2.")
                       : TRANSLATABLE_COUNT("StatusLine",
                                            "Settings were sent to %n touchscreen(s), but not saved, and the "
                                            "double click was not set: %2.");
    return message;
  }
  message.text =
      saved ? TRANSLATABLE_COUNT("StatusLine", "Settings were sent to %n touchscreen(s) and saved.")
            : TRANSLATABLE_COUNT(
                  "StatusLine",
                  "Settings were sent to %n touchscreen(s), but could not be saved for the next start: %2.");
  if (!saved) message.reason = reasonOfFile(settings.file);
  return message;
}

StatusMessage sentenceOfUnkept(const CalibrationRecord& record, std::string device, Status kept) {
  const char* text = TRANSLATABLE_TEXT(
      "StatusLine",
      "The new calibration of %1 is written and in use, but not kept among the earlier ones: %2.");
  if (record.event == CalibrationEvent::Restored)
    text =
        TRANSLATABLE_TEXT("StatusLine",
                          "The earlier calibration of %1 is written and in use again, but what it replaced "
                          "could not be kept: %2.");
  if (!record.isCalibrated())
    text = TRANSLATABLE_TEXT(
        "StatusLine",
        "%1 has no calibration any more; that is written and in force, but cannot be undone here: %2.");
  return {.text = text, .device = std::move(device), .reason = reasonOfFile(kept)};
}

StatusMessage sentenceOfTouch(bool enable, std::string device, Status driver) {
  if (driver == kSuccess)
    return {enable ? TRANSLATABLE_TEXT("StatusLine", "Touch was enabled on %1.")
                   : TRANSLATABLE_TEXT("StatusLine", "Touch was disabled on %1."),
            std::move(device)};
  const char* const text =
      mayHaveArrived(driver)
          ? enable ? TRANSLATABLE_TEXT("StatusLine", "It is not confirmed that touch was enabled on %1: %2.")
                   : TRANSLATABLE_TEXT("StatusLine", "It is not confirmed that touch was disabled on %1: %2.")
      : enable ? TRANSLATABLE_TEXT("StatusLine", "Touch was not enabled on %1: %2.")
               : TRANSLATABLE_TEXT("StatusLine", "Touch was not disabled on %1: %2.");
  return {.text = text, .device = std::move(device), .reason = reasonOfDriver(driver)};
}

StatusMessage sentenceOfScreen(std::string device, Status driver) {
  if (driver == kSuccess)
    return {.text = TRANSLATABLE_TEXT("StatusLine", "%1 is on the chosen screen."),
            .device = std::move(device)};
  return {.text = TRANSLATABLE_TEXT("StatusLine", "The screen of %1 is not changed: %2."),
          .device = std::move(device),
          .reason = reasonOfDriver(driver)};
}

}  // namespace touchpanel
