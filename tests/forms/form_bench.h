// SPDX-License-Identifier: MIT
// The real window over a real run. The core, the catalogue and the simulated board are the
// program's own. The clock is virtual, and boxes and file dialogs are answered in advance.
#pragma once

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>

#include "board/in_process_port.h"
#include "board/session_facts.h"
#include "forms/frmMain.h"
#include "forms/simulated_socket.h"
#include "run/run.h"
#include "run/start_up.h"
#include "support/fakes.h"

namespace quillon::test {

class FormBench {
  public:
    explicit FormBench(std::string_view device = "PIC16F877A") {
        host.app_folder = folder.path() / "";
        host.documents = folder.path();
        host.on_pump = [this] { pump(); };
        store.write(Settings::kSection, "ComNo", "1");
        store.write(Settings::kSection, "mnuBoardInfomation", "False");
        run = std::make_unique<Run>(store, host, port, dialogs);
        run->session.CatalogueFile = QUILLON_CATALOGUE;
        start_up = std::make_unique<StartUp>(*run);
        window = std::make_unique<frmMain>(
            *run, frmMain::Wishes{.give_up = [this] { given_up = true; },
                                  .frame =
                                      [this](const std::function<void()>& act) {
                                          armed_ = true;
                                          act();
                                          armed_ = false;
                                      },
                                  .leave =
                                      [this](bool minimized) {
                                          ++leaves;
                                          start_up->shutdown(minimized);
                                      }});
        window->command([this] { end = start_up->Main("", false); });
        if (!device.empty()) select(device);
    }

    void select(std::string_view device) {
        run->form.Combo_device.select(device);
        board.target() = blank_target(facts_of(run->session));
    }

    template <typename Widget>
    Widget* find(const char* name) const {
        auto* widget = window->findChild<Widget*>(name);
        if (widget == nullptr) ADD_FAILURE() << "no widget " << name;
        return widget;
    }
    template <typename Widget>
    void click(const char* name) const {
        QTest::mouseClick(find<Widget>(name), Qt::LeftButton);
    }
    std::string message() const { return run->form.LabelCmt.Caption.get(); }

    TempFolder folder;
    FakeHost host;
    MemoryStore store;
    FakeDialogs dialogs;
    SimulatedBoard board;
    VirtualTime time{host, [this](Host::Time at) { host.advance_to(at); }};
    InProcessPort port{board, time};
    std::unique_ptr<Run> run;
    std::unique_ptr<StartUp> start_up;
    std::unique_ptr<frmMain> window;
    StartUp::End end{};
    bool given_up = false;
    int leaves = 0;
    // Called each time a wait gives the interface a turn.
    std::function<void()> on_turn;

  private:
    void pump() {
        ++depth_;
        if (on_turn) on_turn();
        QApplication::processEvents();
        --depth_;
        if (!armed_ || depth_ != 0 || !given_up) return;
        armed_ = false;
        throw Abandoned{Abandoned::Reason::Closed};
    }

    bool armed_ = false;
    int depth_ = 0;
};

}  // namespace quillon::test
