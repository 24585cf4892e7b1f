// SPDX-License-Identifier: MIT
// Compares whole operations with the time that their bytes and required sleeps alone would take.
// They run over a pseudo-terminal at true 57600 baud, with a board that needs no programming time.
//
// The time to compare with isn't added up by hand. The same operation runs once in virtual time,
// where only the line and the sleeps take time.
#include <fmt/format.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <thread>
#include <vector>

#include "bench_run.h"
#include "board/in_process_port.h"
#include "board/pty_server.h"
#include "board/session_facts.h"
#include "platform/qt_host.h"
#include "platform/qt_serial_port.h"

namespace quillon::bench {

namespace {

constexpr std::string_view kDevice = "PIC16F877A";
constexpr int kBaud = 57600;
constexpr double kMostRatio = 1.05;
constexpr double kMostProcessor = 0.05;

using Operation = Outcome (Flows::*)();
using Seconds = std::chrono::duration<double>;

void set_up(BenchRun& bench, SimulatedBoard& board) {
    bench.run.form.Combo_device.select(kDevice);
    bench.fill_image();
    board.target() = blank_target(facts_of(bench.run.session));
}

// Processor time of the calling thread.
Seconds processor_time() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return Seconds{seconds(usage.ru_utime) + seconds(usage.ru_stime)};
}

struct Measure {
    Seconds elapsed{};
    Seconds processor{};
};

std::vector<Measure> measure_all(const std::function<Measure(Operation)>& measure) {
    return {measure(&Flows::Command_program), measure(&Flows::Command_read)};
}

[[noreturn]] void fail(std::string_view what) {
    fmt::print(stderr, "{}\n", what);
    std::exit(1);
}

std::vector<Measure> ideal() {
    test::FakeHost host;
    SimulatedBoard board{{}, BoardTimes::none()};
    VirtualTime time{host, [&](Host::Time to) { host.advance_to(to); }};
    InProcessPort port{board, time, kBaud};
    BenchRun bench{host, port};
    set_up(bench, board);
    return measure_all([&](Operation operation) {
        const auto start = host.now();
        if ((bench.run.flows.*operation)() != Outcome::Success) fail("the ideal run failed");
        return Measure{.elapsed = host.now() - start};
    });
}

std::vector<Measure> real() {
    QtHost host{QtHost::Interface::CommandLine};
    SimulatedBoard board{{}, BoardTimes::none()};
    PtyOptions options;
    options.baud = kBaud;
    options.spin = std::chrono::microseconds{60};
    PtyServer server{board, options};
    std::jthread thread{[&](std::stop_token stop) { server.run(stop); }};
    QtSerialPort port{[&](int) { return server.path(); }};
    BenchRun bench{host, port};
    set_up(bench, board);
    port.CommPort(1);
    fmt::print("pseudo-terminal's own delay: {:.0f} us to the board, {:.0f} us from it\n",
               static_cast<double>(server.delay_to_board().count()) / 1000,
               static_cast<double>(server.delay_from_board().count()) / 1000);
    return measure_all([&](Operation operation) {
        const auto start = host.now();
        const auto used = processor_time();
        if ((bench.run.flows.*operation)() != Outcome::Success) fail("the run on the line failed");
        return Measure{.elapsed = host.now() - start, .processor = processor_time() - used};
    });
}

int report(const std::vector<Measure>& ideals, const std::vector<Measure>& reals) {
    int status = 0;
    for (std::size_t i = 0; i < ideals.size(); ++i) {
        const double ratio = reals[i].elapsed / ideals[i].elapsed;
        const double processor = reals[i].processor / reals[i].elapsed;
        fmt::print(
            "{:8} {:7.3f} s, bytes and sleeps alone {:7.3f} s: ratio {:.3f} (at most {}), "
            "processor {:.1f} % (at most {:.0f} %)\n",
            i == 0 ? "program" : "read", reals[i].elapsed.count(), ideals[i].elapsed.count(), ratio,
            kMostRatio, 100 * processor, 100 * kMostProcessor);
        if (ratio > kMostRatio || processor > kMostProcessor) status = 1;
    }
    return status;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    const QCoreApplication application{argc, argv};
    using namespace quillon::bench;
    const auto ideals = ideal();
    return report(ideals, real());
}
