#pragma once

class QFont;

namespace peakwright {

/// The interface font at `size` pixels; size 0 stands for the system's size, as far as it fits.
QFont SystemFont(int size, bool bold);

}  // namespace peakwright
