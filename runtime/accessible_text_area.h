#pragma once

namespace peakwright {

/// Shows text areas to assistive tools with each line end as a line feed, and line by displayed
/// line, however long the text is.
void InstallAccessibleTextArea();

}  // namespace peakwright
