#include "engine/number_text.h"

#include <cmath>

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace peakwright
