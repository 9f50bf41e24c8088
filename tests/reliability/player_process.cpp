#include "reliability/player_process.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {

int Number_From_Environment(const char* name, int otherwise) {
    bool is_number = false;
    const int number = qEnvironmentVariableIntValue(name, &is_number);
    return is_number && number > 0 ? number : otherwise;
}

Player_Process::Player_Process(const QString& database, const QStringList& codes, int rate,
                               const QString& journal)
    : codes(codes), journal(journal) {
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(MEVO_TESTPLAYER), QStringList{database, u"--rate"_s, QString::number(rate),
                                                               u"--journal"_s, journal, u"--code"_s} +
                                                       codes);
    if (!process.waitForStarted()) throw std::runtime_error("the test player doesn't start");
}

Player_Process::~Player_Process() {
    if (process.state() == QProcess::NotRunning) return;
    process.kill();
    process.waitForFinished();
}

void Player_Process::Stop() {
    constexpr int longest_wait_ms = 20'000;
    process.terminate();
    if (!process.waitForFinished(longest_wait_ms)) throw std::runtime_error("the test player doesn't stop");
}

} // namespace test_support
