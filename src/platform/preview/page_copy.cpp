#include "platform/preview/page_copy.h"

#include "platform/preview/painters.h"
#include "platform/preview/wmf_writer.h"

namespace preview {
namespace {

constexpr int Picture_Dots_Per_Inch = 192;

} // namespace

desktop::Page_Copy Copy_Of(const Drawing& drawing) {
    return {Wmf_Of(drawing), Svg_Of(drawing), Picture_Of(drawing, Picture_Dots_Per_Inch)};
}

} // namespace preview
