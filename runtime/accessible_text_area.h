#pragma once

namespace peakwright {

class TextAreaView;

/// Shows text areas to assistive tools with each line end as a line feed, and line by displayed
/// line, however long the text is.
void InstallAccessibleTextArea();

/// Tells assistive tools that another text stands in the place of one of `formerLength` characters;
/// of changes within a text the toolkit tells them.
void AnnounceReplacement(TextAreaView& view, int formerLength);

}  // namespace peakwright
