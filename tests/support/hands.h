#pragma once

namespace peakwright {

class DesktopUIControl;
class DesktopWindow;

/// Deals with what has happened, and draws what it changed.
void Paint();

/// Keys such as "Ctrl+Z", as the user presses them in a control.
void PressKeys(const DesktopUIControl& control, const char* keys);

void Resize(const DesktopWindow& window, int width, int height);

/// Keeps the windows off the screen, whatever display there is.
void StayOffScreen();

}  // namespace peakwright
