/// From the table of sheets to files.
#include "simulator/gallery/Gallery.h"

#include "simulator/Files.h"
#include "simulator/gallery/GalleryPage.h"
#include "simulator/gallery/Phones.h"
#include "simulator/text/Printable.h"

#include <cstdio>
#include <filesystem>

namespace panotra::sim {
namespace {

class GalleryFolder {
public:
    explicit GalleryFolder(std::string folder)
        : m_folder(std::move(folder))
    {
    }

    /// Whether it is possible to write there; complains if it is not.
    bool make() const
    {
        std::error_code error;
        std::filesystem::create_directories(m_folder, error);
        if (error)
            complain(printable(m_folder.string()) + ": " + error.message());
        return !error;
    }

    bool writePicture(const std::string& name, const render::Bitmap& pixels) const
    {
        const std::string path = (m_folder / (name + ".png")).string();
        const auto problem = writePng(pixels, path);
        if (problem)
            complain(printable(path) + ": " + *problem);
        return !problem;
    }

    bool writeFile(const std::string& name, const std::string& content) const
    {
        OutputFile file = OutputFile::named((m_folder / name).string());
        file.write(content);
        file.close();
        if (file.error())
            complain(file.error()->message);
        return !file.error();
    }

private:
    std::filesystem::path m_folder;
};

} // namespace

ExitStatus makeGallery(const std::string& folderName, const Library& library, const std::string& resourceFolder)
{
    std::string failure;
    const auto studio = Studio::open(library, resourceFolder, complain, failure);
    if (studio == nullptr) {
        complain(failure);
        return ExitStatus::FileFailed;
    }
    const GalleryFolder folder(folderName);
    if (!folder.make())
        return ExitStatus::FileFailed;

    const auto sheets = gallerySheets();
    const std::size_t count = sheets.size() + 1;
    std::size_t number = 0;
    const auto announce = [&](const char* title) {
        std::printf("%2zu of %zu  %s\n", ++number, count, title);
        std::fflush(stdout);
    };
    announce("Three phones");
    if (!folder.writePicture(introduction, threePhones(*studio)))
        return ExitStatus::FileFailed;
    for (const GallerySheet& sheet : sheets) {
        announce(sheet.title);
        if (!folder.writePicture(sheet.name, contactSheet(sheet.rows(*studio), studio->typesetter())))
            return ExitStatus::FileFailed;
        if (sheet.film == nullptr)
            continue;
        const std::string film = sheet.film(*studio, failure);
        if (film.empty()) {
            complain(failure);
            return ExitStatus::FileFailed;
        }
        if (!folder.writeFile(std::string(sheet.name) + ".webp", film))
            return ExitStatus::FileFailed;
    }
    return folder.writeFile("index.html", galleryPage(sheets)) ? ExitStatus::AllWell : ExitStatus::FileFailed;
}

} // namespace panotra::sim
