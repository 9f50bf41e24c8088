#include "testplayer/command_line.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>

#ifdef __linux__

#include <csignal>
#include <ctime>

// Signals that ask for the end are kept back, so that they meet the pauses and never a transaction.
static test_player::Pause Pause_That_A_Signal_Ends() {
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    return [ending](int milliseconds) {
        constexpr long ns_in_a_ms = 1'000'000;
        const timespec longest{milliseconds / 1000, milliseconds % 1000 * ns_in_a_ms};
        return sigtimedwait(&ending, nullptr, &longest) < 0;
    };
}

#else

static test_player::Pause Pause_That_A_Signal_Ends() {
    return [](int milliseconds) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        return true;
    };
}

#endif

int main(int argc, char** argv) {
    const test_player::Pause pause = Pause_That_A_Signal_Ends();
    const QCoreApplication application(argc, argv);
    QTextStream output(stdout);
    QTextStream errors(stderr);
    return test_player::Run_Command(application.arguments(), pause, output, errors);
}
