/// `panotra picture` and `shot`: pictures, and one line for what goes wrong.
#include "tests/command/CommandLine.h"

#include <gmock/gmock.h>

namespace panotra::testing {
namespace {

using ::testing::ContainsRegex;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class PictureCommand : public CommandLine {
protected:
    /// Width and height as the file's header tells them.
    static std::pair<int, int> sizeOf(const std::string& png)
    {
        const auto number = [&png](std::size_t at) {
            int value = 0;
            for (std::size_t i = at; i < at + 4; ++i)
                value = value * 256 + static_cast<unsigned char>(png.at(i));
            return value;
        };
        return { number(16), number(20) };
    }
    bool isThere(const char* file) const { return exists(folder / file); }
};

TEST_F(PictureCommand, DrawsTheScreenAtItsScale)
{
    const auto ended = run("picture -o out.png");
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(ended.output + ended.errors, "");
    EXPECT_EQ(sizeOf(read("out.png")), (std::pair { 750, 1334 }));
    EXPECT_EQ(run("picture --screen 320x480@1 --style 1 --skin 2 --orientation 3 --scale 1 --level 0=0.5 --level 11=1 "
                  "--focus 0 --wallpaper dawn --as-viewed -o out.png")
                  .status,
        0);
    EXPECT_EQ(sizeOf(read("out.png")), (std::pair { 480, 320 }));
}

TEST_F(PictureCommand, NamesMayStandInPlaceOfNumbers)
{
    const auto drawn = [this](const std::string& options) {
        const auto ended = run("picture --screen 160x240@1 " + options + " -o - >out.png");
        EXPECT_EQ(ended.status, 0) << ended.errors;
        return read("out.png");
    };
    const auto byNumbers = drawn("--style 1 --skin 1 --orientation 4 --system 14 --focus 5 --level 5=0.25");
    EXPECT_EQ(byNumbers,
        drawn("--style banner --skin Dark --orientation landscape-left --system ios14 --focus call-headset "
              "--level call-headset=0.25"));
    EXPECT_NE(byNumbers, drawn("--style panel"));
    const std::pair<const char*, const char*> mistakes[] = {
        { "--style baner",
            "--style: found \"baner\", expected one of panel, banner, or its number (did you mean banner?)" },
        { "--skin drak",
            "--skin: found \"drak\", expected one of light, dark, darker, black, or its number (did you mean dark?)" },
        { "--level sirri=1",
            "--level: found \"sirri\", expected one of speaker, headphones, headphonesbt, call-receiver, call-speaker, "
            "call-headset, call-headsetbt, ringtone, alarm, notifications, siri, receiver, or its number (did you mean "
            "siri?)" },
    };
    for (const auto& [options, mistake] : mistakes) {
        const auto ended = run(std::string("picture -o out.png ") + options);
        EXPECT_EQ(ended.status, 2) << options;
        EXPECT_EQ(ended.errors, std::string("panotra: ") + mistake + '\n');
    }
}

TEST_F(PictureCommand, ADashIsStandardOutput)
{
    EXPECT_EQ(run("picture --screen 160x240@1 -o one.png").status, 0);
    EXPECT_EQ(runScript("\"$panotra\" picture --screen 160x240@1 -o - | cat >two.png").status, 0);
    EXPECT_EQ(read("one.png"), read("two.png"));
    EXPECT_FALSE(isThere("-"));
    EXPECT_EQ(run("picture --screen 160x240@1 -o - >/dev/full").errors,
        "panotra: standard output: No space left on device\n");
    const auto gone = runScript("{ \"$panotra\" picture --screen 160x240@1 -o -; echo $? >status; } | :; cat status");
    EXPECT_EQ(gone.output, "3\n");
    EXPECT_EQ(gone.errors, "");
    write("script", "\"$panotra\" picture -o -");
    EXPECT_THAT(runScript("export panotra; script -qec \"sh script\" /dev/null").output,
        HasSubstr("standard output is a terminal"));
}

TEST_F(PictureCommand, AnEndingThatIsNotPngIsAMistake)
{
    for (const auto* name : { "out.jpg", "out.png.webp", "folder/.out.gif" }) {
        const auto ended = run(std::string("picture -o ") + name);
        EXPECT_EQ(ended.status, 2) << name;
        EXPECT_EQ(ended.errors,
            std::string("panotra: --output: found \"") + name
                + "\", expected a name that ends in .png, or - for standard output\n");
        EXPECT_FALSE(isThere(name)) << name;
    }
    EXPECT_EQ(run("picture --screen 160x240@1 -o OUT.PNG").status, 0);
}

TEST_F(PictureCommand, TheSameOptionsGiveTheSameBytes)
{
    run("picture --screen 160x240@1 -o one.png");
    run("picture --screen 160x240@1 -o two.png");
    EXPECT_EQ(read("one.png"), read("two.png"));
    EXPECT_NE(read("one.png"), "");
}

TEST_F(PictureCommand, TakesAPhotographForAWallpaper)
{
    run("picture --screen 100x100@1 -o wall.png");
    EXPECT_EQ(run("picture --screen 160x240@1 --wallpaper wall.png -o one.png").status, 0);
    EXPECT_EQ(run("picture --screen 160x240@1 -o two.png").status, 0);
    EXPECT_NE(read("one.png"), read("two.png"));
}

TEST_F(PictureCommand, AWrongOptionIsOneLineAndNothingIsDrawn)
{
    for (const auto* options : { "--screen 0x480@1", "--screen 320x480", "--screen 320x480@0", "--screen 320x-1@1",
             "--screen wide", "--screen 1e9x1e9@1", "--screen 0.2x0.2@1", "--screen nanx480@1", "--level 0",
             "--level 12=0.5", "--level -1=0.5", "--level 1=50", "--level 2=-3", "--level 3=1.001", "--level 4=nan",
             "--level 0=loud", "--level 0=", "--focus 12", "--focus -1", "--focus x", "--style x", "--style 2",
             "--style 99999999999999999999", "--skin 1.5", "--skin 4", "--skin -1", "--orientation up",
             "--orientation 0", "--orientation 5", "--scale big", "--scale nan", "--scale inf", "--scale 0",
             "--scale -1", "--scale 1e300", "--scale 50", "--bogus" }) {
        const auto ended = run(std::string("picture -o out.png ") + options);
        EXPECT_EQ(ended.status, 2) << options;
        EXPECT_EQ(ended.output, "") << options;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]+\n$")) << options;
        EXPECT_FALSE(isThere("out.png")) << options;
    }
    EXPECT_EQ(run("picture").status, 2);
    EXPECT_THAT(run("picture --screen 0x480@1 -o out.png").errors,
        StartsWith("panotra: --screen: found \"0x480@1\", expected WIDTHxHEIGHT@SCALE"));
    EXPECT_THAT(run("picture --screen 9000x10@1 -o out.png").errors,
        StartsWith("panotra: --screen: the screen has sides that are not 1 to 8192 pixels"));
}

TEST_F(PictureCommand, APlaceThatCannotBeWrittenIsOneLine)
{
    EXPECT_EQ(run("picture --screen 160x240@1 -o no/such/out.png").errors,
        "panotra: no/such/out.png: there is no folder no/such\n");
    EXPECT_EQ(run("picture --screen 160x240@1 -o .").errors, "panotra: .: Is a directory\n");
    EXPECT_EQ(run("picture --screen 160x240@1 -o /dev/full").errors, "panotra: /dev/full: No space left on device\n");
    for (const auto* place : { "no/such/out.png", ".", "/dev/full" })
        EXPECT_EQ(run(std::string("picture --screen 160x240@1 -o ") + place).status, 3) << place;
    EXPECT_FALSE(isThere("no"));
    const auto cut = runScript("ulimit -f 1; \"$panotra\" picture --screen 160x240@1 -o large.png");
    EXPECT_EQ(cut.status, 3);
    EXPECT_EQ(cut.errors, "panotra: large.png: File too large\n");
}

TEST_F(PictureCommand, AWallpaperThatCannotBeReadIsOneLine)
{
    run("picture --screen 160x240@1 -o whole.png");
    runScript("head -c 5000 whole.png >half.png; printf '\\211PNG\\r\\n\\032\\n' >head.png; : >empty.png");
    for (const auto* file : { "half.png", "head.png", "empty.png", "good" }) {
        const auto ended = run(std::string("picture -o out.png --wallpaper ") + file);
        EXPECT_EQ(ended.status, 3) << file;
        EXPECT_EQ(ended.errors, std::string("panotra: ") + file + ": no readable PNG picture\n");
    }
    const auto waiting = runScript("mkfifo pipe.png; timeout 20 \"$panotra\" picture -o out.png --wallpaper pipe.png");
    EXPECT_EQ(waiting.status, 3);
    EXPECT_EQ(waiting.errors, "panotra: pipe.png: no regular file\n");
    EXPECT_EQ(run("picture -o out.png --wallpaper none.png").errors, "panotra: none.png: No such file or directory\n");
    EXPECT_FALSE(isThere("out.png"));
}

TEST_F(PictureCommand, WithoutAnyFontItSaysWhichPackageHelps)
{
    write("fonts.conf", "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig></fontconfig>");
    const std::string noFonts = "FONTCONFIG_FILE=$PWD/fonts.conf \"$panotra\" ";
    const auto ended = runScript(noFonts + "picture -o out.png");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.errors, "panotra: no font is installed (Inter comes with the package fonts-inter)\n");
    write("shooting", "load\nshot here\n");
    const auto played = runScript(noFonts + "play shooting");
    EXPECT_EQ(played.status, 3);
    EXPECT_THAT(played.errors, ContainsRegex("^panotra: [^\n]*here.png: no font is installed[^\n]*\n$"));
}

