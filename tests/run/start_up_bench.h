// SPDX-License-Identifier: MIT
// A whole run without a window: settings in memory, virtual time, a scripted port, folders that are
// gone when the test ends.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "run/run.h"
#include "run/start_up.h"
#include "support/fakes.h"
#include "support/message_log.h"
#include "support/scripted_port.h"

namespace quillon::test {

inline constexpr std::string_view kIdentity = "ZQ-LDR412A V6.80\r\n";

// A minimal PIC16F84A program: one word at address 0.
inline constexpr std::string_view kHexFile = ":02000000A5287F\r\n:00000001FF\r\n";

class StartUpBench : public testing::Test {
  protected:
    StartUpBench() : old_folder_{std::filesystem::current_path()} {
        host.app_folder = app_folder.path();
        host.documents = documents.path();
        run.session.CatalogueFile = QUILLON_CATALOGUE;
        set("ComNo", "3");
        // The port dialog is cancelled unless a test replaces this.
        dialogs.on_option = [this] { run.option.Command1_Click(); };
    }
    ~StartUpBench() override { std::filesystem::current_path(old_folder_); }

    void set(std::string_view key, std::string_view value) { store.write("Settings6", key, value); }
    void unset(std::string_view key) { store.values.erase({"Settings6", std::string{key}}); }

    // The board that Writer_Find meets: it answers the second "?".
    void with_board() {
        port.when("?");
        port.when("?", kIdentity);
    }
    StartUp::End start(std::string_view tail = "") { return start_up.Main(tail, false); }

    std::string work(std::string_view name = "") const {
        return (documents.path() / "QUILLON4_TEMP" / name).string();
    }
    void put_work_file(std::string_view name, std::string_view content) const {
        std::filesystem::create_directories(work());
        std::ofstream{work(name)} << content;
    }
    std::string work_file(std::string_view name) const {
        return documents.read(std::string{"QUILLON4_TEMP/"} + std::string{name});
    }
    bool said(std::string_view line) const {
        return std::ranges::find(log.lines, line) != log.lines.end();
    }
    const std::string& waiting_text() const { return run.form.RichTxtPgmMem.Text.get(); }
    const std::string& caption() const { return run.form.Caption.get(); }

    TempFolder app_folder;
    TempFolder documents;
    MemoryStore store;
    Journal journal;
    FakeHost host;
    ScriptedPort port{host, journal};
    FakeDialogs dialogs;
    quillon::Run run{store, host, port, dialogs};
    MessageLog log{run.messages};
    StartUp start_up{run};

  private:
    std::filesystem::path old_folder_;
};

}  // namespace quillon::test
