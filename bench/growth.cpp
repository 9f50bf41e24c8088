#include "growth.h"

#include <charconv>
#include <iomanip>

namespace bench {

void Growth_Reporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        const std::size_t stroke = name.rfind('/');
        if (stroke == std::string::npos || run.error_occurred) continue;
        int number = 0;
        std::from_chars(name.data() + stroke + 1, name.data() + name.size(), number);
        const auto plain = run.counters.find("plain_ms");
        if (number == 0 || plain == run.counters.end()) continue;
        const double ratio = run.counters.at("ratio");
        lines[name.substr(0, stroke)][number] = {ratio * plain->second, plain->second};
    }
}

void Growth_Reporter::Finalize() {
    std::ostream& out = GetOutputStream();
    out << "\nFrom a small school to a full one: milliseconds, and how many times as long\n" << std::fixed;
    for (const auto& [name, points] : lines) {
        if (points.size() < 2) continue;
        const auto& [small, least] = *points.begin();
        const auto& [full, most] = *points.rbegin();
        out << std::left << std::setw(32) << name << std::right << std::setprecision(2) << std::setw(6)
            << small << std::setw(10) << least.work_ms << std::setw(6) << full << std::setw(10)
            << most.work_ms << std::setprecision(1) << std::setw(8) << most.work_ms / least.work_ms
            << "   reference:" << std::setw(8) << most.plain_ms / least.plain_ms << '\n';
    }
}

} // namespace bench
