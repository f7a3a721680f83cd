/// What is remembered of the window, how fine its display is, and which phones have names.
#include "simulator/window/PhoneModels.h"
#include "simulator/window/WindowPlace.h"
#include "simulator/window/X11Scale.h"

#include <gtest/gtest.h>

namespace panotra::sim {
namespace {

TEST(WindowPlaceTest, APlaceIsReadAsItWasWritten)
{
    const WindowPlace place { -12, 40, 1200, 800 };
    EXPECT_EQ(placeIn(textOf(place)), place);
    for (const char* const text : { "", "1 2 3", "1 2 0 4", "1 2 3 -4", "1 2 3 4 5", "a b c d", "1 2 99999 3",
             "99999999999 0 1 1", "1 2 3 4\n5" })
        EXPECT_EQ(placeIn(text), std::nullopt) << text;
}

TEST(X11ScaleTest, TheDotsAnInchStandInTheServersResources)
{
    EXPECT_EQ(dotsAnInch("Xcursor.size:\t24\nXft.dpi:\t192\nXft.antialias:\t1\n"), 192);
    EXPECT_EQ(dotsAnInch("Xft.dpi: 120.5"), 120.5);
    for (const char* const text : { "", "Xft.dpi:", "Xft.dpi: much", "Xft.dpi: -3", "xft.dpi: 96x", "MyXft.dpi: 96" })
        EXPECT_EQ(dotsAnInch(text), std::nullopt) << text;
}

TEST(PhoneModelsTest, NamesAreForgivingAndScreensHaveNames)
{
    EXPECT_EQ(findModel("6-plus"), findModel("6 Plus"));
    EXPECT_EQ(findModel("x")->screen.height, 812);
    EXPECT_EQ(findModel("375x667@2"), nullptr);
    for (const PhoneModel& model : phoneModels)
        EXPECT_EQ(nameOfPhone(model.screen), model.name);
    EXPECT_EQ(nameOfPhone({ 768, 1024, 2 }), "768 x 1024");
    EXPECT_TRUE(bodyOf(findModel("5s")->screen).hasHomeButton);
    EXPECT_FALSE(bodyOf(findModel("X")->screen).hasHomeButton);
}

} // namespace
} // namespace panotra::sim
