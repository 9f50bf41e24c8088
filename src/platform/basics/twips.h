#pragma once

namespace basics {

// The unit of everything on paper: 1440 to the inch, so 20 to the point, and 15 to the pixel of a screen with
// 96 dots to the inch.
inline constexpr int Twips_Per_Inch = 1440;
inline constexpr int Twips_Per_Point = 20;
inline constexpr int Twips_Per_Pixel = 15;

} // namespace basics
