#pragma once

#include "console/console_platform.h"
#include "console/other_ports.h"
#include "platform/desktop/disk_ports.h"

namespace set_up {

// Ports that read the disk as the program does, for finding out what it would find. Nobody is asked: what a
// box says is kept.
class Quiet_Ports {
public:
    desktop::Platform& Ports() { return ports; }
    QString Said() const { return text.simplified(); }

private:
    QString text;
    QTextStream errors{&text};
    console::Console_Platform console{{}, errors};
    desktop::Disk_Ports disk;
    desktop::Platform ports = console::With(
        {.ini = disk.ini.get(), .files = disk.files.get(), .folders = disk.folders.get()}, console.Ports());
};

} // namespace set_up
