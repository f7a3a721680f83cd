/// What the audio service answers.
#include "platform/AVSystemController.h"

#include "doctor/Examination.h"
#include "doctor/Report.h"
#include "facts/AudioNames.h"

namespace panotra::doctor {

/// No levels: they are nobody's business but the owner's.
void examineAudioService()
{
    const AVSystemController audio = AVSystemController::sharedAVSystemController();
    writeLine({ "" });
    writeLine({ "audio service" });
    if (!audio)
        writeLine({ "  not there" });
    const NSString route = NSString::checked(audio.attributeForKey(AVController_ActiveAudioRouteAttribute));
    writeLine({ "  route: ", route ? route.view() : "unknown" });
    const NSString remembered = NSString::checked(SBAVSystemControllerCache::sharedInstance().activeAudioRoute());
    writeLine({ "  route, as the home screen remembers it: ", remembered ? remembered.view() : "unknown" });
    for (const char* const name : audioCategories) {
        float level = 0;
        const bool isKnown = audio.getVolume(&level, NSString::stringWithUTF8String(name));
        writeLine({ "  category ", name, isKnown ? ": known" : ": not known" });
    }
}

} // namespace panotra::doctor
