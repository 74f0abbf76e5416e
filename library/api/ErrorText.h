#pragma once

#include "engine/library/vextorin9.h"

#include <string_view>

namespace Library {

// Callers append to a text, without a separator, what an object's queries tell of the error ("'x'
// at position 3"), and then a full stop. So the text ends in a blank where there is something to
// append, and only there: that is a matter of the calling thread's last failure, which has to be
// noted.
void NoteFailure(BCResult code, bool hasDetail) noexcept;

// At most 70 characters, for any code.
std::string_view ErrorText(BCResult code);

}  // namespace Library
