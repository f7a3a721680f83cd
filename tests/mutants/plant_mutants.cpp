/// Plants mutants into a copy of the sources.
///
///     plant_mutants FROM TO LIST ROOM... -- SOURCE... -- COMPILER_OPTION...
///
/// Reads the sources, files of the folder FROM, with the compiler's options, and writes every file of the rooms that
/// they are made of to the folder TO, with all its mutants. LIST becomes the list of these, one a line, of fields
/// between tabs:
///
///     number, room, file, line, function, kind, ORIGINAL => CHANGED, which of several alike in the function, whether
///     the compiler may be the only one who calls the function
///
/// Status 1: a source does not compile, or a file cannot be read or written.
#include "tests/mutants/Planter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <span>

namespace {

using namespace panotra::mutants;
namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& message)
{
    std::fprintf(stderr, "plant_mutants: %s\n", message.c_str());
    std::exit(EXIT_FAILURE);
}

std::optional<std::string> read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// What is the same is left alone, so that it is not compiled again.
void write(const fs::path& file, const std::string& text)
{
    if (read(file) == text)
        return;
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        fail("cannot write " + file.string());
}

struct Job {
    fs::path from;
    fs::path to;
    std::vector<std::string> rooms;
    std::map<std::string, Planter> files; ///< by the name within `from`, those of sources that were read
    std::vector<std::string> finished; ///< in order
    int next = 0;
};

std::optional<std::string> roomOf(const Job& job, const std::string& file)
{
    for (const std::string& room : job.rooms) {
        if (file.starts_with(room + '/'))
            return room;
    }
    return std::nullopt;
}

/// Functions of files of the rooms, in the order of the text.
void collect(CXCursor cursor, const Job& job, std::map<std::string, std::vector<CXCursor>>& functions)
{
    for (const CXCursor child : childrenOf(cursor)) {
        const Place place = placeOf(child);
        if (place.file.empty())
            continue;
        const std::string file = fs::path(place.file).lexically_relative(job.from).lexically_normal().string();
        if (!roomOf(job, file))
            continue;
        switch (clang_getCursorKind(child)) {
        case CXCursor_FunctionDecl:
        case CXCursor_CXXMethod:
        case CXCursor_Constructor:
        case CXCursor_Destructor:
        case CXCursor_ConversionFunction:
        case CXCursor_FunctionTemplate:
            if (clang_isCursorDefinition(child) != 0)
                functions[file].push_back(child);
            break;
        default:
            collect(child, job, functions);
        }
    }
}

void plant(Job& job, CXIndex index, const fs::path& source, std::span<const char* const> options)
{
    CXTranslationUnit unit = nullptr;
    const auto error = clang_parseTranslationUnit2(
        index, source.c_str(), options.data(), static_cast<int>(options.size()), nullptr, 0, 0, &unit);
    if (error != CXError_Success)
        fail("cannot read " + source.string());
    for (unsigned i = 0; i < clang_getNumDiagnostics(unit); ++i) {
        const CXDiagnostic diagnostic = clang_getDiagnostic(unit, i);
        if (clang_getDiagnosticSeverity(diagnostic) >= CXDiagnostic_Error)
            fail(text(clang_formatDiagnostic(diagnostic, clang_defaultDiagnosticDisplayOptions())));
        clang_disposeDiagnostic(diagnostic);
    }
    std::map<std::string, std::vector<CXCursor>> functions;
    collect(clang_getTranslationUnitCursor(unit), job, functions);
    for (const auto& [file, found] : functions) {
        if (job.files.contains(file))
            continue;
        const auto original = read(job.from / file);
        if (!original)
            fail("cannot read " + file);
        Planter& planter = job.files.emplace(file, Planter(file, *original, job.next)).first->second;
        for (const CXCursor function : found)
            planter.plantInFunction(function);
        job.next += static_cast<int>(planter.mutants().size());
        job.finished.push_back(file);
    }
    clang_disposeTranslationUnit(unit);
}

void writeList(const Job& job, const fs::path& list)
{
    std::string lines;
    std::map<std::string, int> alike;
    for (const std::string& file : job.finished) {
        for (const Mutant& mutant : job.files.at(file).mutants()) {
            const std::string what = mutant.function + '\t' + mutant.kind + '\t' + mutant.change;
            const int ordinal = ++alike[file + '\t' + what];
            lines += std::to_string(mutant.number) + '\t' + *roomOf(job, file) + '\t' + file + '\t'
                + std::to_string(mutant.line) + '\t' + what + '\t' + std::to_string(ordinal) + '\t'
                + (mutant.isInConstexpr ? "constexpr" : "-") + '\n';
        }
    }
    write(list, lines);
}

/// Files of the rooms in which nothing was planted.
void copyTheRest(const Job& job)
{
    for (const std::string& room : job.rooms) {
        for (const auto& entry : fs::recursive_directory_iterator(job.from / room)) {
            const std::string file = entry.path().lexically_relative(job.from).string();
            if (entry.is_regular_file() && !job.files.contains(file))
                write(job.to / file, read(entry.path()).value_or(""));
        }
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const std::span<char*> all(arguments, static_cast<std::size_t>(argumentCount));
    const auto isEnd = [](const char* argument) {
        return std::string_view(argument) == "--";
    };
    const auto firstEnd = std::find_if(all.begin(), all.end(), isEnd);
    const auto secondEnd = firstEnd == all.end() ? all.end() : std::find_if(firstEnd + 1, all.end(), isEnd);
    if (firstEnd - all.begin() < 5 || secondEnd == all.end()) {
        std::fprintf(stderr, "usage: plant_mutants FROM TO LIST ROOM... -- SOURCE... -- COMPILER_OPTION...\n");
        return EXIT_FAILURE;
    }
    Job job { fs::absolute(all[1]).lexically_normal(), fs::absolute(all[2]), { all.begin() + 4, firstEnd }, {}, {}, 0 };
    const std::vector<const char*> options(secondEnd + 1, all.end());
    const CXIndex index = clang_createIndex(0, 0);
    for (auto source = firstEnd + 1; source != secondEnd; ++source)
        plant(job, index, job.from / *source, options);
    clang_disposeIndex(index);
    for (const auto& [file, planter] : job.files)
        write(job.to / file, planter.planted());
    copyTheRest(job);
    writeList(job, all[3]);
    std::printf("%d mutants\n", job.next);
    return EXIT_SUCCESS;
}
