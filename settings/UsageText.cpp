#include "settings/UsageText.h"

namespace Settings {

// A fixed text: scripts compare it whole.
constexpr std::string_view kUsageText =
    R"(Usage: vextorin job user title copies options [filename]

  job      - The numeric job ID for the job being printed.
  user     - The name of the user that sent the job (the IPP
             originating-user-name attribute).
  title    - The title of the document (the IPP job-name attribute).
  copies   - The numeric value specified by the IPP number-copies attribute.
  options  - String representations of the job template attributes, separated by
             spaces. Boolean attributes are provided as "name" for true values
             and "noname" for false values. All other attributes are provided as
             "name=value" for single-valued attributes and
             "name=value1,value2,...,valueN" for set attributes.
  printer  - The name of the printer queue (normally this is the name of the
             program being run).
  filename - The request file.

The filename argument is only provided to the first filter in the chain. All
filters must be prepared to read the print file from the standard input when the
filename argument is omitted.
)";
static_assert(kUsageText.size() == 1066);

}  // namespace Settings
