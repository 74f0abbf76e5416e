// The same ink in fewer areas, which may overlap.
#pragma once

#include "library/writer/PclPage.h"

#include <vector>

namespace Library {

std::vector<PclPage::Area> Covering(const std::vector<PclPage::Area>& areas);

}  // namespace Library
