#pragma once

#include "platform/desktop/ports.h"

#include <QByteArray>
#include <QString>
#include <memory>

namespace desktop {

// Services that only one family of systems has under that name; elsewhere a plain stand-in serves.

// The short form of an existing path; empty if it doesn't exist.
QString System_Short_Path(const QString& path);

// Sets the path of a folder that the system keeps and gives 0; another result if it has none such.
int System_Folder(int number, QString& path);

// Adds a placeable metafile to what lies on the clipboard in the system's own format, the one that its word
// processors paste. Where the system has none, the MIME types beside it serve, and this does nothing.
void Add_Metafile_To_Clipboard(const QByteArray& wmf);

// A window that works for long isn't covered by the system's own picture of it, and so still shows what it
// paints.
void Keep_Windows_While_They_Work();

// A registry without any keys.
class No_Registry final : public Registry {
public:
    int Create_Key(const QString&, int, quintptr&) override { return Not_Found; }
    int Query_Value(quintptr, const QString&, int&, QByteArray&) override { return Not_Found; }
    void Close_Key(quintptr) override {}

private:
    static constexpr int Not_Found = 2;
};

// The registry; an empty one where the system has none.
std::unique_ptr<Registry> Make_System_Registry();

} // namespace desktop
