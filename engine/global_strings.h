#pragma once

#include <string>

/// The program's five global strings, in the lowest place that all rooms see. All start empty,
/// until what stands beside each sets it.
namespace peakwright::Module1 {

inline std::string appname;    ///< Name of the program's bundle; App, before any window opens.
inline std::string CR;         ///< One line feed, in spite of its name; App, likewise.
inline std::string version;    ///< Number and date, as shown and as compared; about0().
inline std::string websource;  ///< Download location, with a slash at its end; about0().
inline std::string psettings;  ///< Page setup of the last print, opaque; printer().

}  // namespace peakwright::Module1
