/// The look of the panel. Applied once a build, in both styles; sliders apply their skin themselves.
#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "views/MixerMaterials.h"

namespace panotra {

/// A setting that names no skin leaves the look that createUI gave.
void PNOController::mixerSkinOptions() const
{
    InstanceVariables* const self = fields();
    const MixerSkin* const skin = findMixerSkin(processValues.mixerSkin);
    if (self == nullptr || skin == nullptr)
        return;
    self->_containerView.layer().setBorderColor(makeColor(skin->border));
    applyMaterial(*skin, self->_rootBackdropView);
    // On black the titles are the platform's own white.
    const UIColor title = skin->isBlack ? UIColor::whiteColor() : makeColor(skin->text);
    for (std::size_t group = 0; group < groupCount; ++group)
        self->_groupLabel[group].setTextColor(title);
}

} // namespace panotra
