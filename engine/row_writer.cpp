#include "engine/row_writer.h"

#include <algorithm>
#include <cstring>

#include "engine/cell_writer.h"
#include "engine/global_strings.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

constexpr std::int64_t kFewAtoms = 9999;  // of an element

constexpr std::int64_t kRowsHandedOver = 512;  // few enough to stay in a processor's cache

/// Writes value `i` of a column; `kPlain` if that is known to be plain.
template <const CellMask& kMask, bool kPlain>
void WriteValue(char* cell, const FormulaBatch::Column& column, std::size_t i) {
  if (kPlain || column.plain) return WriteDigits(cell, kMask, column.whole[i], column.fraction[i]);
  WriteCell<kMask>(cell, column.value[i]);
}

}  // namespace

RowWriter::RowWriter(const SearchInput& input, const Found& found, const TextSink& sink)
    : masses_(input.elements, input.remainingMass),
      sums_(input.elements, input.totals),
      nitrogenRule_(input.nitrogenRule),
      allValid_(found.allValid),
      sink_(sink),
      rowLength_(RowLength()) {
  constexpr std::int64_t kFewest = FormulaBatch::kCapacity;
  const auto blankRows = static_cast<std::size_t>(std::clamp(found.rows, kFewest, kRowsHandedOver));
  block_.resize(blankRows * rowLength_);
  Blank();
}

std::size_t RowWriter::RowLength() { return kBlankRow.size() + Module1::CR.size(); }

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
  HandOver();
}

void RowWriter::KeepValid() {
  if (!allValid_) batch_.KeepValid(masses_, sums_, nitrogenRule_);
}

void RowWriter::AppendBatch() {
  batch_.WorkOut(masses_, sums_);
  MakeRoom(batch_.size);
  const bool digits = batch_.exact.plain && batch_.m1.plain && batch_.m2.plain && batch_.rdb.plain;
  if (batch_.fewAtoms && digits) {
    AppendRows<true>();
  } else {
    AppendRows<false>();
    spoiled_ = true;
  }
  batch_.size = batch_.valid = 0;
  batch_.fewAtoms = true;
}

template <bool kPlain>
void RowWriter::AppendRows() {
  // What the loop reads is local: for all the compiler knows, a row could overlap the members.
  const FormulaBatch& batch = batch_;
  const std::size_t size = batch.size;
  const std::size_t rowLength = rowLength_;
  char* row = row_;
  std::int64_t number = rowNumber_;
  for (std::size_t i = 0; i < size; ++i) {
    WriteValue<kRdbMask, kPlain>(row + kRdb, batch.rdb, i);
    WriteValue<kPeakMask, kPlain>(row + kM2, batch.m2, i);
    WriteValue<kPeakMask, kPlain>(row + kM1, batch.m1, i);
    const auto write = [&](std::size_t place, std::int64_t count) {
      WriteWhole(row + place, kCountMask,
                 kPlain ? static_cast<std::uint32_t>(count) : ShownCount(count));
    };
    write(kCountO, batch.o[i]);
    write(kCountN, batch.n[i]);
    write(kCountH, batch.h[i]);
    write(kCountC, batch.c[i]);
    WriteValue<kExactMask, kPlain>(row + kExact, batch.exact, i);
    WriteWhole(row + kNumber, kNumberMask, ShownCount(++number));
    row += rowLength;
  }
  row_ = row;
  rowNumber_ = number;
}

void RowWriter::MakeRoom(std::size_t rows) {
  const auto room = static_cast<std::size_t>(block_.data() + block_.size() - row_);
  if (room < rows * rowLength_) HandOver();
}

void RowWriter::HandOver() {
  sink_({block_.data(), static_cast<std::size_t>(row_ - block_.data())});
  if (spoiled_) Blank();
  row_ = block_.data();
}

void RowWriter::Blank() {
  for (std::size_t start = 0; start < block_.size(); start += rowLength_) {
    std::memcpy(&block_[start], kBlankRow.data(), kBlankRow.size());
    std::memcpy(&block_[start + kBlankRow.size()], Module1::CR.data(), Module1::CR.size());
  }
  row_ = block_.data();
  spoiled_ = false;
}

}  // namespace peakwright
