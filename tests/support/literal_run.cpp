#include "tests/support/literal_run.h"

#include <algorithm>
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
  return x < -0x1p63 ? std::numeric_limits<Int64>::min() : static_cast<Int64>(x);
}

float Round(double x) { return static_cast<float>(x); }

std::string Name(const std::string& name) {
  const std::string cell = "   " + name;
  std::size_t start = cell.size();
  for (int left = 3; left > 0; left -= (cell[start] & '\xC0') != '\x80') --start;
  return cell.substr(start);
}

}  // namespace

std::string LiteralCell(float single, std::string_view mask) {
  const auto decimals = static_cast<int>(std::count(mask.begin(), mask.end(), '0'));
  double value = std::fabs(double{single});
  const double places = std::pow(10, decimals);
  // The library takes an exact half to the even neighbour; a nudge takes it up.
  if (std::fmod(value * places * 2, 2) == 1) value += 0.25 / places;
  char number[64 + std::numeric_limits<float>::max_exponent10];
  std::snprintf(number, sizeof number, "%.*f", decimals, value);
  const bool zero = std::string(number).find_first_not_of("0.") == std::string::npos;
  const std::string cell = std::string(14, ' ') + (single < 0 && !zero ? "-" : "") +
                           (number + (number[0] == '0' ? 1 : 0)) + (mask.back() == ')' ? ")" : "");
  return cell.substr(cell.size() - mask.size());
}

bool LiteralRun(RunControls& controls, Int64 passLimit) {
  std::string name[14];
  float unit[14], e[14], v[14], p[14], q[14];
  for (int i = 1; i <= 13; ++i) {
    const auto cell = [&](int column) { return controls.Table().CellTextAt(i - 1, column); };
    name[i] = cell(0), unit[i] = Round(Val(cell(1))), e[i] = Round(Val(cell(2)));
    v[i] = Round(Val(cell(3))), p[i] = Round(Val(cell(4))), q[i] = Round(Val(cell(5)));
  }
  Int64 remaining = ToInt64(Val(controls.MassText()));
  controls.MassText(std::to_string(remaining));
  float addedE = 0, addedP = 0, addedPP = 0, addedQ = 0, addedV = 0;
  for (int i = 5; i <= 13 && controls.AdditionalElements(); ++i) {
    const Int64 count = ToInt64(Val(controls.CountText(i - 5)));
    const auto c = static_cast<double>(count);
    remaining = ToInt64(static_cast<double>(remaining) - unit[i] * c);
    if (v[i] > 0) addedV = Round(((double{v[i]} - 2) * c) / 2 + addedV);
    addedE = Round(e[i] * c + addedE);
    addedP = Round(p[i] * c + addedP);
    addedPP = Round(p[i] * (p[i] * c) + addedPP);
    addedQ = Round(q[i] * c + addedQ);
    if (count > 0) controls.Print(std::to_string(count) + " " + name[i]);
  }
  const auto mass = static_cast<double>(remaining);
  std::string listing = "    MASS " + LiteralCell(static_cast<float>(remaining), "-####") +
                        Name(name[1]) + Name(name[2]) + Name(name[3]) + Name(name[4]) +
                        "    M+1    M+2  RDB\r" + "   ----------- -- -- -- --   ----   ----  ---\r";
  const bool any = remaining > 0 && unit[1] > 0 && unit[3] > 0 && unit[4] > 0;
  const Int64 maxC = ToInt64(mass / unit[1]), maxO = ToInt64(mass / unit[4]);
  const Int64 maxN = ToInt64(mass / unit[3]);
  Int64 row = 0, passes = 0;
  for (Int64 c = 0; any && c <= maxC; ++c) {
    const auto C = static_cast<double>(c);
    for (Int64 o = 0; o <= maxO; ++o) {
      const auto O = static_cast<double>(o);
      for (Int64 n = 0; n <= maxN; ++n) {
        if (++passes > passLimit) return false;
        if (!(mass - unit[1] * C >= 0)) continue;
        if (!(mass - unit[1] * C - unit[4] * O >= 0)) continue;
        const auto N = static_cast<double>(n);
        const Int64 h = ToInt64(mass - unit[1] * C - unit[4] * O - unit[3] * N);
        if (h < 0) continue;
        const auto H = static_cast<double>(h);
        const double bonds =
            ((double{v[1]} - 2) * C + (double{v[2]} - 2) * H) + (double{v[3]} - 2) * N;
        const float rdb = Round((bonds / 2 + 1) + addedV);
        if (!(rdb >= 0)) continue;
        if (controls.NitrogenRule() && double{rdb} - std::trunc(double{rdb}) != 0.0) continue;
        const float exact = Round((((e[1] * C + e[2] * H) + e[3] * N) + e[4] * O) + addedE);
        const float m1 = Round((((p[1] * C + p[2] * H) + p[3] * N) + p[4] * O) + addedP);
        const double ch = p[1] * (p[1] * C) + p[2] * (p[2] * H);
        const float s = Round(((ch + p[3] * (p[3] * N)) + p[4] * (p[4] * O)) + addedPP);
        const float t = m1 * m1;
        const double d = (double{t} / 100 - double{s} / 100) / 2;
        const float m2 = Round(((((d + q[1] * C) + q[2] * H) + q[3] * N) + q[4] * O) + addedQ);
        listing +=
            LiteralCell(static_cast<float>(++row), "####)") + LiteralCell(exact, " ###.0000");
        for (const Int64 atoms : {c, h, n, o})
          listing += LiteralCell(static_cast<float>(atoms), " ##");
        listing += LiteralCell(m1, " ###.00") + LiteralCell(m2, " ###.00") +
                   LiteralCell(rdb, " ##.0") + Module1::CR;
      }
    }
  }
  if (remaining > 0 && controls.NitrogenRule()) controls.Print("Nitrogen rule applied:");
  if (remaining > 0) controls.Print(listing);
  if (remaining > 0 && row == 0) controls.Print("There are no valid combinations.");
  if (remaining <= 0) controls.Print("Insufficient mass remaining for C, H, N, or O.");
  controls.Print("");
  return true;
}

}  // namespace peakwright
