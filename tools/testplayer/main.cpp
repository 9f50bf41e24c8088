#include "testplayer/command_line.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>

#ifdef _WIN32
#include <atomic>
#include <memory>
#include <thread>
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
static void Read_To_The_End(HANDLE input) {
    char bytes[64];
    DWORD read = 1;
    while (read > 0 && ReadFile(input, bytes, sizeof bytes, &read, nullptr)) {
    }
}

static test_player::Pause Pause_That_A_Signal_Ends() {
    const auto over = std::make_shared<std::atomic<bool>>(false);
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    if (GetFileType(input) == FILE_TYPE_PIPE)
        std::thread([over, input] {
            Read_To_The_End(input);
            *over = true;
        }).detach();
    return [over](int milliseconds) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        return !*over;
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
