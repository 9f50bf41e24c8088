#pragma once

#include <QProcess>
#include <QString>
#include <stdexcept>

namespace test_support {

// What another program says of a file that this project wrote; throws where it fails.
inline QString Told_By(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() + ": " + process.errorString().toStdString() +
                                 process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace test_support
