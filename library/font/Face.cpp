#include "library/font/Face.h"

#include "library/LoadedLibrary.h"
#include "library/font/FreeType.h"

#include <fontconfig/fontconfig.h>

#include <string>

namespace Library {
namespace {

[[gnu::used, gnu::section(".note.dlopen")]] alignas(4) constexpr auto kNote = NoteOf(
    R"([{"soname":[")" VEXTORIN_FREETYPE_SONAME R"("],"priority":"recommended",)"
    R"("description":"text in bitmaps and PDF fragments"},)"
    R"({"soname":[")" VEXTORIN_FONTCONFIG_SONAME R"("],"priority":"recommended",)"
    R"("description":"text in bitmaps and PDF fragments"}])");

struct Fontconfig {
  decltype(&FcPatternCreate) createPattern;
  decltype(&FcPatternDestroy) destroyPattern;
  decltype(&FcPatternAddString) addString;
  decltype(&FcPatternAddInteger) addInteger;
  decltype(&FcPatternAddBool) addBool;
  decltype(&FcPatternGetString) getString;
  decltype(&FcPatternGetInteger) getInteger;
  decltype(&FcConfigSubstitute) substitute;
  decltype(&FcDefaultSubstitute) fillDefaults;
  decltype(&FcFontMatch) match;
};

Fontconfig LoadFontconfig() {
  const LoadedLibrary library(VEXTORIN_FONTCONFIG_SONAME);
  return {library.find<decltype(Fontconfig::createPattern)>("FcPatternCreate"),
          library.find<decltype(Fontconfig::destroyPattern)>("FcPatternDestroy"),
          library.find<decltype(Fontconfig::addString)>("FcPatternAddString"),
          library.find<decltype(Fontconfig::addInteger)>("FcPatternAddInteger"),
          library.find<decltype(Fontconfig::addBool)>("FcPatternAddBool"),
          library.find<decltype(Fontconfig::getString)>("FcPatternGetString"),
          library.find<decltype(Fontconfig::getInteger)>("FcPatternGetInteger"),
          library.find<decltype(Fontconfig::substitute)>("FcConfigSubstitute"),
          library.find<decltype(Fontconfig::fillDefaults)>("FcDefaultSubstitute"),
          library.find<decltype(Fontconfig::match)>("FcFontMatch")};
}

const Fontconfig& LoadedFontconfig() {
  static const Fontconfig fontconfig = LoadFontconfig();
  return fontconfig;
}

const FcChar8* AsFcText(const std::string& text) {
  return reinterpret_cast<const FcChar8*>(text.c_str());
}

bool Holds(std::string_view name, std::string_view word) {
  return name.find(word) != std::string_view::npos;
}

struct FontFile {
  std::string path;
  int index = 0;  // of the face in the file
};

class Pattern {
 public:
  explicit Pattern(const Fontconfig& loaded, FcPattern* taken)
      : fontconfig(loaded), pattern(taken) {
    if (pattern == nullptr) throw Error(BC_E_OUTOFMEMORY);
  }
  ~Pattern() { fontconfig.destroyPattern(pattern); }
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;
  operator FcPattern*() const { return pattern; }

 private:
  const Fontconfig& fontconfig;
  FcPattern* pattern;
};

// Empty where fontconfig knows no font at all.
FontFile FindFontFile(std::string_view postScriptName) {
  const Fontconfig& fc = LoadedFontconfig();
  const Pattern wanted(fc, fc.createPattern());
  const std::string family(postScriptName.substr(0, postScriptName.find('-')));
  const std::string_view style = postScriptName.substr(family.size());
  fc.addString(wanted, FC_FAMILY, AsFcText(family));
  fc.addString(wanted, FC_FAMILY, AsFcText("Helvetica"));
  fc.addBool(wanted, FC_SCALABLE, FcTrue);
  fc.addInteger(wanted, FC_WEIGHT, Holds(style, "Bold") ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  const bool slanted = Holds(style, "Oblique") || Holds(style, "Italic");
  fc.addInteger(wanted, FC_SLANT, slanted ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  fc.substitute(nullptr, wanted, FcMatchPattern);
  fc.fillDefaults(wanted);

  FcResult result = FcResultNoMatch;
  FcPattern* const match = fc.match(nullptr, wanted, &result);
  if (match == nullptr) return {};
  const Pattern found(fc, match);
  FontFile file;
  FcChar8* path = nullptr;
  if (fc.getString(found, FC_FILE, 0, &path) != FcResultMatch) return {};
  file.path = reinterpret_cast<const char*>(path);
  fc.getInteger(found, FC_INDEX, 0, &file.index);
  return file;
}

FreeType LoadFreeType() {
  const LoadedLibrary library(VEXTORIN_FREETYPE_SONAME);
  FreeType loaded = {library.find<decltype(FreeType::newFace)>("FT_New_Face"),
                     library.find<decltype(FreeType::doneFace)>("FT_Done_Face"),
                     library.find<decltype(FreeType::loadChar)>("FT_Load_Char"),
                     library.find<decltype(FreeType::decompose)>("FT_Outline_Decompose"), nullptr};
  const auto initialize = library.find<decltype(&FT_Init_FreeType)>("FT_Init_FreeType");
  if (initialize(&loaded.library) != 0) throw Error(BC_E_OUTOFMEMORY);
  return loaded;
}

}  // namespace

const FreeType& LoadedFreeType() {
  static const FreeType freeType = LoadFreeType();
  return freeType;
}

void FaceCloser::operator()(FT_FaceRec_* face) const {
  LoadedFreeType().doneFace(face);
}

Face OpenFace(std::string_view postScriptName) {
  try {
    const FontFile file = FindFontFile(postScriptName);
    const FreeType& freeType = LoadedFreeType();
    FT_Face face = nullptr;
    if (freeType.newFace(freeType.library, file.path.c_str(), file.index, &face) != 0) return {};
    Face opened(face);
    if (!FT_IS_SCALABLE(face)) return {};  // a font of dots has no outlines
    return opened;
  } catch (const Error& error) {
    if (error.code == BC_E_MODULENOTFOUND) return {};
    throw;
  }
}

}  // namespace Library
