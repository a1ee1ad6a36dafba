#include "engine/run.h"

#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/global_strings.h"
#include "tests/support/literal_run.h"
#include "tests/support/plain_controls.h"

namespace peakwright {
namespace {

class RunTest : public testing::Test {
 protected:
  RunTest() { Module1::CR = "\n"; }

  const std::string& Run(const std::string& mass, const SearchLimits& limits = {}) {
    controls_.mass = mass;
    controls_.results.clear();
    Module1::calculate(controls_, limits);
    return controls_.results;
  }
  void Count(int index, const std::string& text) {
    controls_.additionalElements = true;
    controls_.counts.at(static_cast<std::size_t>(index)) = text;
  }

  struct Edit {
    int row, column;
    const char* text;
  };
  void ExpectLiteralRun(const std::string& mass, const std::vector<Edit>& edits) {
    std::string trace = "Mass " + mass;
    controls_.table = ElementTable();
    for (const Edit& edit : edits) {
      controls_.table.CellTextAt(edit.row, edit.column, edit.text);
      trace += ", cell " + std::to_string(edit.row) + " " + std::to_string(edit.column) + " is " +
               edit.text;
    }
    SCOPED_TRACE(trace);
    controls_.mass = mass;
    controls_.results.clear();
    PlainControls expected = controls_;
    ASSERT_TRUE(LiteralRun(expected, 1'000'000));
    EXPECT_TRUE(Run(mass) == expected.results) << controls_.results.substr(0, 1000);
  }

