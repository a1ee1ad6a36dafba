#pragma once

namespace peakwright::Module1 {

/// Prints the results text as it stands, after the page-setup and the print dialog. Cancelling
/// either ends the command quietly. An accepted page setup is offered again by the next print.
void printer();

}  // namespace peakwright::Module1
