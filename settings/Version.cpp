#include "diag/Output.h"
#include "diag/Text.h"
#include "engine/library/vextorin9.h"
#include "settings/AppSettings.h"

namespace Settings {
namespace {

std::string LibraryVersion() {
  int major = 0;
  int minor = 0;
  int patch = 0;
  int revision = 0;
  char buildDate[64] = "";
  BCGetVersionA(&major, &minor, &patch, &revision, buildDate, sizeof buildDate - 1);
  return Diag::Text(major, '.', minor, '.', patch, ", Rev. ", revision, ", Build date ",
                    static_cast<const char*>(buildDate));
}

}  // namespace

void AppSettings::printVersion() const {
  const std::string text =
      Diag::Text("Vextorin Version " VEXTORIN_VERSION ", Rev. ", VEXTORIN_REVISION,
                 ", Build date " VEXTORIN_BUILD_DATE "\nVextorin Library Version ",
                 LibraryVersion(), "\nCompilation options: --enable-libvextorin \n\n");
  Diag::PrintText(text);
}

}  // namespace Settings
