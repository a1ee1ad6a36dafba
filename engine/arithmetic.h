#pragma once

#include <cfloat>
#include <limits>

/// What the digits of a report need of a compiler. Where it doesn't hold they could differ in a
/// last place, so nothing compiles. That no multiplication and addition are fused can't be asked
/// here; cmake/compile_options.cmake sees to it.
namespace peakwright {

static_assert(FLT_EVAL_METHOD == 0,
              "A sum must be rounded to its own type: 32-bit x86 needs -msse2 -mfpmath=sse.");
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<float>::digits == 24 &&
                  std::numeric_limits<double>::is_iec559 &&
                  std::numeric_limits<double>::digits == 53,
              "Single and Double must be those of IEC 60559.");
#if defined(__FAST_MATH__)
#error "-ffast-math reorders the sums of a formula."
#endif

}  // namespace peakwright
