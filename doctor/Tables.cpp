/// The mixer's own tables, row by row, against what the process has.
#include "doctor/Examination.h"

#include "doctor/HostMessages.h"
#include "doctor/Report.h"
#include "doctor/Table.h"
#include "doctor/Text.h"
#include "doctor/Types.h"
#include "hooks/HostTables.h"
#include "platform/ios/Messages.h"

#include <algorithm>
#include <string>
#include <vector>

namespace panotra::doctor {

namespace {

/// Of a method or a variable, by the runtime's type code. Null: there is none.
Finding findingOf(std::string_view ours, const char* found)
{
    if (found == nullptr)
        return {};
    const std::string essence = essenceOfType(found);
    return { true, isTypeServed(ours, found), essence == essenceOfType(ours), essence };
}

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
            addClass(rows, row.className, isExpected(system, row.since, row.until));
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
                findingOf(row.type, typeOfMethod(row.className, row.method, false)));
        }
    }
    {
        Table table(system, "messages");
        for (const ios::MessageRow& row : ios::messageRows) {
            table.row(nameOfMethod(row.className, row.method(), row.isToTheClass), row.type, row.since, row.until,
                findingOf(row.type, typeOfMethod(row.className, row.method(), row.isToTheClass)));
        }
    }
    Table table(system, "variables");
    for (const VariableRow& row : variableRows) {
        table.row(joined({ row.className, " ", row.name }), row.type, row.since, row.until,
            findingOf(row.type, typeOfVariable(row.className, row.name)));
    }
}

} // namespace panotra::doctor
