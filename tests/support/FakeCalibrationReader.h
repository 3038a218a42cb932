#pragma once

#include <map>

#include "driver/service/CalibrationReader.h"

namespace touchpanel::testing {

/// Reads that are under way by location, which the test finishes when it likes.
class FakeCalibrationReader final : public driver::CalibrationReader {
 public:
  std::unique_ptr<driver::PendingRead> start(const TouchscreenIdentity& identity,
                                             const driver::HeldCalibration& known, Done done) override {
    underWay[identity.locationId] = {known, std::move(done)};
    return std::make_unique<Reading>(*this, identity.locationId);
  }
  void finish(std::uint32_t locationId, Status status, const driver::HeldCalibration& held) {
    underWay.at(locationId).done(status, held);
  }

  struct Read {
    driver::HeldCalibration known;
    Done done;
  };
  std::map<std::uint32_t, Read> underWay;

 private:
  struct Reading final : driver::PendingRead {
    Reading(FakeCalibrationReader& owner, std::uint32_t location) : reader(owner), locationId(location) {}
    ~Reading() override { reader.underWay.erase(locationId); }
    FakeCalibrationReader& reader;
    std::uint32_t locationId;
  };
};

}  // namespace touchpanel::testing
