#include "engine/report.h"

#include "engine/format.h"
#include "engine/global_strings.h"

namespace peakwright {

Listing::Listing(const Elements& elements, std::int64_t remainingMass) {
  text_ = "    MASS " + Module1::align("-####", static_cast<float>(remainingMass));
  for (const std::size_t index : {kC, kH, kN, kO}) {
    text_ += Module1::aright(elements.elementName[index], 3);
  }
  text_ += "    M+1    M+2  RDB\r";
  text_ += "   ----------- -- -- -- --   ----   ----  ---\r";
}

void Listing::AppendRow(const ReportRow& row) {
  ++rowNumber_;
  text_ += Module1::align("####)", static_cast<float>(rowNumber_));
  text_ += Module1::align(" ###.0000", row.values.exact);
  for (const std::int64_t count : {row.c, row.h, row.n, row.o}) {
    text_ += Module1::align(" ##", static_cast<float>(count));
  }
  text_ += Module1::align(" ###.00", row.values.m1);
  text_ += Module1::align(" ###.00", row.values.m2);
  text_ += Module1::align(" ##.0", row.rdb);
  text_ += Module1::CR;
}

}  // namespace peakwright
