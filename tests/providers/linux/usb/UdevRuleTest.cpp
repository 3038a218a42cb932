#include <cstdio>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>

#include "contract/ProductId.h"
#include "platform_build/BuildConstants.h"

namespace touchpanel::testing {
namespace {

std::string fourDigits(unsigned number) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%04x", number);
  return text.data();
}

/// The values that the rule wants of `attribute`, as one text.
std::string wanted(const std::string& rules, const std::string& attribute) {
  const auto key = "ATTR{" + attribute + "}==\"";
  const auto start = rules.find(key);
  if (start == std::string::npos) return {};
  const auto value = start + key.size();
  return rules.substr(value, rules.find('"', value) - value);
}

TEST(UdevRule, CoversExactlyTheSupportedTouchscreens) {
  std::ifstream file(UDEV_RULES);
  std::stringstream rules;
  rules << file.rdbuf();
  EXPECT_EQ(wanted(rules.str(), "idVendor"), fourDigits(TOUCH_VENDOR_ID));

  std::string products;
  for (const auto product : kProductIds) products += (products.empty() ? "" : "|") + fourDigits(product);
  EXPECT_EQ(wanted(rules.str(), "idProduct"), products);
}

}  // namespace
}  // namespace touchpanel::testing
