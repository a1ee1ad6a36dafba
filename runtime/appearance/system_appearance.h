#pragma once

namespace peakwright {

/// Shows the program dark where the system asks for that and the toolkit doesn't see it by itself.
void FollowSystemAppearance();

}  // namespace peakwright
