#pragma once

#include "library/layout/Drawing.h"

namespace Library {

void Move(Drawing& drawing, std::int32_t x, std::int32_t y);

}  // namespace Library
