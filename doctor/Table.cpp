/// Rows with their verdicts.
#include "doctor/Table.h"

#include "doctor/Report.h"
#include "doctor/Text.h"

namespace panotra::doctor {

namespace {

std::string systemsOf(int since, int until)
{
    if (since == until)
        return joined({ " (iOS ", decimal(since), ")" });
    return joined({ " (iOS ", decimal(since), " to ", decimal(until), ")" });
}

} // namespace

Table::Table(int system, std::string_view heading)
    : m_system(system)
{
    writeLine({ "" });
    writeLine({ heading });
}

Table::~Table()
{
    writeLine({ "  ", decimal(m_wellCount), " of ", decimal(m_count), " as expected" });
}

void Table::row(std::string_view name, std::string_view type, int since, int until, const Finding& finding)
{
    const bool isDue = isExpected(m_system, since, until);
    const std::string systems = systemsOf(since, until);
    ++m_count;
    if (isDue && finding.isThere && !finding.isServed) {
        writeLine({ "  TYPE     ", name, " ", type, systems, ", here ", finding.type });
    } else if (isDue && !finding.isThere) {
        writeLine({ "  MISSING  ", name, " ", type, systems });
    } else {
        ++m_wellCount;
        if (!isDue)
            writeLine({ finding.isSame ? "  extra    " : "  absent   ", name, " ", type, systems });
        else if (finding.isSame)
            writeLine({ "  ok       ", name, " ", type });
        else
            writeLine({ "  ok       ", name, " ", type, ", here ", finding.type });
    }
}

} // namespace panotra::doctor
