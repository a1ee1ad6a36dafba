#include "engine/row_buffer.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "engine/global_strings.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

constexpr std::int64_t kRowsHandedOver = 512;  // few enough to stay in a processor's cache

}  // namespace

RowBuffer::RowBuffer(std::int64_t rows, std::int64_t most,
                     const std::function<void(std::string_view)>& take)
    : take_(take) {
  assert(most <= kRowsHandedOver);
  block_.resize(static_cast<std::size_t>(std::clamp(rows, most, kRowsHandedOver)) * RowLength());
  Blank();
}

std::size_t RowBuffer::RowLength() { return kBlankRow.size() + Module1::CR.size(); }

char* RowBuffer::NextRows(std::size_t rows) {
  const auto room = static_cast<std::size_t>(block_.data() + block_.size() - next_);
  if (room < rows * RowLength()) HandOver();
  return next_;
}

void RowBuffer::Written(char* end, bool overwritten) {
  next_ = end;
  overwritten_ = overwritten_ || overwritten;
}

void RowBuffer::HandOver() {
  take_({block_.data(), static_cast<std::size_t>(next_ - block_.data())});
  if (overwritten_) Blank();
  next_ = block_.data();
}

void RowBuffer::Blank() {
  for (std::size_t start = 0; start < block_.size(); start += RowLength()) {
    std::memcpy(&block_[start], kBlankRow.data(), kBlankRow.size());
    std::memcpy(&block_[start + kBlankRow.size()], Module1::CR.data(), Module1::CR.size());
  }
  next_ = block_.data();
  overwritten_ = false;
}

}  // namespace peakwright
