// SPDX-License-Identifier: MIT
// Measures what the user waits for in the window: its start, and the selection of each device.
//
// Forms and settings file are real, and drawn offscreen. The board and its pauses run in virtual
// time, so that the sleeps of the start-up don't count.
#include <fmt/format.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "board/board.h"
#include "board/in_process_port.h"
#include "forms/frmMain.h"
#include "forms/theme.h"
#include "platform/deferred_settings.h"
#include "platform/ini_settings_store.h"
#include "run/run.h"
#include "run/start_up.h"
#include "support/fakes.h"

namespace {

using namespace quillon;
using Clock = std::chrono::steady_clock;

double milliseconds_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>{Clock::now() - start}.count();
}

// The resident memory of this process in megabytes, 0 where the system doesn't report it.
double memory() {
    std::ifstream status{"/proc/self/status"};
    for (std::string word; status >> word;)
        if (word == "VmHWM:" && status >> word) return std::stod(word) / 1024;
    return 0;
}

struct Window {
    Window() {
        host.app_folder = folder.path() / "";
        host.documents = folder.path();
        host.on_pump = [] { QApplication::processEvents(); };
        store.write(Settings::kSection, "ComNo", "1");
        dialogs.power_answer = 1;
        run.session.CatalogueFile = QUILLON_CATALOGUE;
        window.command([this] { ready = start_up.Main("", false) == StartUp::End::Ready; });
    }

    test::TempFolder folder;
    test::FakeHost host;
    IniSettingsStore file{folder.path()};
    DeferredSettings store{file};
    test::FakeDialogs dialogs;
    SimulatedBoard board;
    VirtualTime time{host, [this](Host::Time at) { host.advance_to(at); }};
    InProcessPort port{board, time};
    Run run{store, host, port, dialogs};
    StartUp start_up{run};
    frmMain window{run, frmMain::Wishes{.give_up = [] {},
                                        .frame = [](const std::function<void()>& act) { act(); },
                                        .leave = [](bool) {}}};
    bool ready = false;
};

struct Times {
    double sum = 0, slowest = 0;
    std::string slowest_device;
};

// Measures the selection itself and the drawing of the window after it.
Times select_each(Window& window) {
    Times times;
    for (const auto& name : window.run.session.DeviceList) {
        const auto start = Clock::now();
        window.run.form.Combo_device.select(std::string_view{name});
        QApplication::processEvents();
        window.window.grab();
        const double took = milliseconds_since(start);
        times.sum += took;
        if (took > times.slowest) times.slowest = took, times.slowest_device = name;
    }
    return times;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto start = Clock::now();
    QApplication application{argc, argv};
    QApplication::setStyle("Fusion");
    QApplication::setFont(window_font(QApplication::font()));
    Window window;
    QApplication::processEvents();
    if (!window.ready) {
        fmt::print(stderr, "the window did not start\n");
        return 1;
    }
    fmt::print("window ready      {:7.1f} ms, {:.0f} MB\n", milliseconds_since(start), memory());
    const auto devices = static_cast<double>(window.run.session.DeviceList.size());
    for (int round = 1; round <= 3; ++round) {
        const auto times = select_each(window);
        fmt::print("selection, drawn  {:7.1f} ms mean, {:.1f} ms slowest ({})\n",
                   times.sum / devices, times.slowest, times.slowest_device);
    }
    fmt::print("memory            {:7.0f} MB\n", memory());
    return 0;
}
