#pragma once

namespace peakwright {

/// Shows text areas to assistive tools with each line end as a line feed, and line by displayed
/// line, however long the text is; of a long change only the beginning is told, as the tools
/// read the rest when they need it.
void InstallAccessibleTextArea();

}  // namespace peakwright
