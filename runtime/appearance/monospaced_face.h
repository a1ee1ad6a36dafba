#pragma once

class QString;

namespace peakwright {

/// The family in which columns stay columns: `wanted` where its face on this machine is monospaced
/// and no wider than usual (ten pixels a character at a size of 16), else the system's monospaced
/// one, else the first such on the machine. `wanted` where there is none.
QString MonospacedFamily(const QString& wanted);

}  // namespace peakwright
