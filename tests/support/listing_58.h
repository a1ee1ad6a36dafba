#pragma once

#include <string>

namespace peakwright {

/// What a run of mass 58 writes with the default table and no options.
inline const std::string kListing58 =
    "    MASS    58  C  H  N  O    M+1    M+2  RDB\r"
    "   ----------- -- -- -- --   ----   ----  ---\r"
    "   1)  58.0279     2  4      1.50    .01  2.0\n"
    "   2)  58.0041        3  1   1.13    .00  2.5\n"
    "   3)  58.0405  1  4  3      2.28    .02  1.5\n"
    "   4)  58.0167  1  2  2  1   1.92    .01  2.0\n"
    "   5)  57.9929  1     1  2   1.56    .01  2.5\n"
    "   6)  58.0531  2  6  2      3.07    .03  1.0\n"
    "   7)  58.0293  2  4  1  1   2.71    .02  1.5\n"
    "   8)  58.0055  2  2     2   2.35    .01  2.0\n"
    "   9)  58.0657  3  8  1      3.85    .05   .5\n"
    "  10)  58.0419  3  6     1   3.49    .04  1.0\n"
    "  11)  58.0783  4 10         4.64    .08   .0\n"
    "\r\r";

}  // namespace peakwright
