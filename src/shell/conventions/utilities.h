#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"

#include <QString>

class QWidget;

namespace shell {

// Opens a file with the application registered for it. A failure is a run-time error with the source
// "Quend Swith Shell".
void Open_Document(const QString& file, const foundation::Installation& installation,
                   desktop::Platform& platform);

QString Get_Short_Path(const QString& path, desktop::Platform& platform);
int Shell_Open(const QString& file, const QString& folder, desktop::Platform& platform);

// Plays a wave file to its end; says nothing if it is missing.
void Play_Sound(const QString& file, desktop::Platform& platform);
void Play_Click(const foundation::Installation& installation, desktop::Platform& platform);

// The version text that a key of the registry holds; empty if it holds none.
QString Read_Flash_Version(const QString& key, desktop::Platform& platform);

void Center_Control(QWidget& form);

} // namespace shell
