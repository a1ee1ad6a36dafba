#pragma once

#include <memory>

class QPainter;
class QPrinter;

namespace peakwright {

/// A print job, page after page. Lengths count from the corner of the paper, whatever the device,
/// its resolution and its margins. They are in 1/72 inch; but where a sheet is too small for what
/// is drawn and a quarter inch beyond, they shrink evenly. The job begins with the first page that
/// is drawn on; without such a page there is none.
class Graphics {
 public:
  /// Draws nowhere: for counting pages.
  Graphics();
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;
  /// Lets go of a job that wasn't ended: no printer gets any of it.
  ~Graphics();

  /// Ends the page and starts the next one.
  void NextPage();
  /// Ends the job. Throws std::runtime_error if it did not reach its file or its printer whole, or
  /// if it has pages, but none that the user asked for.
  void End();
  /// The number of the current page, from 1.
  int Page() const { return page_; }

 private:
  friend class PrinterSetup;
  friend class StyledTextPrinter;

  explicit Graphics(std::shared_ptr<QPrinter> printer);

  /// The painter of the current page, or null if the user left this page out of the job. Throws
  /// std::runtime_error if the printer or the file can't be written to.
  QPainter* Painter();
  /// Dots of the device a unit, for what reaches so far to the right and down.
  double Scale(double right, double bottom) const;
  bool IsWanted() const;
  void BeginPage();

  std::shared_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  int page_ = 1;
  bool isEmpty_ = true;  ///< Nothing was to be drawn on any page.
  bool pageBegun_ = false;
};

}  // namespace peakwright
