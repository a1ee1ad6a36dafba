#pragma once

#include <cstdint>
#include <string_view>

/// Plain records that say how a window and its controls look at first. Lengths, places and font
/// sizes are in pixels at 100 %; colours are 0xRRGGBB.
namespace peakwright {

enum class WindowType {
  Document = 0,  ///< An ordinary window; closing it ends the program.
  Floating = 3,  ///< Modeless, kept above the document window.
};

struct WindowLayout {
  std::string_view Title;
  int Width;   ///< Of the content, without frame and menu bar.
  int Height;  ///< Of the content, without frame and menu bar.
  WindowType Type = WindowType::Document;
  bool HasCloseButton = true;
  bool HasMaximizeButton = true;
  bool HasMinimizeButton = true;
  bool Resizeable = true;
  bool Visible = true;  ///< Whether the window comes on screen when it is created.
  int MinimumWidth = 64;
  int MinimumHeight = 64;
  int MaximumWidth = 32000;
  int MaximumHeight = 32000;
};

/// A floating window of fixed size, without buttons on its title bar.
constexpr WindowLayout Panel(std::string_view title, int width, int height, bool visible) {
  return {.Title = title,
          .Width = width,
          .Height = height,
          .Type = WindowType::Floating,
          .HasCloseButton = false,
          .HasMaximizeButton = false,
          .HasMinimizeButton = false,
          .Resizeable = false,
          .Visible = visible};
}

struct Rect {
  int Left;
  int Top;
  int Width;
  int Height;
};

enum class TextAlignment { Left = 0, Center = 2 };

struct ControlLayout {
  std::string_view Text;                 ///< Text, caption or initial rows.
  std::string_view AccessibleName = {};  ///< Of a control that no caption names.
  Rect Place;                            ///< In the window's content.
  int TabIndex;
  bool Visible = true;
  bool TabStop = true;
  bool Bold = false;
  bool Multiline = false;
  bool HasBorder = true;
  bool Default = false;     ///< Return presses this button.
  bool Cancel = false;      ///< Escape presses this button.
  bool LockBottom = false;  ///< Gives way where the display is lower than the window.
  int FontSize = 12;        ///< 0: the system's size.
  TextAlignment Alignment = TextAlignment::Left;
  std::uint32_t TextColor = 0x000000;
  std::uint32_t BackgroundColor = 0xFFFFFF;  ///< Of fields only.
};

}  // namespace peakwright
