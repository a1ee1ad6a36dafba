#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "engine/cell_writer.h"
#include "engine/element_table.h"
#include "engine/format.h"
#include "engine/number_text.h"

namespace peakwright {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(NumberTextTest, ValReadsTheNumberThatTextBeginsWith) {
  const std::pair<const char*, double> cases[] = {{"", 0},
                                                  {"12.0000", 12},
                                                  {" \t-5", -5},
                                                  {"+.5x", .5},
                                                  {"5.", 5},
                                                  {".", 0},
                                                  {"-.", 0},
                                                  {"1e3", 1000},
                                                  {"1E+2", 100},
                                                  {"1e", 1},
                                                  {"1e+", 1},
                                                  {"1.2.3", 1.2},
                                                  {"1,5", 1},
                                                  {"- 5", 0},
                                                  {"--5", 0},
                                                  {"+-5", 0},
                                                  {"0x10", 0},
                                                  {"&h10", 0},
                                                  {"inf", 0},
                                                  {"-nan", 0},
                                                  {"1e400", kInfinity},
                                                  {"-1e400", -kInfinity},
                                                  {"1e-400", 0},
                                                  {"0e999", 0},
                                                  {"1e99999999999999999999", kInfinity},
                                                  {"1e-99999999999999999999", 0},
                                                  {"0.00001e400", kInfinity},
                                                  {"100000e-400", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(NumberTextTest, TruncateSaturates) {
  using Limits = std::numeric_limits<std::int64_t>;
  EXPECT_EQ(Truncate(-1.9), -1);
  EXPECT_EQ(Truncate(0x1p63), Limits::max());
  EXPECT_EQ(Truncate(-kInfinity), Limits::min());
  EXPECT_EQ(Truncate(std::nan("")), 0);
}

TEST(FormatTest, FollowsItsMask) {
  const std::tuple<double, const char*, const char*> cases[] = {
      {10.625, " ###.00", " 10.63"},
      {-10.625, " ###.00", " -10.63"},
      {0.125, " ###.00", " .13"},
      {0, " ##", " "},
      {0, " ##.0", " .0"},
      {999.996, " ###.00", " 1000.00"},
      {-0.004, " ###.00", " .00"},
      {-0.5, " ###.00", " -.50"},
      {58, "-####", "58"},
      {-58, "-####", "-58"},
      {12345678, "####)", "12345678)"},
      {kInfinity, " ##.0", " inf"},
      {1e22, " ##.0", " 10000000000000000000000.0"},
      {0.5, " ##", " 1"},
      {1.005, " ###.00", " 1.00"}};
  for (const auto& [value, mask, text] : cases) EXPECT_EQ(Format(value, mask), text) << text;
}

TEST(FormatTest, AlignAndArightCutOnTheLeft) {
  EXPECT_EQ(Module1::align("-####", 1234567), "34567");
  EXPECT_EQ(Module1::align(" ###.0000", 1234.5F), "1234.5000");
  EXPECT_EQ(Module1::align("####)", 10000), "0000)");
  EXPECT_EQ(Module1::aright("Abcd", 3.9F), "bcd");
  EXPECT_EQ(Module1::aright("", 3), "   ");
  EXPECT_EQ(Module1::aright("\xC3\xA9\xC3\xA9", 3), " \xC3\xA9\xC3\xA9");
}

TEST(CellWriterTest, WritesWhatAlignGives) {
  std::mt19937 random(1);
  for (const char* text : {" ###.0000", " ###.00", " ##.0", " ##"}) {
    const CellMask mask(text);
    const auto check = [&mask](float value) {
      std::string row = mask.decimals == 0 ? "x   " : mask.places == 3 ? "x   .0" : "x    .0000";
      row.resize(mask.text.size() + 1);
      WriteCell(row.data() + 1, mask, value);
      ASSERT_EQ(row.substr(1), Module1::align(mask.text, value)) << value;
    };
    for (const float value : {0.0F, -0.0F, 9998.9999F, 9999.0F, 9999.996F, 9999.99951F, -9999.996F,
                              1e5F, 16777216.0F, 3e38F, HUGE_VALF, -HUGE_VALF, NAN, 1e-45F}) {
      check(value);
    }
    for (int i = 0; i < 20000; ++i) {
      check(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
      check(static_cast<float>(static_cast<std::int32_t>(random())) / (1 << (random() % 32)));
    }
  }
}

TEST(ElementTableTest, StartsWithTheDefaultElements) {
  ElementTable table;
  EXPECT_EQ(table.RowCount(), 13);
  EXPECT_EQ(table.ColumnCount(), 6);
  EXPECT_EQ(table.HeaderAt(5), "%(M+2)/M");
  EXPECT_EQ(table.CellTextAt(0, 4), "1.120");
  EXPECT_EQ(table.CellTextAt(12, 0), "Xx");
  table.CellTextAt(11, 1, "45");
  EXPECT_EQ(table.CellTextAt(11, 1), "45");
}

}  // namespace
}  // namespace peakwright
