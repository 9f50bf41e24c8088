#pragma once

#include <QByteArray>
#include <QFile>
#include <stdexcept>

namespace test_support {

// A file's bytes past everything that the program does with it.
inline QByteArray Bytes_Of(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("no file");
}

inline void Write_Bytes(const QString& file, const QByteArray& bytes) {
    QFile opened(file);
    if (!opened.open(QIODevice::WriteOnly | QIODevice::Truncate) || opened.write(bytes) != bytes.size())
        throw std::runtime_error("can't write " + file.toStdString());
}

} // namespace test_support
