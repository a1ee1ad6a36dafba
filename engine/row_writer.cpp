#include "engine/row_writer.h"

#include <algorithm>

#include "engine/cell_writer.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

constexpr std::int64_t kFewAtoms = 9999;  // of an element

}  // namespace

RowWriter::RowWriter(const SearchInput& input, const Found& found,
                     const std::function<void(std::string_view)>& take)
    : masses_(input.elements, input.remainingMass),
      sums_(input.elements, input.totals),
      nitrogenRule_(input.nitrogenRule),
      allValid_(found.allValid),
      buffer_(found.rows, FormulaBatch::kCapacity, take) {}

void RowWriter::Append(const FormulaSeries& series) {
  const double mostH = masses_.Left(static_cast<double>(series.c), static_cast<double>(series.o),
                                    static_cast<double>(series.firstN));
  const bool few = std::max({series.c, series.o, series.lastN}) <= kFewAtoms && mostH <= kFewAtoms;
  for (std::int64_t n = series.firstN; n <= series.lastN;) {
    batch_.fewAtoms = batch_.fewAtoms && few;
    n += batch_.Add(series.c, series.o, n, series.lastN - n + 1);
    if (batch_.size == FormulaBatch::kCapacity) {
      KeepValid();
      // One that has lost most of its formulas takes up more.
      if (batch_.size > FormulaBatch::kCapacity / 2) AppendBatch();
    }
  }
}

void RowWriter::Finish() {
  if (batch_.size > 0) KeepValid();
  if (batch_.size > 0) AppendBatch();
  buffer_.HandOver();
}

void RowWriter::KeepValid() {
  if (!allValid_) batch_.KeepValid(masses_, sums_, nitrogenRule_);
}

void RowWriter::AppendBatch() {
  batch_.WorkOut(masses_, sums_);
  const bool plain = batch_.fewAtoms && batch_.exact.plain && batch_.m1.plain && batch_.m2.plain &&
                     batch_.rdb.plain;
  char* const row = buffer_.NextRows(batch_.size);
  buffer_.Written(plain ? WriteRows<true>(row) : WriteRows<false>(row), !plain);
  batch_.size = batch_.valid = 0;
  batch_.fewAtoms = true;
}

/// Writes the rows of the batch from `row` on, and returns where they end.
template <bool kPlain>
char* RowWriter::WriteRows(char* row) {
  // What the loop reads is local: for all the compiler knows, a row could overlap the members.
  const FormulaBatch& batch = batch_;
  const std::size_t size = batch.size;
  const std::size_t rowLength = RowBuffer::RowLength();
  std::uint64_t number = rowNumber_;
  for (std::size_t i = 0; i < size; ++i) {
    batch.rdb.Write<kPlain>(row + kRdb, i);
    batch.m2.Write<kPlain>(row + kM2, i);
    batch.m1.Write<kPlain>(row + kM1, i);
    const auto write = [&](std::size_t place, std::int64_t count) {
      WriteWhole(row + place, kCountMask,
                 kPlain ? static_cast<std::uint32_t>(count) : ShownCount(count));
    };
    write(kCountO, batch.o[i]);
    write(kCountN, batch.n[i]);
    write(kCountH, batch.h[i]);
    write(kCountC, batch.c[i]);
    batch.exact.Write<kPlain>(row + kExact, i);
    WriteWhole(row + kNumber, kNumberMask, ShownWhole(++number));
    row += rowLength;
  }
  rowNumber_ = number;
  return row;
}

}  // namespace peakwright
