// The other end of test_support::Other_Workstation: runs the statements of its input on one connection and
// answers each with a line. "sleep N" waits N milliseconds; "rename" gives all pupils one new surname after
// another, until it is killed.

#include <chrono>
#include <iostream>
#include <sqlite3.h>
#include <string>
#include <thread>

static void Rename_All_For_Ever(sqlite3* engine) {
    for (int round = 1;; ++round) {
        const std::string sql = "UPDATE Mevo_Pupils SET Surname = 'Round " + std::to_string(round) + "'";
        if (sqlite3_exec(engine, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            std::cerr << sqlite3_errmsg(engine) << std::endl;
            return;
        }
    }
}

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
        if (line == "rename") Rename_All_For_Ever(engine);
        const int result = sqlite3_exec(engine, line.c_str(), nullptr, nullptr, nullptr);
        std::cout << (result == SQLITE_OK ? "done" : sqlite3_errmsg(engine)) << std::endl;
    }
    sqlite3_close(engine);
    return 0;
}
