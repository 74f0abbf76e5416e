#pragma once

#include "library/symbology/QrMatrix.h"

namespace Library {

// What a masked symbol, its format information included, has of features that hinder a reader
// (ISO/IEC 18004:2015, 7.8.3.1): the mask with the fewest points is the best.
//
//   N1  runs of one colour:   3 for five modules in a row or column, 1 for each further one
//   N2  areas of one colour:  3 for every 2 x 2 modules, which may overlap
//   N3  finders where none is: 40 for 1:1:3:1:1 modules, dark first, with four light modules in
//       front or behind; the quiet zone is light
//   N4  more of one colour:   10 for each 5 % that the dark modules are away from 50 %
//
// REQUIRES: the matrix is square.
int QrPenalty(const QrMatrix& matrix);

}  // namespace Library
