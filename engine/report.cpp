#include "engine/report.h"

#include "engine/cell_writer.h"
#include "engine/format.h"
#include "engine/global_strings.h"
#include "engine/sums.h"

namespace peakwright {
namespace {

// A row without its digits, and the first characters of its cells.
constexpr std::string_view kBlankRow = "    )    .                    .      .     . ";
constexpr std::size_t kNumber = 0;
constexpr std::size_t kExact = 5;
constexpr std::size_t kCountC = 14;
constexpr std::size_t kCountH = 17;
constexpr std::size_t kCountN = 20;
constexpr std::size_t kCountO = 23;
constexpr std::size_t kM1 = 26;
constexpr std::size_t kM2 = 33;
constexpr std::size_t kRdb = 40;

constexpr CellMask kExactMask(" ###.0000");
constexpr CellMask kCountMask(" ##");
constexpr CellMask kPeakMask(" ###.00");
constexpr CellMask kRdbMask(" ##.0");

void WriteRow(char* row, std::int64_t number, const FormulaBatch::Formulas& formulas,
              std::size_t i) {
  WriteCell(row + kRdb, kRdbMask, formulas.rdb[i]);
  WriteCell(row + kM2, kPeakMask, formulas.m2[i]);
  WriteCell(row + kM1, kPeakMask, formulas.m1[i]);
  WriteCount(row + kCountO, kCountMask, formulas.o[i]);
  WriteCount(row + kCountN, kCountMask, formulas.n[i]);
  WriteCount(row + kCountH, kCountMask, formulas.h[i]);
  WriteCount(row + kCountC, kCountMask, formulas.c[i]);
  WriteCell(row + kExact, kExactMask, formulas.exact[i]);
  WriteRowNumber(row + kNumber, number);
}

}  // namespace

Listing::Listing(const Elements& elements, std::int64_t remainingMass) {
  text_ = "    MASS " + Module1::align("-####", static_cast<float>(remainingMass));
  for (const std::size_t index : {kC, kH, kN, kO}) {
    text_ += Module1::aright(elements.elementName[index], 3);
  }
  text_ += "    M+1    M+2  RDB\r";
  text_ += "   ----------- -- -- -- --   ----   ----  ---\r";

  const std::string blankRow = std::string(kBlankRow) + Module1::CR;
  rowLength_ = blankRow.size();
  for (std::size_t i = 0; i < FormulaBatch::kCapacity; ++i) blankRows_ += blankRow;
}

void Listing::Reserve(std::int64_t rows) {
  text_.reserve(text_.size() + static_cast<std::size_t>(rows) * rowLength_ + blankRows_.size());
}

void Listing::AppendValid(FormulaBatch& batch, bool nitrogenRule) {
  const FormulaBatch::Formulas& formulas = batch.WorkOut();
  const std::size_t start = text_.size();
  text_.append(blankRows_, 0, batch.Size() * rowLength_);
  char* row = text_.data() + start;
  const std::size_t rowLength = rowLength_;
  std::int64_t number = rowNumber_;
  for (std::size_t i = 0; i < batch.Size(); ++i) {
    if (!IsValid(formulas.rdb[i], nitrogenRule)) continue;
    WriteRow(row, ++number, formulas, i);
    row += rowLength;
  }
  rowNumber_ = number;
  text_.resize(static_cast<std::size_t>(row - text_.data()));
  batch.Clear();
}

}  // namespace peakwright
