#pragma once

#include <string_view>

class QWidget;

namespace peakwright {

/// Has assistive tools speak `text` once, as the words of `window`, on one line. Nothing is shown,
/// and the focus stays where it is. Waits for a window that is coming forward.
void Announce(QWidget& window, std::string_view text);

}  // namespace peakwright
