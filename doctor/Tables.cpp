/// The mixer's own tables, row by row, against what the process has.
#include "doctor/Examination.h"

#include "doctor/HostMessages.h"
#include "doctor/Report.h"
#include "doctor/Text.h"
#include "doctor/Types.h"
#include "hooks/HostTables.h"
#include "platform/ios/Messages.h"

#include <algorithm>
#include <string>
#include <vector>

namespace panotra::doctor {

namespace {

/// What the process has of a row.
struct Finding {
    bool isThere = false;
    std::string type; ///< the runtime's code
};

/// Null: nothing.
Finding findingOf(const char* type)
{
    if (type == nullptr)
        return {};
    return { true, type };
}

std::string systemsOf(int since, int until)
{
    if (since == until)
        return joined({ " (iOS ", decimal(since), ")" });
    return joined({ " (iOS ", decimal(since), " to ", decimal(until), ")" });
}

class Table {
public:
    Table(int system, std::string_view heading)
        : m_system(system)
    {
        writeLine({ "" });
        writeLine({ heading });
    }

    /// "ok" and "absent" are as they should be on this system; the others are what we look for. What two rows call by
    /// one name differs by its type, so that a row of other systems is met only by its very type.
    void row(std::string_view name, std::string_view type, int since, int until, const Finding& finding)
    {
        const bool isExpected = m_system == 0 || (since <= m_system && m_system <= until);
        const bool isSame = finding.isThere && essenceOfType(finding.type) == essenceOfType(type);
        const std::string systems = systemsOf(since, until);
        ++m_count;
        if (isExpected && finding.isThere && !isTypeServed(type, finding.type)) {
            writeLine({ "  TYPE     ", name, " ", type, systems, ", here ", essenceOfType(finding.type) });
        } else if (isExpected && !finding.isThere) {
            writeLine({ "  MISSING  ", name, " ", type, systems });
        } else {
            ++m_wellCount;
            if (!isExpected && isSame)
                writeLine({ "  extra    ", name, " ", type, systems });
            else if (!isExpected)
                writeLine({ "  absent   ", name, " ", type, systems });
            else if (isSame)
                writeLine({ "  ok       ", name, " ", type });
            else
                writeLine({ "  ok       ", name, " ", type, ", here ", essenceOfType(finding.type) });
        }
    }

    ~Table() { writeLine({ "  ", decimal(m_wellCount), " of ", decimal(m_count), " as expected" }); }

private:
    int m_system;
    int m_count = 0;
    int m_wellCount = 0;
};

/// A class that some row names: expected wherever one of its rows is.
struct ClassRow {
    std::string_view name;
    bool isExpected;
};

void addClass(std::vector<ClassRow>& rows, std::string_view name, bool isExpected)
{
    const auto known = std::find_if(rows.begin(), rows.end(), [name](const ClassRow& row) { return row.name == name; });
    if (known == rows.end())
        rows.push_back({ name, isExpected });
    else
        known->isExpected = known->isExpected || isExpected;
}

std::vector<ClassRow> classRows(int system)
{
    std::vector<ClassRow> rows;
    const auto addAll = [&](const auto& table) {
        for (const auto& row : table)
            addClass(rows, row.className, system == 0 || (row.since <= system && system <= row.until));
    };
    addAll(hookedMethods);
    addAll(ios::messageRows);
    addAll(variableRows);
    return rows;
}

void examineClasses(int system)
{
    writeLine({ "" });
    writeLine({ "classes" });
    for (const ClassRow& row : classRows(system)) {
        const bool isThere = hasClass(std::string(row.name).c_str());
        writeLine({ isThere ? "  ok       " : row.isExpected ? "  MISSING  " : "  absent   ", row.name });
    }
}

std::string nameOfMethod(const char* className, const char* name, bool isOfClass)
{
    return joined({ isOfClass ? "+[" : "-[", className, " ", name, "]" });
}

} // namespace

void examineTables(int system)
{
    examineClasses(system);
    {
        Table table(system, "hooks");
        for (const HostMethod& row : hookedMethods) {
            table.row(nameOfMethod(row.className, row.method, false), row.type, row.since, row.until,
                findingOf(typeOfMethod(row.className, row.method, false)));
        }
    }
    {
        Table table(system, "messages");
        for (const ios::MessageRow& row : ios::messageRows) {
            table.row(nameOfMethod(row.className, row.method(), row.isToTheClass), row.type, row.since, row.until,
                findingOf(typeOfMethod(row.className, row.method(), row.isToTheClass)));
        }
    }
    Table table(system, "variables");
    for (const VariableRow& row : variableRows) {
        table.row(joined({ row.className, " ", row.name }), row.type, row.since, row.until,
            findingOf(typeOfVariable(row.className, row.name)));
    }
}

} // namespace panotra::doctor
