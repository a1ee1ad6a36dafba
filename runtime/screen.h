#pragma once

namespace peakwright {

/// A display. Number 0 is the main one.
class Screen {
 public:
  explicit Screen(int number) : number_(number) {}
  int Width() const;  ///< In pixels at 100 %; of the main display where the number has none.

 private:
  int number_;
};

}  // namespace peakwright
