#pragma once

#include <memory>

class QPainter;
class QPrinter;

namespace peakwright {

/// A print job, page after page. Lengths count from the corner of the paper, whatever the device,
/// its resolution and its margins. They are in 1/72 inch; but every sheet holds 594 by 774 of them,
/// which is a little less than A4 and Letter are wide and high: on a smaller sheet they shrink. The
/// job begins with the first page that is drawn on and ends with this object; without such a page
/// there is none.
class Graphics {
 public:
  /// Draws nowhere: for counting pages.
  Graphics();
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;
  /// Tells the user if the job did not reach its file or its printer whole, or if it has pages, but
  /// none that the user asked for.
  ~Graphics();

  /// Ends the page and starts the next one.
  void NextPage();
  /// The number of the current page, from 1.
  int Page() const { return page_; }

 private:
  friend class PrinterSetup;
  friend class StyledTextPrinter;

  explicit Graphics(std::shared_ptr<QPrinter> printer);

  /// The painter of the current page, or null if the user left this page out of the job. Throws
  /// std::runtime_error if the printer or the file can't be written to.
  QPainter* Painter();
  bool IsWanted() const;
  void BeginPage();
  bool EndPainting();
  void EndJob();

  std::shared_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  int page_ = 1;
  bool isEmpty_ = true;  ///< Nothing was to be drawn on any page.
  bool pageBegun_ = false;
  bool failed_ = false;  ///< Which the user knows already.
};

}  // namespace peakwright
