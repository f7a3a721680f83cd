/// How the processes of a search share its work and hand over what they found.
#pragma once

#include <sys/mman.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace panotra::testing {

/// A happening, or, from their count on, a pause.
using Letter = std::uint8_t;

/// From one state to another by one letter.
struct Step {
    std::uint64_t key;
    std::uint32_t from;
    Letter letter;
    std::uint8_t allowances; ///< a bit each, of those that are seen when this state comes to rest
    bool isViolation;
};

/// A number that processes count on together.
class SharedCounter {
public:
    SharedCounter()
        : m_memory(mmap(nullptr, sizeof(Number), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
    {
        if (m_memory == MAP_FAILED)
            std::abort();
    }
    ~SharedCounter() { munmap(m_memory, sizeof(Number)); }
    SharedCounter(const SharedCounter&) = delete;
    SharedCounter& operator=(const SharedCounter&) = delete;

    std::size_t take() const { return number()++; }
    std::size_t taken() const { return number(); }

private:
    using Number = std::atomic<std::size_t>;
    Number& number() const { return *static_cast<Number*>(m_memory); }

    void* m_memory; ///< zero at first
};

/// What a process found, through a file that is in no folder.
class Report {
public:
    Report()
        : m_file(std::tmpfile())
    {
        if (m_file == nullptr)
            std::abort();
    }
    ~Report() { std::fclose(m_file); }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    void write(std::size_t transitions, const std::vector<Step>& found) const
    {
        std::fwrite(&transitions, sizeof transitions, 1, m_file);
        std::fwrite(found.data(), sizeof(Step), found.size(), m_file);
        std::fflush(m_file);
    }

    /// Adds to the number of transitions.
    std::vector<Step> read(std::size_t& transitions) const
    {
        std::rewind(m_file);
        std::size_t own = 0;
        if (std::fread(&own, sizeof own, 1, m_file) != 1)
            std::abort();
        transitions += own;
        std::vector<Step> steps;
        for (Step step {}; std::fread(&step, sizeof step, 1, m_file) == 1;)
            steps.push_back(step);
        return steps;
    }

private:
    std::FILE* m_file;
};

} // namespace panotra::testing