TEST_F(PictureCommand, AnotherFontThanTheOneMeantIsNamedOnce)
{
    // Whatever there is of Inter but under another name is as good as another font.
    const auto found = runScript("fc-list ':family=Inter:style=Regular' file | head -1 | cut -d: -f1");
    ASSERT_NE(found.output, "\n");
    write("fonts.conf",
        "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir prefix=\"cwd\">fonts</dir>"
        "<cachedir>cache</cachedir><match target=\"scan\"><edit name=\"family\" mode=\"assign\"><string>Stand-in"
        "</string></edit></match></fontconfig>");
    const auto ended = runScript("mkdir fonts && cp " + found.output.substr(0, found.output.find('\n'))
        + " fonts && FONTCONFIG_FILE=$PWD/fonts.conf \"$panotra\" picture --screen 160x240@1 -o out.png");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(
        ended.errors, "panotra: the font Inter is not installed (package fonts-inter); text is set in Stand-in\n");
    EXPECT_TRUE(isThere("out.png"));
}

TEST_F(PictureCommand, AShotMayLieInFoldersBelow)
{
    write("shooting", "screen 160 240 1\nload\nshot a/b/here\nshot ./there\n");
    const auto ended = run("play shooting --format json --shots new/pictures");
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_TRUE(isThere("new/pictures/a/b/here.png"));
    EXPECT_TRUE(isThere("new/pictures/there.png"));
    EXPECT_THAT(ended.output, HasSubstr(R"("event":"shot","file":"a/b/here.png")"));
}

