#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "engine/cell_writer.h"
#include "engine/format.h"
#include "engine/number_text.h"

namespace peakwright {
namespace {

TEST(NumberTextTest, ValReadsTheNumberThatTextBeginsWith) {
  for (const char* text : {"", ".", "-.", "- 5", "--5", "+-5", "&h10", "0x10", "inf", "-nan", "e5",
                           "1e-400", "0e999", "100000e-400", "1e-99999999999999999999"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
  for (const char* text : {"12", " \t12.0000", "+12x", "12.", "1.2e1", "120E-1", "12e", "12e+",
                           "12,5", "0012", "12 e3"}) {
    EXPECT_EQ(Val(text), 12) << text;
  }
  for (const char* text : {"-1e400", "-0.00001e400", "-1e99999999999999999999"}) {
    EXPECT_EQ(Val(text), -HUGE_VAL) << text;
  }
  EXPECT_EQ(Val("-.5.5"), -.5);
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

TEST(CellWriterTest, WritesWhatAlignGives) {
  std::mt19937 random(1);
  for (const char* text : {" ###.0000", " ###.00", " ##.0", " ##"}) {
    const CellMask mask(text);
    const auto check = [&mask](float value) {
      std::string row = "." + std::string(mask.text.size(), '.');
      WriteCell(row.data() + 1, mask, value);
      ASSERT_EQ(row.substr(1), Module1::align(mask.text, value)) << value;
    };
    for (const float value : {0.0F, -0.0F, 9998.9999F, 9999.0F, 9999.996F, 9999.9995F, -9999.996F,
                              16777216.0F, 3e38F, HUGE_VALF, -HUGE_VALF, NAN, 1e-45F}) {
      check(value);
    }
    for (int i = 0; i < 20000; ++i) {  // any Single at all, then halves and whole numbers
      check(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
      check(std::ldexp(static_cast<float>(static_cast<std::int32_t>(random())),
                       -static_cast<int>(random() % 31)));
    }
  }
}

}  // namespace
}  // namespace peakwright
