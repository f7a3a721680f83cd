/// How long the renderer takes for a frame of a 750 by 1334 screen, while things move as they do on a phone.
///
/// Processor time of the drawing thread, so that other programs do not count. Each row gives the median and the 99th
/// percentile over all its frames in milliseconds, and the median as a multiple of the time it takes to copy the
/// picture once, and as one of the time it takes cairo to paint it: as it is, see-through where the mixer fades, or
/// turned where it turns. Both are measured in the same run; the last two numbers can be compared between machines.
#include "facts/AudioNames.h"
#include "facts/PublicNames.h"
#include "simulator/Bundle.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/picture/ShownMixer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <functional>
#include <numbers>
#include <vector>

namespace {

using namespace panotra;

constexpr double frameSeconds = 1.0 / 60;

double processorSeconds()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double secondsFor(const std::function<void()>& work)
{
    const double begin = processorSeconds();
    work();
    return processorSeconds() - begin;
}

double percentile(std::vector<double>& values, double part)
{
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
    std::ranges::nth_element(values, place);
    return *place;
}

/// The time to copy a picture of the screen once.
double copySeconds()
{
    static const double seconds = [] {
        std::vector<std::uint32_t> from(750 * 1334, 1);
        std::vector<std::uint32_t> to(from.size());
        std::vector<double> times;
        for (int i = 0; i < 200; ++i) {
            times.push_back(secondsFor([&] { std::ranges::copy(from, to.begin()); }));
            benchmark::DoNotOptimize(to.data());
        }
        return percentile(times, 0.5);
    }();
    return seconds;
}

/// The time that cairo takes to paint a picture of the screen once: as it is, see-through, or turned halfway.
enum class Painting { Plain, SeeThrough, Turned };
double cairoSeconds(Painting painting)
{
    render::Bitmap from(
        750, 1334, painting == Painting::SeeThrough ? render::PixelFormat::Translucent : render::PixelFormat::Opaque);
    render::Bitmap to(750, 1334, render::PixelFormat::Opaque);
    const auto ink = from.makeContext(); // what is empty is not painted at all
    cairo_set_source_rgba(ink.get(), 1, 1, 1, 0.5);
    cairo_paint(ink.get());
    std::vector<double> times;
    for (int i = 0; i < 50; ++i) {
        times.push_back(secondsFor([&] {
            const auto context = to.makeContext();
            if (painting == Painting::Turned) {
                cairo_translate(context.get(), 375, 667);
                cairo_rotate(context.get(), std::numbers::pi / 4);
                cairo_translate(context.get(), -375, -667);
            }
            cairo_set_source_surface(context.get(), from.surface(), 0, 0);
            cairo_paint_with_alpha(context.get(), painting == Painting::SeeThrough ? 0.5 : 1);
        }));
    }
    return percentile(times, 0.5);
}

/// A phone with the mixer, and the times of the frames drawn of it.
struct Phone {
    sim::Device device;
    sim::MixerShowing showing;
    std::unique_ptr<render::Renderer> renderer;
    std::vector<double> times;

    explicit Phone(std::int64_t style)
    {
        std::string failure;
        renderer = sim::makeRenderer(
            render::Wallpaper::dusk(), [](const std::string&) {}, failure);
        device.resourceFolder = sim::bundleBesideProgram();
        showing.style = style;
        sim::beginToShow(device, sim::loadedLibrary(), showing);
        draw(); // the home screen is drawn once in a phone's life
        times.clear();
    }
    void draw()
    {
        times.push_back(secondsFor([this] { benchmark::DoNotOptimize(renderer->draw(device).pixels.surface()); }));
    }
    void drawFrames(double seconds)
    {
        for (double passed = 0; passed < seconds; passed += frameSeconds) {
            device.runLoop->wait(frameSeconds);
            draw();
        }
    }
};

/// Runs `move` on a phone of its own in each iteration, and reports the frames that it drew.
void report(benchmark::State& state, std::int64_t style, Painting compared, const std::function<void(Phone&)>& move)
{
    std::vector<double> times;
    for (auto _ : state) {
        Phone phone(style);
        move(phone);
        times.insert(times.end(), phone.times.begin(), phone.times.end());
        double total = 0;
        for (const double time : phone.times)
            total += time;
        state.SetIterationTime(total);
    }
    const double median = percentile(times, 0.5);
    state.counters["frames"] = static_cast<double>(times.size());
    state.counters["median_ms"] = median * 1000;
    state.counters["p99_ms"] = percentile(times, 0.99) * 1000;
    state.counters["copies"] = median / copySeconds();
    state.counters["cairo"] = median / cairoSeconds(compared);
}

void dragging(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::Plain, [](Phone& phone) {
        constexpr int slot = 4;
        constexpr int steps = 120;
        sim::finishShowing(phone.device, phone.showing);
        sim::holdSlider(phone.device, slot);
        phone.device.runLoop->wait(0.3);
        phone.renderer->draw(phone.device);
        for (int step = 0; step < steps; ++step) {
            sim::moveHeldSlider(phone.device, slot, static_cast<double>(step) / steps);
            phone.device.runLoop->wait(frameSeconds);
            phone.draw();
        }
    });
}

void fadingIn(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::SeeThrough, [](Phone& phone) { phone.drawFrames(0.3); });
}

void fadingOut(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::SeeThrough, [](Phone& phone) {
        sim::finishShowing(phone.device, phone.showing);
        phone.renderer->draw(phone.device);
        phone.device.home->sendActivatorEvent(listener::dismiss);
        phone.drawFrames(0.4);
    });
}

void focusing(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::Plain, [](Phone& phone) {
        sim::finishShowing(phone.device, phone.showing);
        phone.renderer->draw(phone.device);
        phone.device.home->announce(category::audioVideo, changeReason::explicitChange, 0.75F);
        phone.device.runLoop->turn();
        phone.drawFrames(0.6);
    });
}

void turning(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::Turned, [](Phone& phone) {
        sim::finishShowing(phone.device, phone.showing);
        phone.renderer->draw(phone.device);
        phone.device.screen->orientation = 3;
        phone.device.home->reorientHUD(true);
        phone.device.runLoop->turn();
        phone.drawFrames(0.3);
    });
}

void nothingMoving(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::Plain, [](Phone& phone) {
        sim::finishShowing(phone.device, phone.showing);
        phone.renderer->draw(phone.device);
        phone.drawFrames(1);
    });
}

void firstFrame(benchmark::State& state, std::int64_t style)
{
    report(state, style, Painting::Plain, [](Phone& phone) {
        sim::finishShowing(phone.device, phone.showing);
        std::string failure;
        phone.renderer = sim::makeRenderer(
            render::Wallpaper::dusk(), [](const std::string&) {}, failure);
        phone.draw();
    });
}

constexpr std::int64_t panel = 0;
constexpr std::int64_t banner = 1;

BENCHMARK_CAPTURE(nothingMoving, panel, panel)->UseManualTime()->Iterations(3);
BENCHMARK_CAPTURE(dragging, panel, panel)->UseManualTime()->Iterations(10);
BENCHMARK_CAPTURE(dragging, banner, banner)->UseManualTime()->Iterations(10);
BENCHMARK_CAPTURE(focusing, panel, panel)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(fadingIn, panel, panel)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(fadingOut, panel, panel)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(fadingOut, banner, banner)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(turning, panel, panel)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(firstFrame, panel, panel)->UseManualTime()->Iterations(10);

} // namespace

BENCHMARK_MAIN();
