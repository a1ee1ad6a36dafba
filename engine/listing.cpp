#include "engine/listing.h"

#include "engine/format.h"
#include "engine/row_buffer.h"
#include "engine/row_writer.h"

namespace peakwright {

Listing::Listing(const SearchInput& input, const Found& found) : input_(input), found_(found) {
  head_ = "    MASS " + Module1::align("-####", static_cast<float>(input.remainingMass));
  for (const std::size_t index : {kC, kH, kN, kO}) {
    head_ += Module1::aright(input.elements.elementName[index], 3);
  }
  head_ += "    M+1    M+2  RDB\r";
  head_ += "   ----------- -- -- -- --   ----   ----  ---\r";
}

std::size_t Listing::Length() const {
  return head_.size() + static_cast<std::size_t>(found_.rows) * RowBuffer::RowLength();
}

void Listing::Write(const std::function<void(std::string_view)>& take) const {
  take(head_);
  RowWriter rows(input_, found_, take);
  for (const FormulaSeries& series : found_.series) rows.Append(series);
  rows.Finish();
}

}  // namespace peakwright
