#pragma once

#include <memory>

class QPainter;
class QPrinter;

namespace peakwright {

/// A print job, page after page. Lengths are in 1/72 inch and count from the corner of the paper,
/// whatever the device, its resolution and its margins. The job begins with the first page that is
/// drawn on and ends with this object; without such a page there is none.
class Graphics {
 public:
  explicit Graphics(std::shared_ptr<QPrinter> printer);
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;
  /// Tells the user if the job did not reach its file whole.
  ~Graphics();

  /// Ends the page and starts the next one.
  void NextPage();

  /// The painter of the current page, or null if the user left this page out of the job. Throws
  /// std::runtime_error if the printer or the file can't be written to.
  QPainter* Painter();

 private:
  bool IsWanted() const;
  void BeginPage();
  bool EndPainting();
  void EndJob();

  std::shared_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  int page_ = 1;
  bool pageBegun_ = false;
};

}  // namespace peakwright
