#pragma once

#include <functional>
#include <string_view>

namespace peakwright {

/// A text too long to be held as a whole: gives its pieces, in order, to the function that it is
/// called with.
using TextPieces = std::function<void(const std::function<void(std::string_view)>&)>;

}  // namespace peakwright
