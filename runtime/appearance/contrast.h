#pragma once

class QColor;

namespace peakwright {

/// Contrast of two colours, from 1 to 21 (WCAG 2.1, contrast ratio).
double Contrast(const QColor& one, const QColor& other);

}  // namespace peakwright
