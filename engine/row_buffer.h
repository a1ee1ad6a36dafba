#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace peakwright {

/// Rows of a report that lack only their digits, which are written in place. They are handed over
/// many at a time.
class RowBuffer {
 public:
  /// For a listing of so many rows, of which at most `most` are written at a time. `take` is called
  /// with the text. Requires: `take` outlives the buffer.
  RowBuffer(std::int64_t rows, std::int64_t most,
            const std::function<void(std::string_view)>& take);

  /// Length of a row in bytes, its line end included.
  static std::size_t RowLength();

  /// Where the next rows stand, with room for so many.
  char* NextRows(std::size_t rows);
  /// Rows are written up to `end`; `overwritten` if one may have lost a point or a blank of the
  /// row without its digits.
  void Written(char* end, bool overwritten);

  /// Hands over what is written.
  void HandOver();

 private:
  void Blank();

  const std::function<void(std::string_view)>& take_;
  std::string block_;
  char* next_ = nullptr;  // The row to write next.
  bool overwritten_ = false;
};

}  // namespace peakwright
