/// A view's place in the tree, and its recognisers.
#include "simulator/device/ClassTable.h"
#include "simulator/device/View.h"

#include <algorithm>

namespace panotra::sim {

bool View::isInside(const View& view) const
{
    const View* candidate = this;
    while (candidate != nullptr && candidate != &view)
        candidate = candidate->superview;
    return candidate != nullptr;
}

void View::addSubview(View& view)
{
    if (isInside(view))
        return;
    if (view.superview == this) {
        bringSubviewToFront(view);
        return;
    }
    retain(&view);
    view.removeFromSuperview();
    subviews.push_back(&view);
    view.superview = this;
    view.superviewBoundsChanged();
}

void View::bringSubviewToFront(View& view)
{
    const auto place = std::ranges::find(subviews, &view);
    if (place != subviews.end())
        std::rotate(place, place + 1, subviews.end());
}

void View::removeFromSuperview()
{
    if (superview == nullptr)
        return;
    // The last moment at which the field that holds the view is sure to do so still.
    if (name.empty())
        Device::current()->classes->nameHeldObjects();
    std::erase(superview->subviews, this);
    superview = nullptr;
    release(this);
}

void View::addRecognizer(PanRecognizer& recognizer)
{
    retain(&recognizer);
    if (recognizer.view != nullptr)
        recognizer.view->removeRecognizer(recognizer);
    recognizers.push_back(&recognizer);
    recognizer.view = this;
}

void View::removeRecognizer(PanRecognizer& recognizer)
{
    if (std::erase(recognizers, &recognizer) == 0)
        return;
    recognizer.view = nullptr;
    release(&recognizer);
}

} // namespace panotra::sim
