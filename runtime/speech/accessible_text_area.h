#pragma once

namespace peakwright {

class TextAreaView;

/// Shows text areas to assistive tools with each line end as a line feed, and line by displayed
/// line, however long the text is.
void InstallAccessibleTextArea();

/// Tells assistive tools that the `added` characters behind `from` have come in the place of
/// `removed` ones: of a long change only the beginning, as the tools read the rest when they need
/// it.
void AnnounceChange(TextAreaView& view, int from, int removed, int added);

}  // namespace peakwright
