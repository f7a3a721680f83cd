/// The types of ports in the words of the table of routes.
#include "simulator/sound/PulseOutput.h"

#include <array>

#include <pulse/pulseaudio.h>

namespace panotra::sound {

namespace {

struct PortTypeName {
    pa_device_port_type_t type;
    const char* name;
};

/// In the words of the table of routes.
constexpr std::array portTypeNames {
    PortTypeName { PA_DEVICE_PORT_TYPE_AUX, "aux" },
    PortTypeName { PA_DEVICE_PORT_TYPE_SPEAKER, "speaker" },
    PortTypeName { PA_DEVICE_PORT_TYPE_HEADPHONES, "headphones" },
    PortTypeName { PA_DEVICE_PORT_TYPE_LINE, "line" },
    PortTypeName { PA_DEVICE_PORT_TYPE_MIC, "mic" },
    PortTypeName { PA_DEVICE_PORT_TYPE_HEADSET, "headset" },
    PortTypeName { PA_DEVICE_PORT_TYPE_HANDSET, "handset" },
    PortTypeName { PA_DEVICE_PORT_TYPE_EARPIECE, "earpiece" },
    PortTypeName { PA_DEVICE_PORT_TYPE_SPDIF, "spdif" },
    PortTypeName { PA_DEVICE_PORT_TYPE_HDMI, "hdmi" },
    PortTypeName { PA_DEVICE_PORT_TYPE_TV, "tv" },
    PortTypeName { PA_DEVICE_PORT_TYPE_RADIO, "radio" },
    PortTypeName { PA_DEVICE_PORT_TYPE_VIDEO, "video" },
    PortTypeName { PA_DEVICE_PORT_TYPE_USB, "usb" },
    PortTypeName { PA_DEVICE_PORT_TYPE_BLUETOOTH, "bluetooth" },
    PortTypeName { PA_DEVICE_PORT_TYPE_PORTABLE, "portable" },
    PortTypeName { PA_DEVICE_PORT_TYPE_HANDSFREE, "hands-free" },
    PortTypeName { PA_DEVICE_PORT_TYPE_CAR, "car" },
    PortTypeName { PA_DEVICE_PORT_TYPE_HIFI, "hifi" },
    PortTypeName { PA_DEVICE_PORT_TYPE_PHONE, "phone" },
    PortTypeName { PA_DEVICE_PORT_TYPE_NETWORK, "network" },
    PortTypeName { PA_DEVICE_PORT_TYPE_ANALOG, "analog" },
};

std::string nameOf(std::uint32_t portType)
{
    for (const PortTypeName& each : portTypeNames) {
        if (static_cast<std::uint32_t>(each.type) == portType)
            return each.name;
    }
    return {};
}

} // namespace

std::string textOf(const char* characters)
{
    return characters == nullptr ? std::string() : characters;
}

Output outputOf(const pa_sink_info& sink)
{
    Output output { .index = sink.index };
    output.traits.name = textOf(sink.name);
    output.traits.formFactor = textOf(pa_proplist_gets(sink.proplist, PA_PROP_DEVICE_FORM_FACTOR));
    output.traits.bus = textOf(pa_proplist_gets(sink.proplist, PA_PROP_DEVICE_BUS));
    if (sink.active_port != nullptr) {
        output.port = textOf(sink.active_port->name);
        output.traits.portType = nameOf(sink.active_port->type);
    }
    output.volumes.assign(sink.volume.values, sink.volume.values + sink.volume.channels);
    return output;
}

} // namespace panotra::sound
