// SPDX-License-Identifier: MIT
// A run for the benchmarks, with the real catalogue, its own work folder and no questions.
#pragma once

#include <string_view>

#include "app/host.h"
#include "board/target_facts.h"
#include "run/run.h"
#include "run/start_up.h"
#include "support/fakes.h"

namespace quillon::bench {

struct BenchRun {
    BenchRun(Host& host, SerialPort& port) : run{store, host, port, dialogs} {
        run.session.CatalogueFile = QUILLON_CATALOGUE;
        run.session.TempDir = folder.path().string() + "/";
        run.session.ComNo = 1;
        run.catalogue.LoadDeviceList();
        dialogs.power_answer = 1;
        dialogs.hint_answer = 1;
    }

    // A pattern that leaves no word blank.
    void fill_image() {
        const auto bytes = static_cast<std::size_t>(run.session.PgmWords) * 2;
        const unsigned high = is_12bit(run.session.PgmType) ? 0x0F : 0x3F;
        for (std::size_t i = 0; i < bytes; i += 2) {
            run.session.PgmMem[i] = static_cast<std::uint8_t>(i * 7 / 256 & high);
            run.session.PgmMem[i + 1] = static_cast<std::uint8_t>(i * 7 & 0xFF);
        }
    }

    test::TempFolder folder;
    test::MemoryStore store;
    test::FakeDialogs dialogs;
    Run run;
};

}  // namespace quillon::bench
