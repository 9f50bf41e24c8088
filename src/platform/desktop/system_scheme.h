#pragma once

namespace desktop {

// Whether the account asks for light text on dark grounds. To be asked before the program sets a palette.
bool System_Is_Dark();

} // namespace desktop
