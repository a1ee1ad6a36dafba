#pragma once

class QWindow;

namespace peakwright {

/// Asks an X11 window manager for a frame with a title and no button. Left to itself the toolkit
/// asks for nothing of the look of such a frame, and many then draw buttons that do nothing. Does
/// nothing on other window systems. Call it before the window is shown.
void AskForFrameWithoutButtons(const QWindow& window);

}  // namespace peakwright
