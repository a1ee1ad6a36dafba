#pragma once

#include <array>

#include "engine/default_elements.h"
#include "runtime/layout.h"

/// Places and captions of the window that edits one element.
namespace peakwright::edit_element_window_layout {

inline constexpr WindowLayout kWindow = Panel("Edit Selected Element", 225, 300, /*visible=*/true);

inline constexpr ControlLayout kHeading{
    .Text = "Edit element isotope values", .Place = {20, 39, 185, 22}, .TabIndex = 0, .Bold = true};
inline constexpr ControlLayout kCancel{
    .Text = "Cancel", .Place = {20, 252, 69, 20}, .TabIndex = 13};
inline constexpr ControlLayout kChange{
    .Text = "Change", .Place = {128, 252, 69, 20}, .TabIndex = 14};
inline constexpr ControlLayout kRow{
    .Text = "", .Place = {91, 251, 34, 22}, .TabIndex = 15, .Visible = false};
inline constexpr ControlLayout kHint{.Text = "Either choice closes this window.",
                                     .Place = {20, 273, 177, 19},
                                     .TabIndex = 17,
                                     .FontSize = 9,
                                     .Alignment = TextAlignment::Center};
inline constexpr ControlLayout kShowIsotopes{
    .Text = "Show isotopes", .Place = {48, 7, 130, 20}, .TabIndex = 18};

/// Field c stands for column c of the element table.
inline constexpr auto kHeadings = std::to_array<ControlLayout>({
    {.Text = "X", .Place = {20, 71, 90, 20}, .TabIndex = 1},
    {.Text = "X", .Place = {20, 99, 90, 20}, .TabIndex = 3},
    {.Text = "X", .Place = {20, 127, 90, 20}, .TabIndex = 5},
    {.Text = "X", .Place = {20, 155, 90, 20}, .TabIndex = 7},
    {.Text = "X", .Place = {20, 183, 90, 20}, .TabIndex = 9},
    {.Text = "X", .Place = {20, 211, 90, 20}, .TabIndex = 11},
});

inline constexpr auto kCells = std::to_array<ControlLayout>({
    {.Text = "", .Place = {122, 70, 80, 22}, .TabIndex = 2},
    {.Text = "", .Place = {122, 98, 80, 22}, .TabIndex = 4},
    {.Text = "", .Place = {122, 126, 80, 22}, .TabIndex = 6},
    {.Text = "", .Place = {122, 154, 80, 22}, .TabIndex = 8},
    {.Text = "", .Place = {122, 182, 80, 22}, .TabIndex = 10},
    {.Text = "", .Place = {122, 210, 80, 22}, .TabIndex = 12},
});

static_assert(kHeadings.size() == kElementColumns && kCells.size() == kElementColumns,
              "each cell of an element needs a heading and a field");

}  // namespace peakwright::edit_element_window_layout
