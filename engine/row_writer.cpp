#include "engine/row_writer.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "engine/cell_writer.h"
#include "engine/global_strings.h"
#include "engine/number_text.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

// Of one element, in a batch: the last number of the tables.
constexpr auto kMostAtoms = static_cast<std::int64_t>(std::tuple_size_v<FourDigitTable> - 1);

constexpr std::int64_t kRowsHandedOver = 512;  // few enough to stay in a processor's cache

}  // namespace

RowWriter::RowWriter(const SearchInput& input, std::int64_t rows, const TextSink& sink)
    : masses_(input.elements, input.remainingMass),
      sums_(input.elements, input.totals),
      nitrogenRule_(input.nitrogenRule),
      sink_(sink),
      rowLength_(RowLength()) {
  constexpr std::int64_t kFewest = FormulaBatch::kCapacity;
  const auto blankRows = static_cast<std::size_t>(std::clamp(rows, kFewest, kRowsHandedOver));
  block_.resize(blankRows * rowLength_);
  Blank();
}

std::size_t RowWriter::RowLength() { return kBlankRow.size() + Module1::CR.size(); }

void RowWriter::Append(const FormulaSeries& series) {
  const double mostH = masses_.Left(static_cast<double>(series.c), static_cast<double>(series.o),
                                    static_cast<double>(series.firstN));
  if (std::max({series.c, series.o, series.lastN}) > kMostAtoms || !(mostH <= kMostAtoms)) {
    AppendBatch();
    for (std::int64_t n = series.firstN; n <= series.lastN; ++n) AppendAny(series.c, series.o, n);
    return;
  }

  const auto c = static_cast<std::int32_t>(series.c);
  const auto o = static_cast<std::int32_t>(series.o);
  if (c != batch_.c) AppendBatch();
  batch_.c = c;
  const auto lastN = static_cast<std::int32_t>(series.lastN);
  for (auto n = static_cast<std::int32_t>(series.firstN); n <= lastN;) {
    n += batch_.Add(o, n, lastN - n + 1);
    if (batch_.size == FormulaBatch::kCapacity) AppendBatch();
  }
}

void RowWriter::Finish() {
  AppendBatch();
  HandOver();
}

void RowWriter::AppendBatch() {
  if (batch_.size == 0) return;
  if (batch_.WorkOut(masses_, sums_)) {
    AppendCommon();
  } else {
    for (std::size_t i = 0; i < batch_.size; ++i) AppendAny(batch_.c, batch_.o[i], batch_.n[i]);
  }
  batch_.size = 0;
}

void RowWriter::AppendCommon() {
  MakeRoom(batch_.size);
  // What the loop reads is local: for all the compiler knows, a row could overlap the members.
  const FormulaBatch& batch = batch_;
  const std::size_t size = batch.size;
  const std::size_t rowLength = rowLength_;
  const bool nitrogenRule = nitrogenRule_;
  const auto c = static_cast<std::uint32_t>(batch.c);
  char* row = row_;
  std::int64_t number = rowNumber_;
  for (std::size_t i = 0; i < size; ++i) {
    if (!IsValid(batch.rdb[i], nitrogenRule)) continue;
    const auto write = [row, i](std::size_t place, const CellMask& mask,
                                const FormulaBatch::Column& column) {
      WriteDigits(row + place, mask, column.whole[i], column.fraction[i]);
    };
    write(kRdb, kRdbMask, batch.rdbDigits);
    write(kM2, kPeakMask, batch.m2Digits);
    write(kM1, kPeakMask, batch.m1Digits);
    WriteWhole(row + kCountO, kCountMask, static_cast<std::uint32_t>(batch.o[i]));
    WriteWhole(row + kCountN, kCountMask, static_cast<std::uint32_t>(batch.n[i]));
    WriteWhole(row + kCountH, kCountMask, static_cast<std::uint32_t>(batch.h[i]));
    WriteWhole(row + kCountC, kCountMask, c);
    write(kExact, kExactMask, batch.exactDigits);
    WriteRowNumber(row + kNumber, ++number);
    row += rowLength;
  }
  row_ = row;
  rowNumber_ = number;
}

void RowWriter::AppendAny(std::int64_t countC, std::int64_t countO, std::int64_t countN) {
  const auto c = static_cast<double>(countC);
  const auto o = static_cast<double>(countO);
  const auto n = static_cast<double>(countN);
  const std::int64_t countH = Truncate(masses_.Left(c, o, n));
  const auto h = static_cast<double>(countH);
  const float rdb = sums_.Rdb(c, h, n);
  if (!IsValid(rdb, nitrogenRule_)) return;

  MakeRoom(1);
  const float m1 = sums_.M1(c, h, n, o);
  WriteCell(row_ + kRdb, kRdbMask, rdb);
  WriteCell(row_ + kM2, kPeakMask, sums_.M2(m1, c, h, n, o));
  WriteCell(row_ + kM1, kPeakMask, m1);
  WriteCell(row_ + kCountO, kCountMask, static_cast<float>(countO));
  WriteCell(row_ + kCountN, kCountMask, static_cast<float>(countN));
  WriteCell(row_ + kCountH, kCountMask, static_cast<float>(countH));
  WriteCell(row_ + kCountC, kCountMask, static_cast<float>(countC));
  WriteCell(row_ + kExact, kExactMask, sums_.ExactMass(c, h, n, o));
  WriteRowNumber(row_ + kNumber, ++rowNumber_);
  row_ += rowLength_;
  spoiled_ = true;
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
