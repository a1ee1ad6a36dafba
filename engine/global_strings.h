#pragma once

#include <string>

/// The program's five global strings. All start empty; the application sets them as it starts, and
/// every room reads them here, the lowest place that all of them see.
namespace peakwright::Module1 {

inline std::string appname;    ///< Name of the program's bundle; set at start-up.
inline std::string CR;         ///< One line feed, in spite of its name; set at start-up.
inline std::string version;    ///< Number and date, as shown and as compared; set by about0().
inline std::string websource;  ///< Download location, with a slash at its end; set by about0().
inline std::string psettings;  ///< Page setup of the last print, opaque; set by printer().

}  // namespace peakwright::Module1
