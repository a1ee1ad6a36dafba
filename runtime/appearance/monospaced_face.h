#pragma once

class QFont;
class QString;

namespace peakwright {

/// A font of 16 pixels in which columns stay columns: of the family `wanted` where its face on this
/// machine is monospaced and no wider than usual (ten pixels a character), else of the system's
/// monospaced one, else of the first such on the machine. Of `wanted` where there is none.
QFont MonospacedFont(const QString& wanted);

}  // namespace peakwright
