#include "tests/support/literal_run.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "engine/global_strings.h"
#include "engine/number_text.h"

namespace peakwright {
namespace {

using Int64 = std::int64_t;

Int64 ToInt64(double x) {
  if (std::isnan(x)) return 0;
  if (x >= 0x1p63) return std::numeric_limits<Int64>::max();
  if (x < -0x1p63) return std::numeric_limits<Int64>::min();
  return static_cast<Int64>(x);
}

double ToDouble(Int64 n) { return static_cast<double>(n); }
float Round(double x) { return static_cast<float>(x); }

/// A cell of `width` characters: the number and `tail`, padded or cut on the left.
std::string Cell(float single, int width, int decimals, const std::string& tail = "") {
  double value = std::fabs(double{single});
  const double places = std::pow(10, decimals);
  // The library takes an exact half to the even neighbour; a nudge takes it up.
  if (std::fmod(value * places * 2, 2) == 1) value += 0.25 / places;
  char digits[400];
  std::snprintf(digits, sizeof digits, "%.*f", decimals, value);
  std::string number = digits;
  const bool zero = number.find_first_not_of("0.") == std::string::npos;
  if (number[0] == '0') number.erase(0, 1);
  if (single < 0 && !zero) number = "-" + number;
  number = std::string(14, ' ') + number + tail;
  return number.substr(number.size() - static_cast<std::size_t>(width));
}

std::string Name(const std::string& name) {
  std::string cell = "      " + name;
  std::size_t start = cell.size();
  for (int characters = 0; characters < 3; ++characters) {
    do --start;
    while ((cell[start] & '\xC0') == '\x80');
  }
  return cell.substr(start);
}

}  // namespace

bool LiteralRun(RunControls& controls, Int64 passLimit) {
  const ElementTable& table = controls.Table();
  std::string name[14];
  float unit[14] = {}, e[14] = {}, v[14] = {}, p[14] = {}, q[14] = {};
  for (int i = 1; i <= 13; ++i) {
    name[i] = table.CellTextAt(i - 1, 0);
    const auto number = [&](int column) { return Round(Val(table.CellTextAt(i - 1, column))); };
    unit[i] = number(1), e[i] = number(2), v[i] = number(3), p[i] = number(4), q[i] = number(5);
  }
  Int64 remaining = ToInt64(Val(controls.MassText()));
  controls.MassText(std::to_string(remaining));
  float addedE = 0, addedP = 0, addedPP = 0, addedQ = 0, addedV = 0;
  if (controls.AdditionalElements()) {
    for (int i = 5; i <= 13; ++i) {
      const Int64 count = ToInt64(Val(controls.CountText(i - 5)));
      const double c = ToDouble(count);
      remaining = ToInt64(ToDouble(remaining) - unit[i] * c);
      if (v[i] > 0) addedV = Round(((double{v[i]} - 2) * c) / 2 + addedV);
      addedE = Round(e[i] * c + addedE);
      addedP = Round(p[i] * c + addedP);
      addedPP = Round(p[i] * (p[i] * c) + addedPP);
      addedQ = Round(q[i] * c + addedQ);
      if (count > 0) controls.Print(std::to_string(count) + " " + name[i]);
    }
  }
  if (remaining <= 0) {
    controls.Print("Insufficient mass remaining for C, H, N, or O.");
    controls.Print("");
    return true;
  }
  const double mass = ToDouble(remaining);
  std::string listing = "    MASS " + Cell(static_cast<float>(remaining), 5, 0) + Name(name[1]) +
                        Name(name[2]) + Name(name[3]) + Name(name[4]) + "    M+1    M+2  RDB\r" +
                        "   ----------- -- -- -- --   ----   ----  ---\r";
  const auto bound = [&](int i) { return unit[i] > 0 ? ToInt64(mass / unit[i]) : -1; };
  const Int64 maxC = bound(1), maxO = bound(4), maxN = bound(3);
  Int64 row = 0, passes = 0;
  for (Int64 c = 0; c <= maxC && maxO >= 0 && maxN >= 0; ++c) {
    if (++passes > passLimit) return false;
    const double C = ToDouble(c);
    if (!(mass - unit[1] * C >= 0)) continue;
    for (Int64 o = 0; o <= maxO; ++o) {
      if (++passes > passLimit) return false;
      const double O = ToDouble(o);
      if (!(mass - unit[1] * C - unit[4] * O >= 0)) continue;
      for (Int64 n = 0; n <= maxN; ++n) {
        if (++passes > passLimit) return false;
        const double N = ToDouble(n);
        const Int64 h = ToInt64(mass - unit[1] * C - unit[4] * O - unit[3] * N);
        if (h < 0) continue;
        const double H = ToDouble(h);
        const double bonds =
            ((double{v[1]} - 2) * C + (double{v[2]} - 2) * H) + (double{v[3]} - 2) * N;
        const float rdb = Round((bonds / 2 + 1) + addedV);
        if (!(rdb >= 0)) continue;
        if (controls.NitrogenRule() && double{rdb} - std::trunc(double{rdb}) != 0.0) continue;
        const float exact = Round((((e[1] * C + e[2] * H) + e[3] * N) + e[4] * O) + addedE);
        const float m1 = Round((((p[1] * C + p[2] * H) + p[3] * N) + p[4] * O) + addedP);
        const float s = Round(
            (((p[1] * (p[1] * C) + p[2] * (p[2] * H)) + p[3] * (p[3] * N)) + p[4] * (p[4] * O)) +
            addedPP);
        const float t = m1 * m1;
        const double d = (double{t} / 100 - double{s} / 100) / 2;
        const float m2 = Round(((((d + q[1] * C) + q[2] * H) + q[3] * N) + q[4] * O) + addedQ);
        const auto count = [](Int64 atoms) { return Cell(static_cast<float>(atoms), 3, 0); };
        listing += Cell(static_cast<float>(++row), 5, 0, ")") + Cell(exact, 9, 4) + count(c) +
                   count(h) + count(n) + count(o) + Cell(m1, 7, 2) + Cell(m2, 7, 2) +
                   Cell(rdb, 5, 1) + Module1::CR;
      }
    }
  }
  if (controls.NitrogenRule()) controls.Print("Nitrogen rule applied:");
  controls.Print(listing);
  if (row == 0) controls.Print("There are no valid combinations.");
  controls.Print("");
  return true;
}

}  // namespace peakwright
