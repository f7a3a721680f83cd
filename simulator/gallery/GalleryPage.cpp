/// One figure a sheet, light or dark as the reader prefers.
#include "simulator/gallery/GalleryPage.h"

namespace panotra::sim {
namespace {

constexpr const char* head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Panotra: the gallery</title>
<style>
:root { color-scheme: light dark; --paper: #f6f6f9; --ink: #1c1d22; --pale: #62646f; --card: #fff; --line: #dcdde4; }
@media (prefers-color-scheme: dark) {
    :root { --paper: #0e0f12; --ink: #ececf1; --pale: #9a9ca8; --card: #17181d; --line: #2a2b33; }
}
body { margin: 0; background: var(--paper); color: var(--ink); font: 17px/1.5 Inter, system-ui, sans-serif; }
main { max-width: 1200px; margin: 0 auto; padding: 48px 24px 96px; }
h1 { margin: 0; font-weight: 600; font-size: 40px; letter-spacing: -0.02em; }
h2 { margin: 0; font-weight: 600; font-size: 22px; letter-spacing: -0.01em; }
p { margin: 4px 0 0; color: var(--pale); }
nav { display: flex; flex-wrap: wrap; gap: 8px; margin: 24px 0 40px; }
nav a { padding: 5px 14px; border: 1px solid var(--line); border-radius: 99px; background: var(--card);
    color: inherit; text-decoration: none; font-size: 15px; }
figure { margin: 0 0 40px; padding: 20px; border: 1px solid var(--line); border-radius: 20px; background: var(--card); }
figcaption { margin-bottom: 16px; }
img { display: block; width: 100%; height: auto; border-radius: 12px; }
.film { display: grid; grid-template-columns: 5fr 2fr; gap: 20px; align-items: center; }
@media (max-width: 800px) { .film { grid-template-columns: 1fr; } }
</style>
</head>
<body>
<main>
<h1>Panotra</h1>
<p>Everything the mixer can look like, drawn on the simulated phone. A click on a sheet shows its every pixel.</p>
)";

constexpr const char* foot = R"(</main>
</body>
</html>
)";

std::string picture(const std::string& name, const std::string& alternative)
{
    return "<a href=\"" + name + ".png\"><img src=\"" + name + ".png\" alt=\"" + alternative + "\"></a>\n";
}

} // namespace

std::string galleryPage(std::span<const GallerySheet> sheets)
{
    std::string page = head;
    page += "<nav>\n";
    for (const GallerySheet& sheet : sheets)
        page += std::string("<a href=\"#") + sheet.name + "\">" + sheet.title + "</a>\n";
    page += "</nav>\n<figure>\n" + picture(introduction, "Three phones that show the mixer") + "</figure>\n";
    for (const GallerySheet& sheet : sheets) {
        page += std::string("<figure id=\"") + sheet.name + "\">\n<figcaption><h2>" + sheet.title + "</h2><p>"
            + sheet.text + "</p></figcaption>\n";
        if (sheet.film != nullptr)
            page += "<div class=\"film\">\n" + picture(sheet.name, sheet.title) + "<img src=\"" + sheet.name
                + ".webp\" alt=\"" + sheet.title + ", as a film\">\n</div>\n";
        else
            page += picture(sheet.name, sheet.title);
        page += "</figure>\n";
    }
    return page + foot;
}

} // namespace panotra::sim
