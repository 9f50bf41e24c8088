#include "shell/conventions/utilities.h"

#include "platform/basics/run_time_error.h"

#include <QScreen>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr int By_Result = 0;

struct Opening_Error {
    int result;
    int number;
    QString description;
};

const Opening_Error& Error_For(int result) {
    using namespace basics::errors;
    static const Opening_Error opening_errors[] = {
        {0, Out_Of_Memory, u"Out of memory"_s},
        {2, File_Not_Found, u"File not found (trying to load Software User Guide)"_s},
        {3, Path_Not_Found, u"Path not found"_s},
        {5, File_Access_Error, u"Path/file access error"_s},
        {8, Out_Of_Memory, u"Out of memory"_s},
        {11, By_Result, u"The executable file is invalid or corrupt"_s},
        {26, File_Access_Error, u"A sharing violation occurred."_s},
        {27, By_Result, u"This file type does not have a valid file association."_s},
        {28, Application_Timed_Out,
         u"The file could not be opened due to time out. Please try again in a moment."_s},
        {29, Application_Refused,
         u"The file could not be opened because the DDE transaction failed. Please try again in a moment."_s},
        {30, Application_Refused,
         u"The file could not be opened because the target application is busy. Please try again in a moment."_s},
        {31, By_Result, u"No application is associated with this file type."_s},
        {32, Library_Not_Found, u"The specified dynamic-link library was not found."_s},
    };
    static const Opening_Error any_other{
        -1, By_Result, u"An error occurred occurred whilst trying to open the selected file."_s};
    for (const Opening_Error& error : opening_errors)
        if (error.result == result) return error;
    return any_other;
}

} // namespace

QString Get_Short_Path(const QString& path, desktop::Platform& platform) {
    return platform.documents.Short_Path(path);
}

int Shell_Open(const QString& file, const QString& folder, desktop::Platform& platform) {
    return platform.documents.Shell_Open(file, folder);
}

void Open_Document(const QString& file, const foundation::Installation& installation,
                   desktop::Platform& platform) {
    constexpr int last_failure = 32;
    const QString folder = Get_Short_Path(installation.App_Path + u"\\system\\"_s, platform);
    const int result = Shell_Open(file, folder, platform);
    if (result > last_failure || result < 0) return;
    const Opening_Error& error = Error_For(result);
    const int number = error.number == By_Result ? result + basics::errors::First_Own_Error : error.number;
    throw basics::Run_Time_Error(number, u"Quend Swith Shell"_s, error.description);
}

QString Read_Flash_Version(const QString& key, desktop::Platform& platform) {
    constexpr int room = 1024;
    quintptr handle = 0;
    if (platform.registry.Create_Key(key, desktop::Registry::Read_Access, handle) != 0) return u""_s;
    QByteArray buffer(room, '\0');
    int type = 0;
    platform.registry.Query_Value(handle, u"Version"_s, type, buffer);
    platform.registry.Close_Key(handle);
    if (type != desktop::Registry::String_Type) return u""_s;
    const qsizetype end = buffer.indexOf('\0');
    return QString::fromLocal8Bit(end < 0 ? buffer : buffer.left(end));
}

void Center_Control(QWidget& form) {
    const QRect screen = form.screen()->geometry();
    form.move(screen.x() + screen.width() / 2 - form.width() / 2,
              screen.y() + screen.height() / 2 - form.height() / 2);
}

void Play_Sound(const QString& file, desktop::Platform& platform) {
    platform.sound.Play(file);
}

void Play_Click(const foundation::Installation& installation, desktop::Platform& platform) {
    Play_Sound(installation.App_Path + u"\\Sounds\\system\\miniklik.wav"_s, platform);
}

} // namespace shell
