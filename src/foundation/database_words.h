#pragma once

#include "foundation/school_look.h"

namespace foundation {

// What a file that the user has chosen turns out to be, in one or two sentences.
QString In_Words_Of_A_Choice(const School_Look& look);

} // namespace foundation
