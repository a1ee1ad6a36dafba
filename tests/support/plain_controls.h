#pragma once

#include <array>
#include <string>

#include "engine/run.h"

namespace peakwright {

/// The controls of a run as plain variables.
struct PlainControls : RunControls {
  const ElementTable& Table() override { return table; }
  std::string MassText() override { return mass; }
  void MassText(const std::string& text) override { mass = text; }
  bool AdditionalElements() override { return additionalElements; }
  std::string CountText(int index) override { return counts.at(static_cast<std::size_t>(index)); }
  bool NitrogenRule() override { return nitrogenRule; }
  void Print(std::string_view text) override { results.append(text).append("\r"); }
  void Print(const Listing& listing) override {
    const std::size_t start = results.size();
    listing.Write([this](std::string_view piece) { results.append(piece); });
    const bool asTold = results.size() - start == listing.Length();
    Print(asTold ? "" : "The listing hasn't the length that it told.");
  }

  ElementTable table;
  std::string mass;
  bool additionalElements = false;
  std::array<std::string, kAdditionalElementCount> counts;
  bool nitrogenRule = false;
  std::string results;
};

}  // namespace peakwright
