#pragma once

namespace peakwright {

class DesktopWindow;

/// Draws the window's content as it stands, at once.
void PaintNow(const DesktopWindow& window);

/// Keeps the windows off the screen, whatever display there is.
void StayOffScreen();

}  // namespace peakwright
