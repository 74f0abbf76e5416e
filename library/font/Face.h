// A font of the machine, for output languages that cannot name one: fontconfig finds the file,
// FreeType reads it. Both are loaded when the first text needs them.
#pragma once

#include <memory>
#include <string_view>

struct FT_FaceRec_;

namespace Library {

// FreeType's face, with Unicode as its character map; null where the machine has no font for the
// text, or lacks one of the libraries. A PostScript name, Helvetica where fontconfig knows no such
// font. It must not outlive the process's use of FreeType, which lasts to its end.
struct FaceCloser {
  void operator()(FT_FaceRec_* face) const;
};
using Face = std::unique_ptr<FT_FaceRec_, FaceCloser>;

Face OpenFace(std::string_view postScriptName);

}  // namespace Library
