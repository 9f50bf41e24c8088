#pragma once

#include <QByteArray>
#include <QString>

namespace pupils {

// Text in the system's single-byte code page; Windows-1252 where none is set.
QString From_Code_Page(const QByteArray& bytes);

} // namespace pupils
