#include <limits>

#include <gmock/gmock.h>

#include "platform/Value.h"

namespace touchpanel {
namespace {

TEST(Dictionary, KeepsTheOrderInWhichKeysWereFirstAdded) {
  Dictionary dictionary{{"b", 1}, {"a", 2}};
  dictionary.set("c", 3);
  dictionary.set("b", 0);  // a number, though it could also be read as a null pointer
  EXPECT_EQ(dictionary, (Dictionary{{"b", 0}, {"a", 2}, {"c", 3}}));
  EXPECT_NE(dictionary, (Dictionary{{"a", 2}, {"b", 0}, {"c", 3}}));
}

TEST(Dictionary, RefusesAnAbsentValueAndNamesTheKey) {
  const Dictionary source{{"present", true}};
  Dictionary target;
  target.set("present", source.find("present"));
  EXPECT_THAT([&] { target.set("TouchMode", source.find("absent")); },
              ::testing::ThrowsMessage<AbsentValue>(::testing::HasSubstr("TouchMode")));
  EXPECT_EQ(target, source);
}

TEST(Dictionary, ReadsAbsentKeysAndForeignTypesAsNothing) {
  const Dictionary dictionary{{"text", "12"}, {"bytes", Bytes{1, 2}}};
  for (const char* key : {"absent", "text", "bytes"}) {
    EXPECT_EQ(dictionary.integer(key), 0) << key;
    EXPECT_EQ(dictionary.longInteger(key), 0) << key;
    EXPECT_FALSE(dictionary.boolean(key)) << key;
    EXPECT_EQ(dictionary.array(key), nullptr) << key;
    EXPECT_EQ(dictionary.dictionary(key), nullptr) << key;
  }
  EXPECT_EQ(dictionary.text("bytes"), "");
  EXPECT_EQ(dictionary.bytes("text"), nullptr);
}

TEST(Value, ConvertsBetweenNumberTypesWithoutEverOverflowing) {
  EXPECT_EQ(Value(true).integer(), 1);
  EXPECT_EQ(Value(std::int64_t{0x1FFFFFFFF}).integer(), -1) << "the low 32 bits are kept";
  EXPECT_EQ(Value(-2.9).integer(), -2);
  EXPECT_EQ(Value(1e300).integer(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Value(-1e300).longInteger(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Value(std::numeric_limits<double>::quiet_NaN()).integer(), 0);
  EXPECT_TRUE(Value(0.25).boolean());
  EXPECT_FALSE(Value(0).boolean());
}

}  // namespace
}  // namespace touchpanel
