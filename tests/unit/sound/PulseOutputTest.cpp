/// What libpulse says of an output becomes its route, by a list of our own of every type that a port can have.
#include "simulator/sound/PulseOutput.h"

#include <gtest/gtest.h>

#include <memory>

#include <pulse/pulseaudio.h>

namespace panotra::sound {
namespace {

/// A sink as the server describes it, until the test ends.
class DescribedSink {
public:
    DescribedSink(const char* formFactor, const char* bus)
    {
        if (formFactor != nullptr)
            pa_proplist_sets(properties.get(), PA_PROP_DEVICE_FORM_FACTOR, formFactor);
        if (bus != nullptr)
            pa_proplist_sets(properties.get(), PA_PROP_DEVICE_BUS, bus);
        info.name = "out";
        info.index = 7;
        info.proplist = properties.get();
        pa_cvolume_set(&info.volume, 2, PA_VOLUME_NORM / 2);
    }
    void activate(std::uint32_t portType)
    {
        port.name = "a port";
        port.type = portType;
        info.active_port = &port;
    }
    Output output() const { return outputOf(info); }
    OutputRoute route() const { return routeOf(output().traits); }

    std::unique_ptr<pa_proplist, void (*)(pa_proplist*)> properties { pa_proplist_new(), pa_proplist_free };
    pa_sink_port_info port {};
    pa_sink_info info {};
};

struct KnownPort {
    pa_device_port_type_t type;
    const char* words;
    OutputRoute wired; ///< of a webcam: that is what counts where the port says nothing
    const char* byBluetooth;
};

const KnownPort knownPorts[] = {
    { PA_DEVICE_PORT_TYPE_AUX, "aux", { "aux", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_SPEAKER, "speaker", { "Speaker", true }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_HEADPHONES, "headphones", { "Headphone", true }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_LINE, "line", { "line", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_MIC, "mic", { "mic", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_HEADSET, "headset", { "Headset", true }, "HeadsetBT" },
    { PA_DEVICE_PORT_TYPE_HANDSET, "handset", { "Receiver", true }, "HeadsetBT" },
    { PA_DEVICE_PORT_TYPE_EARPIECE, "earpiece", { "Receiver", true }, "HeadsetBT" },
    { PA_DEVICE_PORT_TYPE_SPDIF, "spdif", { "spdif", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_HDMI, "hdmi", { "hdmi", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_TV, "tv", { "tv", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_RADIO, "radio", { "radio", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_VIDEO, "video", { "video", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_USB, "usb", { "webcam", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_BLUETOOTH, "bluetooth", { "webcam", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_PORTABLE, "portable", { "portable", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_HANDSFREE, "hands-free", { "hands-free", false }, "HeadsetBT" },
    { PA_DEVICE_PORT_TYPE_CAR, "car", { "car", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_HIFI, "hifi", { "Speaker", true }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_PHONE, "phone", { "phone", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_NETWORK, "network", { "network", false }, "HeadphonesBT" },
    { PA_DEVICE_PORT_TYPE_ANALOG, "analog", { "webcam", false }, "HeadphonesBT" },
};

TEST(PulseOutput, EveryTypeOfPortHasItsRoute)
{
    for (const KnownPort& known : knownPorts) {
        DescribedSink wired("webcam", "usb");
        wired.activate(known.type);
        EXPECT_EQ(wired.output().traits.portType, known.words);
        EXPECT_EQ(wired.route(), known.wired) << known.words << ": " << wired.route().name;
        DescribedSink byBluetooth("webcam", "bluetooth");
        byBluetooth.activate(known.type);
        EXPECT_EQ(byBluetooth.route(), (OutputRoute { known.byBluetooth, true })) << known.words;
    }
}

TEST(PulseOutput, APortOfATypeThatNobodyKnowsLeavesItToTheFormFactor)
{
    for (const std::uint32_t type : { std::uint32_t { PA_DEVICE_PORT_TYPE_UNKNOWN }, 23U, 0xFFFFFFFFU }) {
        DescribedSink sink("headset", "usb");
        sink.activate(type);
        EXPECT_EQ(sink.route(), (OutputRoute { "Headset", true })) << type;
    }
}

TEST(PulseOutput, WithoutAPortTheFormFactorAndTheBusDecide)
{
    EXPECT_EQ(DescribedSink("headphone", nullptr).route(), (OutputRoute { "Headphone", true }));
    EXPECT_EQ(DescribedSink("headset", "bluetooth").route(), (OutputRoute { "HeadsetBT", true }));
    EXPECT_EQ(DescribedSink(nullptr, "bluetooth").route(), (OutputRoute { "HeadphonesBT", true }));
    EXPECT_EQ(DescribedSink("tv", nullptr).route(), (OutputRoute { "tv", false }));
    EXPECT_EQ(DescribedSink(nullptr, nullptr).route(), (OutputRoute { "Speaker", true }));
}

TEST(PulseOutput, TheRestIsTakenAsItIs)
{
    DescribedSink sink("speaker", "pci");
    sink.info.volume.values[1] = 99;
    EXPECT_EQ(sink.output().index, 7U);
    EXPECT_EQ(sink.output().traits.name, "out");
    EXPECT_EQ(sink.output().port, "");
    EXPECT_EQ(sink.output().volumes, (ChannelVolumes { fullVolume / 2, 99 }));
    sink.activate(PA_DEVICE_PORT_TYPE_SPEAKER);
    EXPECT_EQ(sink.output().port, "a port");
    sink.port.name = nullptr;
    sink.info.name = nullptr;
    EXPECT_EQ(sink.output().port, "");
    EXPECT_EQ(sink.output().traits.name, "");
}

} // namespace
} // namespace panotra::sound
