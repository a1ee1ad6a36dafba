#pragma once

#include <array>

#include "engine/elements.h"
#include "runtime/layout.h"

/// Places and captions of the additional-elements window.
namespace peakwright::additional_elements_window_layout {

inline constexpr WindowLayout kWindow = Panel("Additional Elements", 225, 300, /*visible=*/true);

inline constexpr ControlLayout kCoreElements{.Text = "Elements other than C, H, N, O",
                                             .Place = {7, 6, 218, 21},
                                             .TabIndex = 0,
                                             .Bold = true};
inline constexpr ControlLayout kHowMany{
    .Text = "How many of each?", .Place = {7, 31, 155, 20}, .TabIndex = 1, .Bold = true};
inline constexpr ControlLayout kClose{.Text = "Close", .Place = {120, 267, 69, 20}, .TabIndex = 16};
inline constexpr ControlLayout kClear{.Text = "Clear", .Place = {120, 85, 69, 20}, .TabIndex = 17};
inline constexpr ControlLayout kRun{.Text = "Run", .Place = {120, 136, 69, 20}, .TabIndex = 18};
inline constexpr ControlLayout kEditIsotopes{
    .Text = "Edit isotopes", .Place = {111, 188, 105, 20}, .TabIndex = 20};
inline constexpr ControlLayout kShowIsotopes{
    .Text = "Show isotopes", .Place = {111, 214, 105, 20}, .TabIndex = 25};

/// Field i stands for the additional element i.
inline constexpr auto kNames = std::to_array<ControlLayout>({
    {.Text = "X", .Place = {17, 58, 23, 20}, .TabIndex = 2},
    {.Text = "X", .Place = {17, 85, 23, 20}, .TabIndex = 3},
    {.Text = "X", .Place = {17, 112, 23, 20}, .TabIndex = 4},
    {.Text = "X", .Place = {17, 138, 23, 20}, .TabIndex = 5},
    {.Text = "X", .Place = {17, 164, 23, 20}, .TabIndex = 6},
    {.Text = "X", .Place = {17, 190, 23, 20}, .TabIndex = 7},
    {.Text = "X", .Place = {17, 216, 23, 20}, .TabIndex = 8},
    {.Text = "X", .Place = {17, 242, 23, 20}, .TabIndex = 21},
    {.Text = "X", .Place = {17, 268, 23, 20}, .TabIndex = 22},
});

inline constexpr auto kCounts = std::to_array<ControlLayout>({
    {.Text = "0", .Place = {38, 58, 60, 20}, .TabIndex = 9},
    {.Text = "0", .Place = {38, 85, 60, 20}, .TabIndex = 10},
    {.Text = "0", .Place = {38, 111, 60, 20}, .TabIndex = 11},
    {.Text = "0", .Place = {38, 137, 60, 20}, .TabIndex = 12},
    {.Text = "0", .Place = {38, 163, 60, 20}, .TabIndex = 13},
    {.Text = "0", .Place = {38, 189, 60, 20}, .TabIndex = 14},
    {.Text = "0", .Place = {38, 215, 60, 20}, .TabIndex = 15},
    {.Text = "0", .Place = {38, 241, 60, 20}, .TabIndex = 19},
    {.Text = "0", .Place = {38, 267, 60, 20}, .TabIndex = 23},
});

static_assert(kNames.size() == kAdditionalElementCount && kCounts.size() == kAdditionalElementCount,
              "each additional element needs a name and a count");

}  // namespace peakwright::additional_elements_window_layout
