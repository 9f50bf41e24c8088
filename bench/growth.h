#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>

namespace bench {

// The usual table, and behind it how each line grows from a small school to a full one: lines whose names
// differ in the number behind the last stroke only.
class Growth_Reporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Point {
        double work_ms = 0;
        double plain_ms = 0;
    };
    std::map<std::string, std::map<int, Point>> lines; // by name and number
};

} // namespace bench
