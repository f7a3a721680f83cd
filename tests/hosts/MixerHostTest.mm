/// A mixer among Objective-C objects.
#include "tests/hosts/MixerHostTest.h"

#include "tests/hosts/Crossings.h"
#include "tests/hosts/Peers.h"

#include <algorithm>

namespace panotra::testing {

MixerHostTest::MixerHostTest()
{
    for (int slot = 0; slot < 12; ++slot)
        device.preferences->set("net.qorvath.panotra", "volume" + std::to_string(slot), 0.5);
}

MixerHostTest::~MixerHostTest()
{
    hosts::listenToMessages({});
}

void MixerHostTest::shake()
{
    device.home->notify("net.qorvath.panotra.uikitshaken");
    pass(100);
}

void MixerHostTest::show(int style)
{
    device.preferences->set("net.qorvath.panotra", "activeStyle", style);
    shake();
}

void MixerHostTest::dismiss()
{
    shake();
}

void MixerHostTest::explicitChange(float level)
{
    device.home->announce("Audio/Video", "ExplicitVolumeChange", level);
    pass();
}

void MixerHostTest::turnTo(std::int64_t orientation)
{
    device.screen->orientation = orientation;
    device.home->reorientHUD(true);
    pass();
}

HostObject* MixerHostTest::held(const std::string& field)
{
    HostObject* const controller = device.classes->anyInstance("PNOController");
    return controller == nullptr ? nullptr : device.classes->objectForKey(controller, field);
}

HostObject* MixerHostTest::partOf(int slot, const std::string& field)
{
    HostObject* const slider = held("_volumeView" + std::to_string(slot));
    return slider == nullptr ? nullptr : device.classes->objectForKey(slider, field);
}

MixerHostTest::Names MixerHostTest::namesOfViews()
{
    std::vector<std::string> fields
        = { "_window", "_rootView", "_containerView", "_rootBackdropView", "_blurBackdropView" };
    for (int group = 0; group < 3; ++group) {
        fields.push_back("_groupView" + std::to_string(group));
        fields.push_back("_groupLabel" + std::to_string(group));
    }
    for (int slot = 0; slot < 12; ++slot)
        fields.push_back("_volumeView" + std::to_string(slot));
    Names names;
    for (const std::string& field : fields) {
        if (HostObject* const object = held(field))
            names[hosts::hostObjectFor(object)] = field;
    }
    return names;
}

MixerHostTest::Names MixerHostTest::namesOfSlider(int slot)
{
    Names names { { hosts::hostObjectFor(held("_volumeView" + std::to_string(slot))), "slider" } };
    for (const char* const field :
        { "_backdropView", "_volumeView", "_imageView", "_label0", "_label1", "_volumePanRecognizer" }) {
        if (HostObject* const object = partOf(slot, field))
            names[hosts::hostObjectFor(object)] = field;
    }
    return names;
}

void MixerHostTest::hear(const std::set<std::string>& selectors)
{
    m_heard.clear();
    m_selectors = selectors;
    hosts::listenToMessages([this](void* receiver, const char* selector) {
        if (m_selectors.contains(selector))
            m_heard.emplace_back(receiver, selector);
    });
}

std::vector<std::string> MixerHostTest::heardTo(const Names& names)
{
    hosts::listenToMessages({});
    std::vector<std::string> lines;
    for (const auto& [receiver, selector] : m_heard) {
        const auto name = names.find(receiver);
        if (name != names.end())
            lines.push_back(name->second + ' ' + selector);
    }
    return lines;
}

std::vector<std::string> MixerHostTest::from(
    const std::vector<std::string>& lines, const std::string& begin, std::size_t count)
{
    const auto first = std::ranges::find(lines, begin);
    const auto left = static_cast<std::size_t>(std::distance(first, lines.end()));
    return { first, first + static_cast<std::ptrdiff_t>(std::min(count, left)) };
}

std::vector<int> slotsInOrder()
{
    return { 11, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 };
}

IMP replaceClassMethod(const char* className, const char* selector, IMP replacement)
{
    const Class metaclass = object_getClass(objc_lookUpClass(className));
    const SEL name = sel_registerName(selector);
    const Method method = class_getInstanceMethod(metaclass, name);
    return class_replaceMethod(metaclass, name, replacement, method_getTypeEncoding(method));
}

} // namespace panotra::testing
