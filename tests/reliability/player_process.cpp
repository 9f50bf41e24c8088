#include "reliability/player_process.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {

int Number_From_Environment(const char* name, int otherwise) {
    bool is_number = false;
    const int number = qEnvironmentVariableIntValue(name, &is_number);
    return is_number && number > 0 ? number : otherwise;
}

QString Program_Of_Another_System(const char* variable, const char* own) {
    return qEnvironmentVariable(variable, QString::fromUtf8(own));
}

Player_Process::Player_Process(const QString& database, const QStringList& codes, const QString& rate,
                               const QString& journal, const QString& program)
    : codes(codes), journal(journal) {
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program,
                  QStringList{database, u"--rate"_s, rate, u"--journal"_s, journal, u"--code"_s} + codes);
    if (!process.waitForStarted()) throw std::runtime_error("the test player doesn't start");
}

Player_Process::~Player_Process() {
    if (process.state() == QProcess::NotRunning) return;
    process.kill();
    process.waitForFinished();
}

void Player_Process::Stop() {
    constexpr int longest_wait_ms = 20'000;
    process.closeWriteChannel(); // which ends one of another system, where a signal would tear it down
    if (process.program() == QStringLiteral(MEVO_TESTPLAYER)) process.terminate();
    if (!process.waitForFinished(longest_wait_ms)) throw std::runtime_error("the test player doesn't stop");
}

} // namespace test_support
