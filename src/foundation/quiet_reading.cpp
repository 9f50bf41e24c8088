#include "foundation/quiet_reading.h"

#include <utility>

namespace foundation {

// What follows upon the first failure only tells that there was one.
desktop::Answer Quiet_Reading::Boxes::Ask(desktop::Box_Style, const QString&, const QString& text) {
    if (first.isEmpty()) first = text.section(u'\r', -1);
    return desktop::Answer::Ignore;
}

Quiet_Reading::Quiet_Reading(desktop::Platform& outside)
    : ports{boxes,
            outside.pointer,
            outside.clock,
            outside.sound,
            outside.documents,
            outside.processes,
            outside.ini,
            outside.files,
            outside.folders,
            outside.dialogs,
            outside.file_dialogs,
            outside.input_box,
            outside.random,
            outside.printers,
            outside.clipboard,
            outside.registry,
            outside.settings},
      holder(ports) {
}

QString Quiet_Reading::Why(const std::exception& met) {
    holder.ado_Close();
    const QString kept = std::exchange(boxes.first, {});
    return kept.isEmpty() ? QString::fromUtf8(met.what()) : kept;
}

} // namespace foundation
