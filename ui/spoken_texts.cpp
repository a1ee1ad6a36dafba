#include "ui/spoken_texts.h"

#include "engine/number_text.h"

namespace peakwright {

std::string SpokenOutcome(const RunOutcome& outcome) {
  std::string text = "Mass " + Str(outcome.mass);
  if (outcome.nitrogenRule) text += ", nitrogen rule applied";
  text += ": ";
  if (!outcome.message.empty()) return text + outcome.message;
  return text + Str(outcome.rows) +
         (outcome.rows == 1 ? " combination listed." : " combinations listed.");
}

std::string CountDescription(std::string_view name) {
  return "number of " + std::string(name) + " atoms";
}

std::string CellDescription(std::string_view heading, std::string_view name) {
  return std::string(heading) + " of " + std::string(name);
}

}  // namespace peakwright
