#pragma once

#include "runtime/layout.h"

/// Places and captions of the main window.
namespace peakwright::text_window_layout {

inline constexpr WindowLayout kWindow{.Title = "Peakwright", .Width = 500, .Height = 650};

inline constexpr ControlLayout kMass{.Text = "100", .Place = {49, 14, 63, 22}, .TabIndex = 0};
inline constexpr ControlLayout kMassCaption{
    .Text = "Mass:", .Place = {8, 15, 42, 19}, .TabIndex = 1, .Bold = true};
inline constexpr ControlLayout kRun{
    .Text = "Run", .Place = {121, 14, 58, 20}, .TabIndex = 2, .Default = true};
inline constexpr ControlLayout kNitrogenRule{
    .Text = "Apply nitrogen rule", .Place = {251, 4, 159, 20}, .TabIndex = 3};
inline constexpr ControlLayout kResults{.Text = "",
                                        .AccessibleName = "Results",
                                        .Place = {8, 48, 492, 600},
                                        .TabIndex = 4,
                                        .LockBottom = true};
inline constexpr ControlLayout kAdditionalElements{
    .Text = "Additional elements", .Place = {251, 26, 159, 20}, .TabIndex = 5};
inline constexpr ControlLayout kClear{
    .Text = "Clear", .Place = {187, 14, 58, 20}, .TabIndex = 6, .Cancel = true};
inline constexpr ControlLayout kMoreInfo{
    .Text = "More info", .Place = {399, 14, 81, 20}, .TabIndex = 9, .FontSize = 0};

// What stays free below and beside the results once the window has been resized.
inline constexpr int kHeightBesideResults = 60;
inline constexpr int kWidthBesideResults = 25;

}  // namespace peakwright::text_window_layout
