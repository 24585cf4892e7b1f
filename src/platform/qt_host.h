// SPDX-License-Identifier: MIT
// The machine as a run sees it: clock, sleeps that keep the interface alive, folders, documents,
// code page, and giving up.
//
// give_up() only records a request. pump() and sleep() throw Abandoned for it, but only while an
// Operation exists, once for each Operation, and never from inside an event handler.
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
        CommandLine,  // turns only check for a request to give up
    };
    struct Folders {
        // Used in place of the documents folder, if set.
        std::optional<std::filesystem::path> home{};
        // Holds device6.ini and the documents. If unset, it is found from the program's folder.
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
    // Returns valid UTF-8 unchanged and decodes anything else from code page 932.
    std::string from_code_page(std::string_view bytes) const override;

    // May be called from a signal handler. The first reason is kept, but any reason replaces
    // Stopped.
    void give_up(Abandoned::Reason reason) override;
    // The operation is given up when now() reaches this time.
    void set_deadline(Time deadline) { deadline_ = deadline; }
    bool given_up() const { return reason_.load() != kNone; }

    // While an Operation exists, a wait can be given up. Operations must not be nested.
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

// Finds the folder of device6.ini: the program's own folder, the installed data beside it, or the
// source tree's data above it. Returns the program's folder if none of them holds the file.
std::filesystem::path find_data_folder(const std::filesystem::path& program_folder);

}  // namespace quillon
