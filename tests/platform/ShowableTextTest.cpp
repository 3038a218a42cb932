#include <gtest/gtest.h>

#include "platform/ShowableText.h"

namespace touchpanel::testing {
namespace {

TEST(ShowableText, KeepsWordsOfEveryScriptAndReplacesWhatWouldChangeTheTextAroundIt) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"AB-12 <b>x</b> &amp; %1", "AB-12 <b>x</b> &amp; %1"},
      {"触摸屏 Straße עברית 😀", "触摸屏 Straße עברית 😀"},
      {"a\nb\tc\x1B[2Jd\x7F", "a\uFFFDb\uFFFDc\uFFFD[2Jd\uFFFD"},
      {"a\u202Eb\u2066c\u200Dd\u2028e\uFEFF\u0085", "a\uFFFDb\uFFFDc\uFFFDd\uFFFDe\uFFFD\uFFFD"},
      {"\U000E0041\U0010FFFF\uFFFDx", "\uFFFD\uFFFD\uFFFDx"},
      {"\xFF\x80z\xC3", "\uFFFD\uFFFDz\uFFFD"},
      {"\xC0\xAF\xED\xA0\x80\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xE4\xBD", "\uFFFD\uFFFD"}};
  for (const auto& [fromDevice, shown] : cases) EXPECT_EQ(showableText(fromDevice), shown);
}

}  // namespace
}  // namespace touchpanel::testing
