#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <memory>

#include "runtime/layout.h"

namespace peakwright {

class DesktopWindow;

/// A control repeated Count times in one window; its members are reached by their index.
template <class Control, std::size_t Count>
class ControlArray {
 public:
  ControlArray(DesktopWindow& window, const std::array<ControlLayout, Count>& layouts) {
    for (std::size_t i = 0; i < Count; ++i) {
      controls_[i] = std::make_unique<Control>(window, layouts[i]);
    }
  }

  /// Requires: `index` is in 0 to Count - 1.
  Control& operator()(int index) const {
    assert(index >= 0 && static_cast<std::size_t>(index) < Count);
    return *controls_[static_cast<std::size_t>(index)];
  }

 private:
  std::array<std::unique_ptr<Control>, Count> controls_;
};

}  // namespace peakwright
