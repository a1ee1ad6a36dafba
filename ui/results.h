#pragma once

#include <string_view>

/// The ways to write into the results area of the main window.
namespace peakwright {

class Listing;

namespace Module1 {

/// Writes `text` and a carriage return at the insertion point of the results, in the place of what
/// is selected there. All text of the program reaches the results through this.
void Print(std::string_view text);
void Print(const Listing& listing);

/// One run on what stands in the windows' controls; assistive tools are told what it came to.
void calculate();

}  // namespace Module1

/// Lines from the old end of the text down to the line that a command scrolls to.
inline constexpr int kRunScrollStep = 20;
inline constexpr int kHelpScrollStep = 10;

/// Calls `writer`, then scrolls to `step` lines below what was the last line before.
void WriteAndScroll(void (*writer)(), int step);

}  // namespace peakwright
