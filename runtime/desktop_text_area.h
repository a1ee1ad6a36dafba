#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "runtime/desktop_text_control.h"
#include "runtime/styled_text_printer.h"
#include "runtime/text_pieces.h"

namespace peakwright {

/// An editable area of plain text in one font. Carriage return and line feed both end a line, and
/// stay what they are. Lines are displayed lines, counted from 0; a wrapped paragraph has several.
class DesktopTextArea : public DesktopTextControl {
 public:
  DesktopTextArea(DesktopWindow& window, const ControlLayout& layout);

  std::string Text() const;
  void Text(std::string_view text);  ///< Undo brings the former text back.
  /// The length of the text, for LineNumber, without a copy of it.
  std::int64_t TextLength() const;

  /// Replaces the selection, or inserts at the insertion point; leaves the insertion point behind.
  void SelectedText(std::string_view text);
  /// Likewise with a text of `length` bytes that comes in pieces.
  void SelectedText(std::size_t length, const TextPieces& pieces);
  /// Calls `write`. What it writes here is one step of Undo, and nothing of it stays if it throws.
  void AsOneStep(const std::function<void()>& write);

  /// Raised when the user has brought another state of the text back by Undo or Redo.
  std::function<void(std::int64_t formerLength)> Restored;

  /// The line that holds the character at `position`, or the text's end.
  std::int64_t LineNumber(std::int64_t position) const;
  /// The line at the top of the view. A target past the end shows the end.
  std::int64_t VerticalScrollPosition() const;
  void VerticalScrollPosition(std::int64_t line);

  /// A face that the system lacks is replaced by one that is monospaced.
  void FontName(std::string_view name);
  void FontSize(int pixels);

  /// Flows the text as it stands, in the area's font, into blocks of `width` on `graphics`.
  peakwright::StyledTextPrinter StyledTextPrinter(Graphics& graphics, int width) const;
};

}  // namespace peakwright
