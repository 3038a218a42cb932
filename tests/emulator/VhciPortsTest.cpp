#include <gtest/gtest.h>

#include "emulator/VhciPorts.h"

namespace touchpanel::emulator {
namespace {

constexpr char kPorts[] =
    "hub port sta spd dev      sockfd local_busid\n"
    "hs  0000 006 002 00010001 000003 1-1\n"
    "hs  0001 005 000 00000000 000000 0-0\n"
    "hs  0002 004 000 00000000 000000 0-0\n"
    "ss  0003 004 000 00000000 000000 0-0\n"
    "hub port sta spd dev      sockfd local_busid\n"
    "hs  0004 004 000 00000000 000000 0-0\n";

TEST(VhciPorts, OnlyAnUnusedPortBelowSuperSpeedTakesATouchscreen) {
  const struct {
    std::optional<int> wanted, expected;
  } cases[] = {{std::nullopt, 2}, {2, 2},           {4, 4}, {0, std::nullopt}, {1, std::nullopt},
               {3, std::nullopt}, {9, std::nullopt}};
  for (const auto& [wanted, expected] : cases) EXPECT_EQ(freeVhciPort(kPorts, wanted), expected);
  EXPECT_EQ(freeVhciPort("", std::nullopt), std::nullopt);
  EXPECT_EQ(freeVhciPort("nonsense\nhs x y\n", std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace touchpanel::emulator
