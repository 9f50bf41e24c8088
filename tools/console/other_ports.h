#pragma once

#include "platform/desktop/ports.h"

namespace console {

// For a program that nobody watches: what is to wait before its work begins at once.
class Hurried_Clock final : public desktop::Clock {
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    int Timer_Interval(int) const override { return 0; }
};

// What stands in for a program's ports; the others stay.
struct Other_Ports {
    desktop::Message_Boxes* boxes = nullptr;
    desktop::Clock* clock = nullptr;
    desktop::Sound* sound = nullptr;
    desktop::Processes* processes = nullptr;
    desktop::Ini_Files* ini = nullptr;
    desktop::Files* files = nullptr;
    desktop::Special_Folders* folders = nullptr;
    desktop::Modal_Dialogs* dialogs = nullptr;
    desktop::File_Dialogs* file_dialogs = nullptr;
    desktop::User_Settings* settings = nullptr;
};

inline desktop::Platform With(const Other_Ports& others, desktop::Platform& ports) {
    const auto first = [](auto* other, auto& port) -> auto& {
        return other ? *other : port;
    };
    return {first(others.boxes, ports.boxes),
            ports.pointer,
            first(others.clock, ports.clock),
            first(others.sound, ports.sound),
            ports.documents,
            first(others.processes, ports.processes),
            first(others.ini, ports.ini),
            first(others.files, ports.files),
            first(others.folders, ports.folders),
            first(others.dialogs, ports.dialogs),
            first(others.file_dialogs, ports.file_dialogs),
            ports.input_box,
            ports.random,
            ports.printers,
            ports.clipboard,
            ports.registry,
            first(others.settings, ports.settings)};
}

} // namespace console