TEST_F(PictureCommand, AShotOutsideItsFolderIsAMistakeOfItsLine)
{
    write("wrong", "screen 160 240 1\nload\nshot ../x\nshot /x\nlunch\nshot a/../b\n");
    const auto ended = run("play wrong --shots pictures");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    EXPECT_THAT(ended.errors,
        ContainsRegex("^wrong:3: found \"\\.\\./x\"[^\n]+\nwrong:4: [^\n]+\nwrong:5: [^\n]+\nwrong:6: [^\n]+\n$"));
    EXPECT_FALSE(isThere("pictures"));
    EXPECT_FALSE(isThere("x.png"));
}

TEST_F(PictureCommand, AShotDoesNotFollowALinkOutOfItsFolder)
{
    write("shooting", "screen 160 240 1\nload\nwait x\nshot out/x\nshot nowhere\nshot file\nshot round\n");
    write("kept", "what was there\n");
    runScript("mkdir pictures outside; ln -s ../outside pictures/out; ln -s ../new.png pictures/nowhere.png;"
              "ln -s ../kept pictures/file.png; ln -s round.png pictures/round.png");
    const auto ended = run("play shooting --shots pictures");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.errors,
        "shooting:3: found \"x\" for SECONDS, expected a number not below 0\n"
        "shooting:4: found \"out/x\", expected a picture in the folder pictures or below it\n"
        "shooting:5: found \"nowhere\", expected a picture in the folder pictures or below it\n"
        "shooting:6: found \"file\", expected a picture in the folder pictures or below it\n"
        "shooting:7: found \"round\", expected a picture in the folder pictures or below it\n");
    EXPECT_FALSE(isThere("outside/x.png"));
    EXPECT_FALSE(isThere("new.png"));
    EXPECT_EQ(read("kept"), "what was there\n");
}

