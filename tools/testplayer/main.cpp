#include "testplayer/command_line.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#endif

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

#elif defined(_WIN32)

// Who started it ends it by closing the pipe to its standard input: a signal would meet it anywhere.
static test_player::Pause Pause_That_A_Signal_Ends() {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    const bool is_a_pipe = GetFileType(input) == FILE_TYPE_PIPE;
    return [input, is_a_pipe](int milliseconds) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        return !is_a_pipe || PeekNamedPipe(input, nullptr, 0, nullptr, nullptr, nullptr);
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
