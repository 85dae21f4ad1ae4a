// Sizes of paper, by the numbers that Visual Basic's printer object gives them. Lengths are twips.
#pragma once

#include <cstdint>
#include <span>

#include "Text.h"

namespace Paper {

enum PaperSize : std::int32_t {
  PaperLetter = 1,
  PaperTabloid = 3,
  PaperLegal = 5,
  PaperExecutive = 7,
  PaperA3 = 8,
  PaperA4 = 9,
  PaperA5 = 11,
  PaperB4 = 12,
  PaperB5 = 13
};

enum Orientation : std::int32_t { Portrait = 1, Landscape = 2 };

/// A size that can be chosen; width and height as it stands upright.
struct PaperForm {
  std::int32_t eSize;
  TextView sName;          ///< "A4", for people
  const char* sMediaName;  ///< "iso_a4_210x297mm", for print queues
  std::int32_t lWidth, lHeight;
};

/// All sizes that are known, in the order of their numbers.
std::span<const PaperForm> PaperForms();
/// Failure 380 for a number that isn't among them.
const PaperForm& PaperFormOf(std::int32_t eSize);
/// What people use in the user's country: Letter or A4.
std::int32_t UsualPaperSize();

/// One page of a document: width and height as it is read.
struct Sheet {
  std::int32_t ePaperSize;
  std::int32_t eOrientation;
  std::int32_t lWidth, lHeight;
};
/// Failure 380 for an unknown size or orientation.
Sheet MakeSheet(std::int32_t ePaperSize, std::int32_t eOrientation);

/// The strips along the edges of a page that a device can't print on.
struct Strips {
  std::int32_t lLeft = 0, lTop = 0, lRight = 0, lBottom = 0;
};

}  // namespace Paper
