/// A table of the report: a row for each of the mixer's, with what the process has of it.
///
/// Main thread.
#pragma once

#include <string>
#include <string_view>

namespace panotra::doctor {

/// What the process has of a row.
struct Finding {
    bool isThere = false;
    bool isServed = false; ///< the mixer can make use of it
    bool isSame = false; ///< it is just what the row says
    std::string type; ///< of what is there
};

class Table {
public:
    /// `system` tells which rows to expect; 0: all of them.
    Table(int system, std::string_view heading);
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;
    /// Writes how many rows are as expected.
    ~Table();

    /// "ok" and "absent" are as they should be on this system; the others are what we look for. What two rows call by
    /// one name differs by its type, so that a row of other systems is met only by its very type.
    void row(std::string_view name, std::string_view type, int since, int until, const Finding& finding);

private:
    int m_system;
    int m_count = 0;
    int m_wellCount = 0;
};

/// Whether a row is expected on the system.
inline bool isExpected(int system, int since, int until)
{
    return system == 0 || (since <= system && system <= until);
}

} // namespace panotra::doctor
