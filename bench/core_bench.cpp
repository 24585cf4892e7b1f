// SPDX-License-Identifier: MIT
// How long the user waits for a device, a file and a view.
#include <benchmark/benchmark.h>

#include <array>
#include <fstream>
#include <string>

#include "app/text.h"
#include "bench_run.h"
#include "image/fill.h"

namespace quillon::bench {

namespace {

// A port that nobody speaks to.
class NoPort : public SerialPort {
  public:
    void CommPort(int) override {}
    PortOpen open() override { return PortOpen::Unavailable; }
    void close() override {}
    bool is_open() const override { return false; }
    void RTSEnable(bool) override {}
    std::size_t InBufferCount() override { return 0; }
    void discard_input() override {}
    void discard_output() override {}
    void write(std::span<const std::uint8_t>) override {}
    std::vector<std::uint8_t> read() override { return {}; }
    void wait_for_data(std::size_t, std::chrono::microseconds) override {}
};

struct Core {
    test::FakeHost host;
    NoPort port;
    BenchRun bench{host, port};
};

// Every word of an 8K-word part, sixteen bytes a record.
std::string full_hex_file() {
    std::string text;
    for (unsigned address = 0; address < 0x4000; address += 16) {
        std::string record = "10" + hex(address, 4) + "00";
        unsigned sum = 0x10 + address / 256 + address % 256;
        for (unsigned i = 0; i < 16; ++i) {
            const unsigned byte = i % 2 == 1 ? (address / 16) & 0x3F : (address + i) & 0xFF;
            record += hex(byte, 2);
            sum += byte;
        }
        text += ":" + record + hex((0x100 - sum % 256) % 256, 2) + "\r\n";
    }
    return text + ":00000001FF\r\n";
}

void select_device(benchmark::State& state, const std::string& name) {
    Core core;
    for (auto _ : state) core.bench.run.form.Combo_device.select(std::string_view{name});
}
BENCHMARK_CAPTURE(select_device, first_in_the_file, "PIC10F200")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(select_device, PIC16F877A, "PIC16F877A")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(select_device, largest_image, "PIC18F8722")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(select_device, last_in_the_file, "ZQ-LDR418")->Unit(benchmark::kMillisecond);

void select_slowest_of_all(benchmark::State& state) {
    Core core;
    double slowest = 0;
    for (auto _ : state) {
        for (const auto& name : core.bench.run.session.DeviceList) {
            const auto start = std::chrono::steady_clock::now();
            core.bench.run.form.Combo_device.select(std::string_view{name});
            const std::chrono::duration<double, std::milli> took =
                std::chrono::steady_clock::now() - start;
            slowest = std::max(slowest, took.count());
        }
    }
    state.counters["slowest_ms"] = slowest;
    state.counters["devices"] = static_cast<double>(core.bench.run.session.DeviceList.size());
}
BENCHMARK(select_slowest_of_all)->Unit(benchmark::kMillisecond)->Iterations(5);

// The whole Open sequence: device selected anew, comment scan, load, views, history.
void open_full_8K_words(benchmark::State& state) {
    Core core;
    auto& run = core.bench.run;
    run.form.Combo_device.select(std::string_view{"PIC16F877A"});
    const auto file = core.bench.folder.write("full.hex", full_hex_file());
    for (auto _ : state) run.files.mnuFileOpen_Click(file);
    if (run.session.LoadResult != "OK") state.SkipWithError("not loaded");
}
BENCHMARK(open_full_8K_words)->Unit(benchmark::kMillisecond);

void show_program_memory(benchmark::State& state, const std::string& name) {
    Core core;
    core.bench.run.form.Combo_device.select(std::string_view{name});
    for (auto _ : state) core.bench.run.views.ShowProgramMemory();
}
BENCHMARK_CAPTURE(show_program_memory, 8K_words, "PIC16F877A")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(show_program_memory, 64K_words, "PIC18F8722")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace quillon::bench
