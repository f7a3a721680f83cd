/// Lines into a file, past every buffer of the process.
#include "doctor/Report.h"

#include "doctor/Text.h"

#include <fcntl.h>
#include <unistd.h>

namespace panotra::doctor {

namespace {

constexpr int closed = -1;
constinit int reportFile = closed;

/// Whoever asked for the report reads it under another account.
constexpr unsigned short readableByAll = 0644;

} // namespace

bool beginReport()
{
    endReport();
    reportFile = creat(reportPath, readableByAll);
    return reportFile != closed;
}

void writeLine(std::initializer_list<std::string_view> parts)
{
    std::string line = joined(parts);
    line += '\n';
    std::string_view left = line;
    while (reportFile != closed && !left.empty()) {
        const auto written = write(reportFile, left.data(), left.size());
        if (written <= 0)
            endReport();
        else
            left.remove_prefix(static_cast<std::size_t>(written));
    }
}

void endReport()
{
    if (reportFile == closed)
        return;
    fsync(reportFile);
    close(reportFile);
    reportFile = closed;
}

} // namespace panotra::doctor
