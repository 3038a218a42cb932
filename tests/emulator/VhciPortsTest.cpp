#include <gtest/gtest.h>

#include "emulator/usbip/VhciPorts.h"

namespace touchpanel::emulator {
namespace {

constexpr char kPorts[] =
    "hub port sta spd dev      sockfd local_busid\n"
    "hs  0030 006 002 00010001 000003 1-1\n"
    "hs  0031 005 000 00000000 000000 0-0\n"
    "hs  0032 004 000 00000000 000000 0-0\n"
    "hs  0033 004 000 00000000 000000 0-0\n"
    "ss  0045 004 000 00000000 000000 0-0\n";

TEST(VhciPorts, OnlyAnUnusedPortBelowSuperSpeedTakesATouchscreen) {
  const struct {
    std::optional<int> wanted;
    std::optional<VhciPort> expected;
  } cases[] = {{std::nullopt, VhciPort{32, 3}},
               {32, VhciPort{32, 3}},
               {33, VhciPort{33, 4}},
               {30, std::nullopt},
               {31, std::nullopt},
               {45, std::nullopt},
               {9, std::nullopt}};
  for (const auto& [wanted, expected] : cases) EXPECT_EQ(freeVhciPort(kPorts, wanted), expected);
  EXPECT_EQ(freeVhciPort("", std::nullopt), std::nullopt);
  EXPECT_EQ(freeVhciPort("nonsense\nhs x y\n", std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace touchpanel::emulator
