#include "ui/help_texts.h"

#include <string>
#include <string_view>

#include "engine/global_strings.h"
#include "ui/results.h"

namespace peakwright {
namespace {

constexpr std::string_view kVersion = "1.70 December 28, 2021";
constexpr std::string_view kSource = "https://" PEAKWRIGHT_UPDATE_HOST "/classes/programs/";
constexpr std::string_view kNotice =
    "  Copyright 2021-2026 by the Peakwright developers, Peakwright project";

// A paragraph is one long line, which the results area wraps.
constexpr std::string_view kInstructions =
    "\n\n"
    "               PEAKWRIGHT\n\n"
    "  Combinations of C, H, N, and O for a unit mass, exact mass of that composition, "
    "% relative intensity of M+1 and M+2 peaks, and number of rings and double bonds. "
    "(The latter indicates how many pairs of hydrogen atoms are missing from a saturated "
    "molecule).\n\n"
    "  Enter a mass, then run to see the results.\n"
    "  Apply the 'nitrogen rule' to only list parent peaks or rearrangement fragments.\n"
    "  Use 'additional elements' to include elements other than C, H, N, and O.\n"
    "  The print command in the file menu prints this text box.\n\n";

constexpr std::string_view kExplanation =
    "\n"
    "               PEAKWRIGHT\n\n"
    "  This program is designed to aid in the analysis of a mass spectrum "
    "(a list of molecular fragment weights and their relative intensities). "
    "For example, consider the mass spectrum of acetone, CH3COCH3.  There "
    "will be a parent peak at mass 58 since the molecular weight of acetone "
    "is 58.  Due to the isotopic abundance of C-13 and H-2, there will also "
    "be smaller peaks with relative intensity 3.49% at 59 and 0.25% at 60. "
    "These M+1 and M+2 isotope peaks allow distinguishing C3H6O from the "
    "other 11 possible valid formulas with molecular weight 58.\n"
    "  PEAKWRIGHT will accept input of a molecular mass and report "
    "all the chemically valid combinations of C, H, N, and O that have that "
    "molecular weight.  The program lists all combinations that satisfy "
    "Lewis dot theory for a molecule or simple fragment (CH4 is valid, CH3- "
    "is valid as a fragment, but -CH2- is not valid).  Invoking 'the nitrogen rule' limits "
    "the listing to whole molecule combinations.  The program also reports "
    "(under the heading of RDB) the number of rings and/or double bonds "
    "necessary to make the formula valid.  This is sometimes called the "
    "'index of hydrogen deficiency' since it is the number of pairs of "
    "hydrogen missing from a fully saturated molecule.  For example, "
    "acetone has RDB=1, cyclohexane has RDB=1, and benzene has RDB=4.  Half "
    "integral RDB values indicate a fragment such as CH3-.\n"
    "  Users also have the option of including set numbers of other atoms "
    "such as F, Cl, S, etc.  Most elements likely in organic compounds are "
    "available.  Additional elements may be added by the user.\n"
    "  Some expensive mass spectrometers measure masses to fractions of "
    "a unit.  Since isotopes do not have integral masses, a high resolution "
    "mass determination can also be used to distinguish between "
    "combinations of elements that add to a given unit mass.  The program "
    "lists exact masses with each formula.\n";

/// A text with each line end written as the global line end.
std::string WithLineEnds(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (character == '\n') {
      result += Module1::CR;
    } else {
      result += character;
    }
  }
  return result;
}

}  // namespace

void Module1::about0() {
  version = kVersion;
  websource = kSource;
  Print("  Version " + version + CR + std::string(kNotice) + WithLineEnds(kInstructions));
}

void Module1::about() { Print(WithLineEnds(kExplanation)); }

}  // namespace peakwright
