// SPDX-License-Identifier: MIT
// Fuzz target of the catalogue: the start-up pass over any bytes, then the selection of the first
// devices that it has found.
//
// The checks here hold for any file. The sanitizers find the rest.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "catalogue/bench.h"
#include "catalogue/record_loader.h"

namespace {

using namespace quillon;

void require(bool holds) {
    if (!holds) std::abort();
}

// The sizes stay inside the image, the tables inside their limits.
void check(const test::Bench& bench) {
    const auto& session = bench.session;
    require(session.PgmWords >= 0 && session.PgmWords <= 0x100000);
    require(session.EepBytes >= 0 && session.EepBytes <= most_eeprom_cells(session.PgmType));
    require(bench.catalogue.CmtTable().size() <= 129);
    for (const auto& option : bench.catalogue.options())
        require(option.word >= 1 && option.word <= kConfigWords && !option.name.empty());
    require(session.CatError == !session.CatErrorText.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static test::Bench bench;  // 2 MB and a folder: made once
    const std::string text{bytes, bytes + size};
    bench.folder.write("device6.ini", text);
    bench.session.TempDir.clear();  // no display files
    bench.session.CatError = false;
    bench.session.CatErrorText.clear();
    bench.dialogs.boxes.clear();
    bench.catalogue.LoadDeviceList();
    require(bench.session.DeviceList.size() <= 1025);
    require(bench.session.CatError == !bench.dialogs.boxes.empty());
    bench.session.CatError = false;

    constexpr std::size_t kLoaded = 3;
    // The views of a large part take milliseconds and don't depend on the catalogue.
    constexpr std::int32_t kSelectedWords = 0x800;
    const auto& names = bench.form.Combo_device.Items.get();
    for (std::size_t i = 0; i < std::min(names.size(), kLoaded); ++i) {
        bench.config.ResetConfigGrids();
        bench.load(names[i]);
        check(bench);
        if (bench.session.PgmWords > kSelectedWords) continue;
        bench.form.Combo_device.select(static_cast<int>(i));
        check(bench);
        bench.config.FieldClicked(1, 1, 1);
        bench.config.CmbInit_Click();
        check(bench);
    }
    return 0;
}
