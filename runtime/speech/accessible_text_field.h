#pragma once

namespace peakwright {

/// Shows fields of one line and boxes of numbers to assistive tools. The toolkit's own way of it
/// never returns when it is asked for the word at the text's end.
void InstallAccessibleTextField();

}  // namespace peakwright
