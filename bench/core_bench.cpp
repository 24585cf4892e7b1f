// SPDX-License-Identifier: MIT
// Measures how long the user waits for a device, a file and a view.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench_run.h"
#include "hex/hex_check.h"
#include "hex/hex_writer.h"
#include "hex/pic18_loader.h"
#include "hex/text_file.h"
#include "image/fill.h"
#include "platform/qt_host.h"

namespace quillon::bench {

namespace {

// A port without a board. The measured commands don't use it.
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

// A file of the device with every word in use, saved into the run's folder.
std::filesystem::path full_file(Core& core, std::string_view device) {
    auto& run = core.bench.run;
    run.form.Combo_device.select(device);
    const unsigned high = is_pic18(run.session.PgmType) ? 0xFF : 0x3F;
    auto& program = run.session.PgmMem;
    for (std::size_t i = 0; i < program_span(run.session); ++i)
        program[i] = static_cast<std::uint8_t>(i % 2 == 0 ? (i / 7) & high : i + i / 256);
    const auto file = core.bench.folder / "full.hex";
    run.files.mnuFileSave_Click(file);
    return file;
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

// The whole Open sequence: device selection, comment scan, load, file check, views, history.
void open_full(benchmark::State& state, const std::string& device) {
    Core core;
    auto& run = core.bench.run;
    const auto file = full_file(core, device);
    run.form.HexFileCheck.Checked.set(true);
    for (auto _ : state) run.files.mnuFileOpen_Click(file);
    if (run.session.LoadResult != "OK") state.SkipWithError("not loaded");
}
BENCHMARK_CAPTURE(open_full, 8K_words, "PIC16F877A")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(open_full, 128_KB, "PIC18F8722")->Unit(benchmark::kMillisecond);

// Reading the file and placing its records.
void load_full_128_KB(benchmark::State& state) {
    Core core;
    const auto file = full_file(core, "PIC18F8722");
    bool ok = true;
    for (auto _ : state)
        ok = load_pic18(read_text_file(file, core.host).text, core.bench.run.session).ok && ok;
    if (!ok) state.SkipWithError("not loaded");
}
BENCHMARK(load_full_128_KB)->Unit(benchmark::kMillisecond);

void check_full_128_KB(benchmark::State& state) {
    Core core;
    const auto text = read_text_file(full_file(core, "PIC18F8722"), core.host).text;
    for (auto _ : state)
        benchmark::DoNotOptimize(check_hex(text, core.bench.run.session, HexAddresses::Folded));
}
BENCHMARK(check_full_128_KB)->Unit(benchmark::kMillisecond);

// The Save command on the host's own files: flushed to the disk and renamed.
void save_full_128_KB(benchmark::State& state) {
    Core core;
    const auto file = full_file(core, "PIC18F8722");
    QtHost disk{QtHost::Interface::CommandLine};
    auto& session = core.bench.run.session;
    for (auto _ : state)
        if (disk.write_file(file, hex_text(session, session.DeviceName)))
            state.SkipWithError("not saved");
}
BENCHMARK(save_full_128_KB)->Unit(benchmark::kMillisecond)->UseRealTime();

void make_text_of_full_128_KB(benchmark::State& state) {
    Core core;
    full_file(core, "PIC18F8722");
    auto& session = core.bench.run.session;
    for (auto _ : state) benchmark::DoNotOptimize(hex_text(session, session.DeviceName));
}
BENCHMARK(make_text_of_full_128_KB)->Unit(benchmark::kMillisecond);

// For comparison: another program that only reads the same file, its start included.
void srec_cat_reads_full_128_KB(benchmark::State& state) {
    Core core;
    const auto command = "srec_cat --disable-sequence-warnings '" +
                         full_file(core, "PIC18F8722").string() + "' -intel -o /dev/null -intel";
    for (auto _ : state)
        if (std::system(command.c_str()) != 0) state.SkipWithError("no srec_cat");
}
BENCHMARK(srec_cat_reads_full_128_KB)->Unit(benchmark::kMillisecond)->UseRealTime();

void show_program_memory(benchmark::State& state, const std::string& name) {
    Core core;
    core.bench.run.form.Combo_device.select(std::string_view{name});
    for (auto _ : state) core.bench.run.views.ShowProgramMemory();
}
BENCHMARK_CAPTURE(show_program_memory, 8K_words, "PIC16F877A")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(show_program_memory, 64K_words, "PIC18F8722")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace quillon::bench
