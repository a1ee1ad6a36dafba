#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "engine/format.h"
#include "engine/number_text.h"

namespace peakwright {
namespace {

TEST(NumberTextTest, ValReadsTheNumberThatTextBeginsWith) {
  for (const char* text : {"", ".", "-.", "- 5", "--5", "+-5", "&h10", "0x10", "inf", "-nan", "e5",
                           "1e-400", "0e999", "100000e-400", "1e-18446744073709551616", "\n12"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
  for (const char* text : {"12", " \t12.0000", "+12x", "12.", "1.2e1", "120E-1", "12e", "12e+",
                           "12,5", "0012", "12 e3"}) {
    EXPECT_EQ(Val(text), 12) << text;
  }
  for (const char* text : {"-1e400", "-0.00001e400", "-1e18446744073709551616"}) {
    EXPECT_EQ(Val(text), -HUGE_VAL) << text;
  }
  EXPECT_EQ(Val("-.5.5"), -.5);
  EXPECT_EQ(Val("57.9999999"), 57.9999999) << "as a Double";
}

TEST(FormatTest, FollowsItsMask) {
  const auto format = [](const char* mask, std::initializer_list<double> values) {
    std::string texts;
    for (const double value : values) texts += Format(value, mask) + "|";
    return texts;
  };
  EXPECT_EQ(format(" ###.00", {10.625, -10.625, .125, 0, 999.996, -.004, -.5, 1.005}),
            " 10.63| -10.63| .13| .00| 1000.00| .00| -.50| 1.00|");
  EXPECT_EQ(format(" ##", {0, .5, 1, 1234, -7}), " | 1| 1| 1234| -7|");
  EXPECT_EQ(format("-####", {58, -58, -.4}), "58|-58||");
  EXPECT_EQ(format(" ##.0", {1e22, -HUGE_VAL}), " 10000000000000000000000.0| -inf|");
  EXPECT_EQ(Module1::align("####)", 10000) + Module1::align("-####", 1234567), "0000)34567");
  EXPECT_EQ(Module1::aright("Abcd", 3.9F) + Module1::aright("\xC3\xA9", 3), "bcd  \xC3\xA9");
}

}  // namespace
}  // namespace peakwright
