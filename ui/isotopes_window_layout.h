#pragma once

#include "runtime/layout.h"

/// Places and captions of the isotopes window.
namespace peakwright::isotopes_window_layout {

inline constexpr WindowLayout kWindow = Panel("Isotopes", 478, 280, /*visible=*/false);
inline constexpr int kTop = 400;  // On the screen.

inline constexpr ControlLayout kElements{
    .Text = "", .AccessibleName = "Isotopes", .Place = {9, 10, 459, 236}, .TabIndex = 0};
inline constexpr ControlLayout kClose{.Text = "Close", .Place = {369, 250, 69, 20}, .TabIndex = 1};
inline constexpr ControlLayout kHint{.Text = "Double click a row to open editor for that row.",
                                     .Place = {24, 249, 263, 21},
                                     .TabIndex = 2,
                                     .Alignment = TextAlignment::Center};

}  // namespace peakwright::isotopes_window_layout
