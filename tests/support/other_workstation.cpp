#include "support/other_workstation.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {
Other_Workstation::Other_Workstation(const QString& file) {
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(MEVO_OTHER_WORKSTATION), {file});
    if (!process.waitForStarted()) throw std::runtime_error("the other workstation doesn't start");
}

void Other_Workstation::Tell(const QString& line) {
    process.write(line.toUtf8() + '\n');
    process.waitForBytesWritten();
}

void Other_Workstation::Run(const QString& sql) {
    constexpr int longest_wait_ms = 20'000;
    Tell(sql);
    while (!process.canReadLine())
        if (!process.waitForReadyRead(longest_wait_ms))
            throw std::runtime_error("the other workstation doesn't answer");
    const QByteArray answer = process.readLine().trimmed();
    if (answer != "done") throw std::runtime_error(sql.toStdString() + ": " + answer.toStdString());
}

void Other_Workstation::Hold_Exclusively() {
    Run(u"BEGIN EXCLUSIVE"_s);
    Run(u"UPDATE Mevo_Pupils SET Surname = 'Written'"_s);
}

void Other_Workstation::Commit_After(int milliseconds) {
    Tell(u"sleep "_s + QString::number(milliseconds));
    Tell(u"COMMIT"_s);
}

void Other_Workstation::Rename_All_For_Ever() {
    Tell(u"rename"_s);
}

void Other_Workstation::Leave_Abruptly() {
    if (process.state() == QProcess::NotRunning) return;
    process.kill();
    process.waitForFinished();
}

void Crash_In_A_Transaction(const QString& file) {
    Other_Workstation writer(file);
    writer.Run(u"PRAGMA cache_size = 2"_s); // so that pages go to the file before the commit
    writer.Run(u"BEGIN"_s);
    writer.Run(u"UPDATE Mevo_Pupils SET Surname = 'Torn'"_s);
    writer.Run(u"UPDATE Yoon_TimeNorms SET Centile = 7"_s);
    writer.Run(
        u"INSERT INTO Mevo_Groups (Group_Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
        "FROM n WHERE i < 5000) SELECT 'Torn' FROM n"_s);
    writer.Leave_Abruptly();
}

} // namespace test_support
