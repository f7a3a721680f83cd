/// Files that are read whole and replaced whole: whoever looks finds the old bytes or the new ones.
#include "simulator/preferences/FileReplacement.h"

#include "simulator/preferences/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/time.h>

namespace panotra::preferences {

namespace fs = std::filesystem;

namespace {

std::string lastError()
{
    return std::strerror(errno);
}

/// Repeats a system call that a signal interrupted.
template <typename Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

fs::path folderOf(const fs::path& file)
{
    const fs::path folder = file.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

/// While it lives, a write beyond the allowed size of files fails, like one to a full disk, and does not end
/// the program by a signal.
class SizeLimitAsError {
public:
    SizeLimitAsError()
    {
        sigemptyset(&m_signal);
        sigaddset(&m_signal, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &m_signal, &m_previous);
    }
    SizeLimitAsError(const SizeLimitAsError&) = delete;
    SizeLimitAsError& operator=(const SizeLimitAsError&) = delete;
    ~SizeLimitAsError()
    {
        if (sigismember(&m_previous, SIGXFSZ) != 0)
            return;
        const timespec atOnce {};
        while (sigtimedwait(&m_signal, nullptr, &atOnce) > 0) { }
        pthread_sigmask(SIG_SETMASK, &m_previous, nullptr);
    }

private:
    sigset_t m_signal;
    sigset_t m_previous;
};

Failure writeAll(int file, std::string_view bytes)
{
    const SizeLimitAsError noSignal;
    while (!bytes.empty()) {
        const ssize_t written = uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (written <= 0)
            return written < 0 ? lastError() : std::strerror(EIO);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return std::nullopt;
}

Failure synchronizeToDisk(int file)
{
    // Some file systems cannot, and say so by EINVAL: there is nothing more to do there.
    const bool done = uninterrupted([&] { return ::fsync(file); }) == 0 || errno == EINVAL;
    return done ? Failure() : lastError();
}

/// The name of a file is on the disk when its folder is.
Failure synchronizeFolder(const fs::path& folder)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    const FileDescriptor opened(uninterrupted([&] { return ::open(folder.c_str(), flags); }));
    return opened.isOpen() ? synchronizeToDisk(opened.get()) : lastError();
}

/// Gives the new file what the old one had.
Failure inherit(int file, const struct stat& old)
{
    // Only the superuser may give files away; others become the owner of what they write. An owner whom this user's
    // namespace does not know is nobody to give it to.
    const bool keepsOwner = uninterrupted([&] { return ::fchown(file, old.st_uid, old.st_gid); }) == 0;
    if (!keepsOwner && errno != EPERM && errno != EINVAL)
        return lastError();
    const mode_t permissions = old.st_mode & (keepsOwner ? 07777 : 0777);
    return uninterrupted([&] { return ::fchmod(file, permissions); }) == 0 ? Failure() : lastError();
}

Failure writeBeside(const fs::path& file, const fs::path& temporary, std::string_view bytes)
{
    struct stat old;
    const bool exists = uninterrupted([&] { return ::stat(file.c_str(), &old); }) == 0;
    if (!exists && errno != ENOENT)
        return lastError();
    if (exists && !S_ISREG(old.st_mode))
        return S_ISDIR(old.st_mode) ? std::strerror(EISDIR) : "not a regular file";
    const auto mayNotWrite = [&] {
        return ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS);
    };
    if (exists && uninterrupted(mayNotWrite) != 0)
        return lastError();

    if (uninterrupted([&] { return ::unlink(temporary.c_str()); }) != 0 && errno != ENOENT)
        return lastError();
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    const FileDescriptor opened(uninterrupted([&] { return ::open(temporary.c_str(), flags, exists ? 0600 : 0644); }));
    if (!opened.isOpen())
        return lastError();
    if (auto failure = writeAll(opened.get(), bytes))
        return failure;
    if (exists) {
        if (auto failure = inherit(opened.get(), old))
            return failure;
    }
    return synchronizeToDisk(opened.get());
}

} // namespace

FileContents readFile(const fs::path& file, std::size_t limit)
{
    // Without O_NONBLOCK, a pipe in the file's place would keep the program waiting for a writer.
    const FileDescriptor opened(
        uninterrupted([&] { return ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!opened.isOpen())
        return { std::nullopt, errno == ENOENT ? Failure() : lastError() };
    struct stat status;
    if (uninterrupted([&] { return ::fstat(opened.get(), &status); }) != 0)
        return { std::nullopt, lastError() };
    if (!S_ISREG(status.st_mode))
        return { std::nullopt, S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "not a regular file" };

    std::string bytes;
    char buffer[16384];
    while (bytes.size() <= limit) {
        const std::size_t wanted = std::min(sizeof buffer, limit + 1 - bytes.size());
        const ssize_t count = uninterrupted([&] { return ::read(opened.get(), buffer, wanted); });
        if (count < 0)
            return { std::nullopt, lastError() };
        if (count == 0)
            break;
        bytes.append(buffer, static_cast<std::size_t>(count));
    }
    return { std::move(bytes), std::nullopt };
}

Failure followLinks(fs::path& file)
{
    constexpr int mostLinks = 40; // as many as the kernel follows
    for (int links = 0; links <= mostLinks; ++links) {
        std::array<char, PATH_MAX> target {};
        const ssize_t length = uninterrupted([&] { return ::readlink(file.c_str(), target.data(), target.size()); });
        if (length < 0) {
            const bool isNoLink = errno == EINVAL || errno == ENOENT || errno == ENOTDIR;
            return isNoLink ? Failure() : lastError();
        }
        file = folderOf(file) / std::string_view(target.data(), static_cast<std::size_t>(length));
    }
    return std::strerror(ELOOP);
}

Failure makeFolders(const fs::path& folder)
{
    const auto make = [&] {
        return ::mkdir(folder.c_str(), 0700);
    };
    const fs::path above = folder.parent_path();
    if (folder.empty() || uninterrupted(make) == 0 || errno == EEXIST)
        return std::nullopt;
    if (errno != ENOENT || above == folder)
        return lastError();
    if (auto failure = makeFolders(above))
        return failure;
    return uninterrupted(make) == 0 || errno == EEXIST ? Failure() : lastError();
}

Replacement replaceFile(const fs::path& file, std::string_view bytes)
{
    // One name is enough, since there is one writer at a time: killed writers leave at most this one file behind.
    const fs::path folder = folderOf(file);
    const fs::path temporary = folder / ("." + file.filename().string() + ".new");
    Failure failure = writeBeside(file, temporary, bytes);
    if (!failure && uninterrupted([&] { return ::rename(temporary.c_str(), file.c_str()); }) != 0)
        failure = lastError();
    if (failure) {
        uninterrupted([&] { return ::unlink(temporary.c_str()); });
        return { failure };
    }
    return { std::nullopt, synchronizeFolder(folder) };
}

Failure setAside(const fs::path& file, fs::path& newName)
{
    constexpr int mostNames = 9999;
    for (int number = 1; number <= mostNames; ++number) {
        newName = file;
        newName += ".unreadable-" + std::to_string(number);
        const auto rename = [&] {
            return ::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, newName.c_str(), RENAME_NOREPLACE);
        };
        if (uninterrupted(rename) == 0)
            return std::nullopt;
        if (errno != EEXIST)
            return lastError();
    }
    return "too many have been set aside";
}

} // namespace panotra::preferences
