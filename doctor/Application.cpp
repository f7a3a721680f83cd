/// What the application answers where names and types alone do not tell whether the mixer will find it.
#include "platform/SpringBoard.h"

#include "doctor/Examination.h"
#include "doctor/HostMessages.h"
#include "doctor/Report.h"

namespace panotra::doctor {

namespace {

void writeFound(std::string_view what, const NSObject& found)
{
    writeLine({ "  ", what, ": ", found ? kindOf(found) : "none" });
}

} // namespace

void examineApplication()
{
    writeLine({ "" });
    writeLine({ "application" });
    writeFound("volume buttons", VolumeControl::current());
    writeFound("scene of the main screen", UIApplication::current().connectedWindowScene());
    writeFound("status bar", UIApplication::current().statusBar());
    writeFound("status bar of the home screen", SpringBoard::sharedApplication().statusBarForEmbeddedDisplay());
}

} // namespace panotra::doctor
