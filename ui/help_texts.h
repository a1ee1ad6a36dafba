#pragma once

/// The program's help, plain text that is written into the results.
namespace peakwright::Module1 {

/// Writes the start-up text. Also sets the version and the download location.
void about0();

/// Writes the long explanation.
void about();

}  // namespace peakwright::Module1
