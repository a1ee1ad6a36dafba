#pragma once

#include <cstdint>

#include "runtime/layout.h"

/// Places and captions of the update window.
namespace peakwright::update_window_layout {

inline constexpr WindowLayout kWindow{.Title = "Update",
                                      .Width = 370,
                                      .Height = 200,
                                      .Type = WindowType::Floating,
                                      .HasMaximizeButton = false,
                                      .HasMinimizeButton = false,
                                      .Resizeable = false};

inline constexpr ControlLayout kProgress{.Text = "",
                                         .AccessibleName = "Download",
                                         .Place = {18, 155, 335, 20},
                                         .TabIndex = 0,
                                         .Visible = false};
inline constexpr ControlLayout kDownloading{
    .Text = "Downloading to desktop...\rThis window will close when finished.",
    .Place = {18, 124, 248, 35},
    .TabIndex = 1,
    .Visible = false,
    .Multiline = true,
    .FontSize = 0};
inline constexpr ControlLayout kResult{.Text = "You are running version",
                                       .Place = {17, 43, 341, 75},
                                       .TabIndex = 2,
                                       .Multiline = true,
                                       .FontSize = 0};
inline constexpr ControlLayout kClose{
    .Text = "Close", .Place = {192, 119, 80, 20}, .TabIndex = 3, .FontSize = 0};
inline constexpr ControlLayout kDownload{.Text = "Download",
                                         .Place = {278, 119, 80, 20},
                                         .TabIndex = 4,
                                         .Visible = false,
                                         .TabStop = false,
                                         .Default = true,
                                         .FontSize = 0};
inline constexpr ControlLayout kName{
    .Text = "Peakwright", .Place = {17, 13, 153, 20}, .TabIndex = 6, .Bold = true, .FontSize = 0};
inline constexpr ControlLayout kLocation{.Text = "",
                                         .AccessibleName = "Download location",
                                         .Place = {14, 173, 342, 22},
                                         .TabIndex = 7,
                                         .HasBorder = false,
                                         .FontSize = 0};
inline constexpr ControlLayout kCredit{.Text = "Developers of\nPeakwright",
                                       .Place = {280, 4, 88, 38},
                                       .TabIndex = 8,
                                       .Multiline = true};

inline constexpr std::int64_t kProgressMaximum = 100;  // Until the total is known.

}  // namespace peakwright::update_window_layout
