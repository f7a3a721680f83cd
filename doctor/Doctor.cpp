/// The doctor's library: looks at the home screen when it is asked to, and writes down what it found.
#include "doctor/Examination.h"
#include "doctor/Report.h"
#include "facts/PublicNames.h"
#include "platform/Notify.h"
#include "platform/Runtime.h"

namespace panotra::doctor {

namespace {

void examine() noexcept
{
    if (!beginReport())
        return;
    writeLine({ "Panotra doctor " PANOTRA_VERSION });
    writeLine({ "" });
    const int system = examineProcess();
    examineTables(system);
    examineApplication(system);
    examineAudioService();
    awaitCalls(system);
}

[[gnu::constructor]] void initialize()
{
    const AutoreleasePool pool; // the dynamic loader keeps none
    addDarwinObserver(notification::doctorAsked, examine);
}

} // namespace

} // namespace panotra::doctor
