#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "engine/search.h"

namespace peakwright {

/// One run's report as text of fixed width: heading, separator, and a numbered row for each formula
/// that was found. The text is made as it is written; nobody holds the whole of it.
class Listing {
 public:
  /// Requires: `input` and `found` outlive the listing.
  Listing(const SearchInput& input, const Found& found);

  /// Length of the text in bytes.
  std::size_t Length() const;

  /// Calls `take` with the text, piece by piece. A piece ends with a line.
  void Write(const std::function<void(std::string_view)>& take) const;

 private:
  const SearchInput& input_;
  const Found& found_;
  std::string head_;
};

}  // namespace peakwright
