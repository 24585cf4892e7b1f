// SPDX-License-Identifier: MIT
// Compares whole operations with the time that their bytes and required sleeps alone would take.
// They run over a pseudo-terminal at true 57600 baud, with a board that needs no programming time.
//
// The time to compare with isn't added up by hand. The same operation runs once in virtual time,
// where only the line and the sleeps take time.
#include <fmt/format.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <array>
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

// A family's part, and one for each programming type of the parts that no family claims.
constexpr std::array<std::string_view, 13> kDevices{
    "PIC16F877A", "PIC16C54",  "PIC16C57",   "PIC12CE518", "PIC12C672", "PIC12F675", "PIC16C620A",
    "PIC16C715",  "PIC16F84A", "PIC16F628A", "PIC16F76",   "PIC16F819", "PIC16F88",
};
constexpr int kBaud = 57600;
constexpr double kMostRatio = 1.05;
constexpr double kMostProcessor = 0.05;

using Operation = Outcome (Flows::*)();
using Seconds = std::chrono::duration<double>;

void set_up(BenchRun& bench, SimulatedBoard& board, std::string_view device) {
    bench.run.form.Combo_device.select(device);
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

std::vector<Measure> ideal(std::string_view device) {
    test::FakeHost host;
    SimulatedBoard board{{}, BoardTimes::none()};
    VirtualTime time{host, [&](Host::Time to) { host.advance_to(to); }};
    InProcessPort port{board, time, kBaud};
    BenchRun bench{host, port};
    set_up(bench, board, device);
    return measure_all([&](Operation operation) {
        const auto start = host.now();
        if ((bench.run.flows.*operation)() != Outcome::Success) fail("the ideal run failed");
        return Measure{.elapsed = host.now() - start};
    });
}

std::vector<Measure> real(std::string_view device) {
    QtHost host{QtHost::Interface::CommandLine};
    SimulatedBoard board{{}, BoardTimes::none()};
    PtyOptions options;
    options.baud = kBaud;
    options.spin = std::chrono::microseconds{60};
    PtyServer server{board, options};
    std::jthread thread{[&](std::stop_token stop) { server.run(stop); }};
    QtSerialPort port{[&](int) { return server.path(); }};
    BenchRun bench{host, port};
    set_up(bench, board, device);
    port.CommPort(1);
    return measure_all([&](Operation operation) {
        const auto start = host.now();
        const auto used = processor_time();
        if ((bench.run.flows.*operation)() != Outcome::Success) fail("the run on the line failed");
        return Measure{.elapsed = host.now() - start, .processor = processor_time() - used};
    });
}

int report(std::string_view device, const std::vector<Measure>& ideals,
           const std::vector<Measure>& reals) {
    int status = 0;
    for (std::size_t i = 0; i < ideals.size(); ++i) {
        const double ratio = reals[i].elapsed / ideals[i].elapsed;
        const double processor = reals[i].processor / reals[i].elapsed;
        fmt::print(
            "{:10} {:8} {:7.3f} s, bytes and sleeps alone {:7.3f} s: ratio {:.3f} (at most {}), "
            "processor {:.1f} % (at most {:.0f} %)\n",
            device, i == 0 ? "program" : "read", reals[i].elapsed.count(),
            ideals[i].elapsed.count(), ratio, kMostRatio, 100 * processor, 100 * kMostProcessor);
        if (ratio > kMostRatio || processor > kMostProcessor) status = 1;
    }
    return status;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    const QCoreApplication application{argc, argv};
    using namespace quillon::bench;
    int status = 0;
    for (const auto device : kDevices) {
        const auto ideals = ideal(device);
        if (report(device, ideals, real(device)) != 0) status = 1;
    }
    return status;
}
