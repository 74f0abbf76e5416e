// FreeType, loaded when the first text needs it.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace Library {

struct FreeType {
  decltype(&FT_New_Face) newFace;
  decltype(&FT_Done_Face) doneFace;
  decltype(&FT_Load_Char) loadChar;
  decltype(&FT_Outline_Decompose) decompose;
  FT_Library library;
};

// Throws Error with BC_E_MODULENOTFOUND where there is none.
const FreeType& LoadedFreeType();

}  // namespace Library
