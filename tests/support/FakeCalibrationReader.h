#pragma once

#include <map>

#include "driver/service/CalibrationReader.h"

namespace touchpanel::testing {

/// Reads that are under way by location, which the test finishes when it likes.
class FakeCalibrationReader final : public driver::CalibrationReader {
 public:
  std::unique_ptr<driver::CalibrationReading> start(const TouchscreenIdentity& identity,
                                                    const _DEVICT_CONTEXT& held, Done done) override {
    underWay[identity.locationId] = {held, std::move(done)};
    return std::make_unique<Reading>(*this, identity.locationId);
  }
  void finish(std::uint32_t locationId, Status status, const _DEVICT_CONTEXT& context) {
    underWay.at(locationId).done(status, context);
  }

  struct Read {
    _DEVICT_CONTEXT held{};
    Done done;
  };
  std::map<std::uint32_t, Read> underWay;

 private:
  struct Reading final : driver::CalibrationReading {
    Reading(FakeCalibrationReader& owner, std::uint32_t location) : reader(owner), locationId(location) {}
    ~Reading() override { reader.underWay.erase(locationId); }
    FakeCalibrationReader& reader;
    std::uint32_t locationId;
  };
};

}  // namespace touchpanel::testing