TEST_F(PictureCommand, AShotMayFollowALinkThatStaysInItsFolder)
{
    write("shooting", "screen 160 240 1\nload\nshot today/x\n");
    runScript("mkdir -p real/monday; ln -s monday real/today; ln -s real pictures");
    const auto ended = run("play shooting --shots pictures");
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_TRUE(isThere("real/monday/x.png"));
}

TEST_F(PictureCommand, AShotIsNeitherTheScenarioNorTheTraceNorAPropertyList)
{
    const char* const text = "screen 160 240 1\nload\nshot x\n";
    write("x.png", text);
    const std::string mistake = ":3: found \"x\", expected another file than the scenario\n";
    for (const auto* arguments : { "x.png", "./x.png --shots ../\"${PWD##*/}\"", "- <x.png" }) {
        const auto ended = run(std::string("play ") + arguments);
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_THAT(ended.errors, EndsWith(mistake)) << arguments;
        EXPECT_EQ(read("x.png"), text) << arguments;
    }
    runScript("mkdir links; ln x.png links/x.png");
    EXPECT_EQ(run("play x.png --shots links").status, 2);
    EXPECT_EQ(read("x.png"), text);

    write("shooting", text);
    EXPECT_EQ(run("play shooting --shots new --trace new/x.png").errors,
        "shooting:3: found \"x\", expected another file than the trace\n");
    EXPECT_EQ(run("play shooting --shots folder >x.png").errors, "");
    EXPECT_EQ(
        run("play shooting >x.png").errors, "shooting:3: found \"x\", expected another file than standard output\n");

    ASSERT_EQ(run("prefs set --prefs p a.b key int 1").status, 0);
    const auto before = read("p/a.b.plist");
    runScript("mkdir shots; ln p/a.b.plist shots/x.png");
    EXPECT_EQ(run("play shooting --prefs p --shots shots").errors,
        "shooting:3: found \"x\", expected another file than --prefs\n");
    EXPECT_EQ(read("p/a.b.plist"), before);
}

TEST_F(PictureCommand, AWallpaperIsNotReplacedByItsPicture)
{
    run("picture --screen 100x100@1 -o wall.png");
    const auto before = read("wall.png");
    runScript("ln -s wall.png soft.png; ln wall.png hard.png");
    for (const auto* output : { "wall.png", "./wall.png", "soft.png", "hard.png" }) {
        const auto ended = run(std::string("picture --screen 160x240@1 --wallpaper wall.png -o ") + output);
        EXPECT_EQ(ended.status, 2) << output;
        EXPECT_EQ(ended.errors, std::string("panotra: ") + output + ": --output would overwrite --wallpaper\n");
        EXPECT_EQ(read("wall.png"), before) << output;
    }
}

TEST_F(PictureCommand, AShotThatCannotBeWrittenIsOneLineAndThePlayEndsWithThree)
{
    write("shooting", "screen 160 240 1\nload\nshot here\n");
    write("far", "screen 100000 100000 3\nload\nshot here\n");
    EXPECT_EQ(run("play shooting --shots pictures").status, 0);
    EXPECT_EQ(sizeOf(read("pictures/here.png")), (std::pair { 160, 240 }));
    const auto ended = run("play shooting --shots good/pictures");
    EXPECT_EQ(ended.status, 3);
    EXPECT_THAT(ended.errors, ContainsRegex("^panotra: good/pictures/here.png: [^\n]+\n$"));
    const auto tooLarge = run("play far --shots pictures");
    EXPECT_EQ(tooLarge.status, 3);
    EXPECT_THAT(tooLarge.errors, HasSubstr("sides that are not 1 to 8192 pixels\n"));
}

} // namespace
} // namespace panotra::testing
