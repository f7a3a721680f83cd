/// The report of the doctor, a text file that is written line by line: what a crash interrupts is there up to that
/// line.
///
/// Main thread.
#pragma once

#include <initializer_list>
#include <string_view>

namespace panotra::doctor {

/// Where it lies, until the next one takes its place.
inline constexpr const char* reportPath = "/var/mobile/Documents/Panotra-report.txt";

/// Empties the file. False where it cannot be written; then lines go nowhere.
bool beginReport();
/// The parts, one after the other, and the end of a line.
void writeLine(std::initializer_list<std::string_view> parts);
void endReport();

} // namespace panotra::doctor