  PlainControls controls_;
};

TEST_F(RunTest, StartsWithTheTableOfTheDocs) {
  std::ifstream page(PEAKWRIGHT_DOCS "/element_data.md");
  std::string line;
  while (std::getline(page, line) && line != "|---|---|---|---|---|---|") {
  }
  for (int row = 0; row < kElementCount; ++row) {
    std::string expected = "|";
    for (int column = 0; column < kElementColumns; ++column) {
      expected += " " + controls_.table.CellTextAt(row, column) + " |";
    }
    EXPECT_TRUE(std::getline(page, line) && line == expected) << expected;
  }
  EXPECT_TRUE(std::getline(page, line) && line.empty()) << line;
}

TEST_F(RunTest, TellsWhenNothingIsListed) {
  const std::string insufficient = "Insufficient mass remaining for C, H, N, or O.\r\r";
  for (const char* mass : {"", "abc", "-5.5", "-1e99", "0.9"}) EXPECT_EQ(Run(mass), insufficient);
  Count(0, "5");
  Count(1, "-0.5");
  EXPECT_EQ(Run("95"), "5 F\r" + insufficient);
  controls_.nitrogenRule = true;
  EXPECT_EQ(Run("96"),
            "5 F\rNitrogen rule applied:\r"
            "    MASS     1  C  H  N  O    M+1    M+2  RDB\r"
            "   ----------- -- -- -- --   ----   ----  ---\r"
            "\rThere are no valid combinations.\r\r");
}

TEST_F(RunTest, SaysSoWhereALimitWouldBePassed) {
  controls_.nitrogenRule = true;
  // 35 pairs of C and O have room in 100, and 28 numbers of N are tried with them.
  EXPECT_EQ(Run("100", {17, 63}).find("There are more"), std::string::npos);
  Count(1, "2");
  EXPECT_EQ(Run("170", {15, 1000}),
            "2 Cl\rNitrogen rule applied:\r"
            "There are more valid combinations for mass 100 than the limit of 15.\r\r");
  Count(1, "0");
  EXPECT_EQ(Run("100", {17, 62}),
            "Nitrogen rule applied:\r"
            "There are more combinations to try for mass 100 than the limit of 62.\r\r");
  // One pair, and N from 0 to the mass.
  for (const int row : {0, 3}) controls_.table.CellTextAt(row, 1, "1e18");
  controls_.table.CellTextAt(2, 1, "1");
  controls_.table.CellTextAt(1, 3, "2");
  controls_.table.CellTextAt(2, 3, "2.1");
  EXPECT_EQ(Run("9999", {9999, 10001}).find("There are more"), std::string::npos);
  EXPECT_NE(Run("9999", {9999, 10000}).find("There are more"), std::string::npos);
  // Of these, only the one without N is valid.
  controls_.table.CellTextAt(2, 3, "-1e39");
  EXPECT_EQ(Run("19999998").find("There are more"), std::string::npos);
  EXPECT_TRUE(Run("19999999").ends_with("for mass 19999999 than the limit of 20000000.\r\r"));
  controls_.table = ElementTable();
  controls_.nitrogenRule = false;
  EXPECT_EQ(Run("5000").find("There are more"), std::string::npos);
  EXPECT_TRUE(Run("5500").ends_with("for mass 5500 than the limit of 2000000.\r\r"));
}

TEST_F(RunTest, ComesBackFromAnything) {
  for (const char* mass : {"1e9", "9223372036854775807", "1e400"}) {
    EXPECT_NE(Run(mass).find("There are more"), std::string::npos) << mass;
  }
}

TEST_F(RunTest, CountsToTheEndOfInt64) {
  for (const int row : {0, 3}) controls_.table.CellTextAt(row, 1, "1e19");
  controls_.table.CellTextAt(2, 1, "1");
  controls_.table.CellTextAt(2, 3, "2");
  EXPECT_NE(Run("1e30").find("\n 511)"), std::string::npos);
}

// Cells of opposite size lose what is added at another time; the first edit takes from RDB its
// rising with N.
TEST_F(RunTest, AgreesWithTheLiteralRunOnEditedCells) {
  for (const int column : {2, 3, 4, 5}) {
    ExpectLiteralRun("58", {{1, column, "2"}, {2, column, "1"}});
    ExpectLiteralRun("27", {{0, column, "1e20"}, {1, column, "-1e20"}});
    ExpectLiteralRun("100", {{0, column, "1e20"}, {2, column, "-1e20"}});
    Count(7, "1");
    ExpectLiteralRun("27", {{0, column, "-1e20"}, {11, column, "1e20"}});
    controls_.additionalElements = false;
  }
  for (const char* valence : {"-1e39", "1e39"}) {
    for (const int row : {0, 1, 2}) {
      for (const bool rule : {false, true}) {
        controls_.nitrogenRule = rule;
        ExpectLiteralRun("100", {{row, 3, valence}});
      }
    }
  }
  controls_.nitrogenRule = false;
  const char* const twoTo54 = "18014398509481984";
  const struct {
    const char *atomsOfX, *mass;
    std::vector<Edit> edits;
  } kCases[] = {
      // Where RDB falls with C, and where H adds to it, any number of N may be valid.
      {"0", "100", {{0, 3, "1"}, {1, 3, "2"}}},
      {"60", "100", {{11, 3, "1"}, {1, 3, "3"}}},
      // Additional atoms without a bond change no RDB.
      {"1", "50", {{11, 3, "-1"}}},
      // RDB is rounded once, and what additional atoms add to it comes last.
      {"1", "2", {{11, 3, "3"}, {1, 3, ".49999997"}}},
      {"3", "16", {{11, 3, "2.8333333"}}},
      {"-1", "13", {{0, 3, twoTo54}, {1, 3, "4"}, {11, 3, twoTo54}}},
      // The sum of the squares is a Single, as the square of the sum is.
      {"0", "16", {{3, 4, "12345.678"}, {1, 4, "0"}}},
      // Masses are products of Doubles: ten of this one take more than 1.
      {"10", "100", {{11, 1, ".1"}}},
  };
  for (const auto& each : kCases) {
    Count(7, each.atomsOfX);
    ExpectLiteralRun(each.mass, each.edits);
  }
}

TEST_F(RunTest, AgreesWithTheLiteralRunOnAllMassesTo300) {
  for (const bool rule : {false, true}) {
    controls_.nitrogenRule = rule;
    for (int mass = 1; mass <= 300; ++mass) ExpectLiteralRun(std::to_string(mass), {});
  }
}

// More than four digits of the row number, of H, of N and of C, more than 31 bits of the heading's
// mass and of H; fractions that no sum of powers of two is; and values that grow out of their
// cells, or fall below 0, in some of the rows.
TEST_F(RunTest, AgreesWithTheLiteralRunOnLongNumbers) {
  const std::vector<Edit> largeMasses = {{0, 1, "5e9"}, {3, 1, "4e9"}, {2, 1, "3e9"}, {1, 3, "2"}};
  const std::vector<Edit> manyN = {{0, 1, "4000"}, {3, 1, "5000"}, {2, 1, ".5"}, {1, 3, "2"}};
  ExpectLiteralRun("900", {});
  ExpectLiteralRun("20050", {{0, 1, "1000"}, {3, 1, "15000"}, {2, 1, "6000"}, {1, 3, "2"}});
  ExpectLiteralRun("6000", manyN);
  ExpectLiteralRun("6000",
                   {{0, 1, ".25"}, {3, 1, "5000"}, {2, 1, "4000"}, {0, 3, "2"}, {1, 3, "2"}});
  std::vector<Edit> heavyN = manyN;  // Of the first batches the exact mass is infinite.
  heavyN.push_back({2, 2, "1e35"});
  ExpectLiteralRun("6000", heavyN);
  ExpectLiteralRun("12345678901", largeMasses);
  controls_.nitrogenRule = true;
  ExpectLiteralRun("300", {{0, 1, "12.1"}, {2, 1, "14.3"}, {3, 1, "15.7"}});
  ExpectLiteralRun("6000", manyN);
  ExpectLiteralRun("700", {{3, 2, "3e38"}});
  ExpectLiteralRun("700", {{1, 2, "-9.5"}});
}

}  // namespace
}  // namespace peakwright
