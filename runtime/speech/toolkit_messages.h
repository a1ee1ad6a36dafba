#pragma once

namespace peakwright {

/// Keeps the toolkit's notes on its talk with assistive tools off standard error: a tool that asks
/// for what has just gone, or answers late, is no matter for the user.
void SilenceAssistiveMessages();

}  // namespace peakwright
