#include "runtime/appearance/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <QColor>

namespace peakwright {
namespace {

/// The light of each of the 256 steps of a channel. An outline asks for hundreds.
std::array<double, 256> LightOfSteps() {
  std::array<double, 256> light{};
  for (std::size_t step = 0; step < light.size(); ++step) {
    const double channel = static_cast<double>(step) / 255;
    light[step] = channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  }
  return light;
}

/// Relative luminance, from 0 to 1 (WCAG 2.1).
double Luminance(const QColor& color) {
  static const std::array<double, 256> kLight = LightOfSteps();
  const auto light = [](int step) { return kLight[static_cast<std::size_t>(step)]; };
  return 0.2126 * light(color.red()) + 0.7152 * light(color.green()) + 0.0722 * light(color.blue());
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace peakwright
