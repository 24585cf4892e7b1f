// SPDX-License-Identifier: MIT
// The machine as a run sees it: clock, sleeps that keep the interface alive, folders, documents,
// code page, and giving up.
//
// Giving up is a wish until an operation runs: Abandoned is thrown by pump and sleep within the
// life of an Operation only, once for each, and never from inside an event handler.
#pragma once

#include <atomic>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "app/host.h"

namespace quillon {

class QtHost : public Host {
  public:
    enum class Interface : std::uint8_t {
        Window,       // turns run the event loop
        CommandLine,  // turns look for the wish to give up, and cost nothing
    };
    struct Folders {
        // Stands for the documents folder where it is given.
        std::optional<std::filesystem::path> home{};
        // Where device6.ini and the documents are; found from the program's place otherwise.
        std::optional<std::filesystem::path> data{};
    };

    explicit QtHost(Interface interface);
    QtHost(Interface interface, const Folders& folders);

    Time now() const override;
    std::tm local_time() const override;
    void sleep(std::chrono::milliseconds time) override;
    void pump() override;
    std::filesystem::path AppPath() const override { return data_; }
    std::filesystem::path documents_folder() const override { return documents_; }
    bool open_document(const std::string& path_or_url) override;
    std::optional<std::string> write_file(const std::filesystem::path& path,
                                          std::string_view content) override;
    // A text that is valid UTF-8 is taken as that, else as code page 932.
    std::string from_code_page(std::string_view bytes) const override;

    // May be called from a signal handler. The first reason counts; any other one replaces Stopped.
    void give_up(Abandoned::Reason reason) override;
    // From this time on the operation is given up; measured by now().
    void set_deadline(Time deadline) { deadline_ = deadline; }
    bool given_up() const { return reason_.load() != kNone; }

    // The time in which a wait can be given up: from its making to its end. Not to be nested.
    class Operation {
      public:
        explicit Operation(QtHost& host) : host_{host} { host_.armed_ = true; }
        ~Operation() { host_.disarm(); }
        Operation(const Operation&) = delete;
        Operation& operator=(const Operation&) = delete;

      private:
        QtHost& host_;
    };

  private:
    static constexpr int kNone = -1;
    static constexpr int kStopped = static_cast<int>(Abandoned::Reason::Stopped);

    void check();
    void disarm();

    Interface interface_;
    std::filesystem::path data_;
    std::filesystem::path documents_;
    std::optional<Time> deadline_;
    std::atomic<int> reason_{kNone};
    bool armed_ = false;
    int depth_ = 0;  // of turns within turns
};

// The folder that holds device6.ini, seen from the program's: itself, the installed data beside it,
// or the source tree's data above it; the program's own folder where there is none.
std::filesystem::path find_data_folder(const std::filesystem::path& program_folder);

}  // namespace quillon
