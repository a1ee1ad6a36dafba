#pragma once

#include <string>
#include <string_view>

#include "runtime/desktop_text_control.h"

namespace peakwright {

/// A field of one line, which takes any text of any length.
class DesktopTextField : public DesktopTextControl {
 public:
  DesktopTextField(DesktopWindow& window, const ControlLayout& layout);

  std::string Text() const;
  /// In the field that has its window's focus the new text is selected, ready to be typed over.
  void Text(std::string_view text);
};

}  // namespace peakwright
