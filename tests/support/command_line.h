#pragma once

#include "support/printing.h"

#include <QBuffer>
#include <QProcess>
#include <QTextStream>
#include <gtest/gtest.h>

namespace test_support {

// What a command-line tool wrote, and what it ended with.
struct Outcome {
    int status;
    QString output;
    QStringList errors; // a line each

    // Whatever is wrong ends a tool alike: a line under its own name, and nothing on the output.
    void Expect_Refusal(const QString& tool, const QString& told) const {
        EXPECT_EQ(status, 2);
        EXPECT_EQ(output, QString());
        ASSERT_EQ(errors.size(), 1) << errors.join(u'\n').toStdString();
        EXPECT_TRUE(errors[0].startsWith(tool + QLatin1StringView(": ")) && errors[0].contains(told))
            << errors[0].toStdString();
    }
};

inline QStringList Lines_Of_Errors(const QString& told) {
    return told.split(u'\n', Qt::SkipEmptyParts);
}

// `run` is given the tool's output and its stream of errors, and gives its status.
template<class Run>
Outcome Outcome_Of(Run run) {
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    QString told;
    QTextStream errors(&told);
    const int status = run(output, errors);
    return {status, QString::fromUtf8(output.data()), Lines_Of_Errors(told)};
}

// Of a tool in a process of its own, once that has ended.
inline Outcome End_Of(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            Lines_Of_Errors(QString::fromUtf8(process.readAllStandardError()))};
}

} // namespace test_support
