#pragma once

namespace peakwright {

/// Shows the program dark where the system asks for that and the toolkit doesn't see it by itself;
/// on Windows also when the system changes its mind. Requires: the application object is there, and
/// its style is still the system's.
void FollowSystemAppearance();

}  // namespace peakwright
