#pragma once

#include <memory>
#include <string_view>

class QFont;

namespace peakwright {

class Graphics;

/// Flows a text into blocks, top to bottom. Lines end at carriage returns, at line feeds, and
/// between words at the width of the block; none is cut through. White space at the end of the text
/// is left out, so that it takes no page of its own.
class StyledTextPrinter {
 public:
  StyledTextPrinter(const StyledTextPrinter&) = delete;
  StyledTextPrinter& operator=(const StyledTextPrinter&) = delete;
  ~StyledTextPrinter();

  /// Draws as many of the remaining lines as fit into `height`, but one at least, and moves on.
  void DrawBlock(int x, int y, int height);
  /// Whether no text is left. (The name in capitals is a macro of the C library.)
  bool Eof() const;

 private:
  friend class DesktopTextArea;
  class Flow;

  /// Draws `text` in the face of `font`, a pixel of which counts as one unit of `graphics`, into
  /// blocks of `width` units. `graphics` must outlive this object.
  StyledTextPrinter(Graphics& graphics, std::string_view text, const QFont& font, int width);

  Graphics& graphics_;
  std::unique_ptr<Flow> flow_;
};

}  // namespace peakwright
