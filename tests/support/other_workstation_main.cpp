// The other end of test_support::Other_Workstation: runs the statements of its input on one connection and
// answers each with a line.

#include <chrono>
#include <iostream>
#include <sqlite3.h>
#include <string>
#include <thread>

int main(int argc, char** argv) {
    sqlite3* engine = nullptr;
    if (argc != 2 || sqlite3_open_v2(argv[1], &engine, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) return 1;
    sqlite3_busy_timeout(engine, 15'000);
    const std::string sleep = "sleep ";
    for (std::string line; std::getline(std::cin, line);) {
        if (line.starts_with(sleep)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(line.substr(sleep.size()))));
            continue;
        }
        const int result = sqlite3_exec(engine, line.c_str(), nullptr, nullptr, nullptr);
        std::cout << (result == SQLITE_OK ? "done" : sqlite3_errmsg(engine)) << std::endl;
    }
    sqlite3_close(engine);
    return 0;
}
