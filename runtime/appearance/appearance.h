#pragma once

#include <cstdint>

class QWidget;

namespace peakwright {

/// Gives the program the dark appearance, or the one that the system's own palette has.
void ShowAppearance(bool dark);

/// Gives a field its two fixed colours, which hold in every appearance.
void FixFieldColors(QWidget& field, std::uint32_t text, std::uint32_t background);

/// Shows what is selected in a field of fixed colours only while it has the focus.
void HideSelectionWithoutFocus(QWidget& field);

/// Gives a label its colour where that can be read on the window; elsewhere the appearance's own.
void SetReadableTextColor(QWidget& label, std::uint32_t text);

}  // namespace peakwright
