// SPDX-License-Identifier: MIT
// Stand-ins for the machine and the user: a clock that moves only when something sleeps, answers
// given beforehand, a settings store in memory, and a folder that is removed when the test ends.
#pragma once

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/dialogs.h"
#include "app/host.h"
#include "app/settings.h"

namespace quillon::test {

// A new folder for one test, removed with its content.
class TempFolder {
  public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

    std::filesystem::path write(std::string_view name, std::string_view content) const {
        std::ofstream{path_ / name, std::ios::binary} << content;
        return path_ / name;
    }
    std::string read(std::string_view name) const {
        std::ifstream file{path_ / name, std::ios::binary};
        return {std::istreambuf_iterator<char>{file}, {}};
    }

  private:
    std::filesystem::path path_;
};

class FakeHost : public Host {
  public:
    Time now() const override { return now_; }
    std::tm local_time() const override {
        std::tm time{};
        time.tm_year = 126, time.tm_mon = 10, time.tm_mday = 20;
        time.tm_hour = 14, time.tm_min = 3, time.tm_sec = 22;
        return time;
    }
    void sleep(std::chrono::milliseconds time) override {
        sleeps.push_back(time);
        advance(time);
        pump();
    }
    void pump() override {
        ++pumps;
        if (on_pump) on_pump();
        if (wish_) throw Abandoned{*std::exchange(wish_, std::nullopt)};
    }
    void give_up(Abandoned::Reason reason) override { wish_ = reason; }
    std::filesystem::path AppPath() const override { return app_folder; }
    std::filesystem::path documents_folder() const override { return documents; }
    bool open_document(const std::string& path_or_url) override {
        opened.push_back(path_or_url);
        return opens;
    }
    std::optional<std::string> write_file(const std::filesystem::path& path,
                                          std::string_view content) override {
        if (!write_problem.empty()) return write_problem;
        std::ofstream file{path, std::ios::binary | std::ios::trunc};
        file << content;
        return file ? std::optional<std::string>{} : "can't be written";
    }
    // Returns the bytes unchanged. Tests of the conversion use the real host.
    std::string from_code_page(std::string_view bytes) const override { return std::string{bytes}; }

    void advance(Time time) {
        const Time target = now_ + time;
        now_ = target;
        if (on_advance) on_advance(target);
    }
    void advance_to(Time time) {
        if (time > now_) advance(time - now_);
    }

    std::filesystem::path app_folder;
    std::filesystem::path documents;
    std::vector<std::string> opened;
    std::vector<std::chrono::milliseconds> sleeps;
    std::function<void()> on_pump;             // may throw Abandoned
    std::function<void(Time now)> on_advance;  // the simulated board follows the clock
    int pumps = 0;
    bool opens = true;
    std::string write_problem;  // what write_file() returns, "" to write

  private:
    Time now_{};
    std::optional<Abandoned::Reason> wish_;
};

// Gives the answers in their order, one a box. Without an answer a box is refused (Cancel, No, Ok).
class FakeDialogs : public Dialogs {
  public:
    BoxAnswer box(const MessageBox& asked) override {
        boxes.push_back(asked);
        if (!answers.empty()) {
            const auto answer = answers.front();
            answers.pop_front();
            return answer;
        }
        switch (asked.buttons) {
            case BoxButtons::Ok:
                return BoxAnswer::Ok;
            case BoxButtons::OkCancel:
                return BoxAnswer::Cancel;
            case BoxButtons::YesNo:
                return BoxAnswer::No;
        }
        return BoxAnswer::Cancel;
    }
    std::optional<std::filesystem::path> file(const FileDialog& dialog) override {
        file_dialogs.push_back(dialog);
        return chosen_file;
    }
    int frmHint(const HintQuestion& question) override {
        hints.push_back(question);
        return hint_answer;
    }
    int Frm_VPP_DECIDE(const std::string& Label1) override {
        power_questions.push_back(Label1);
        return power_answer;
    }
    void frmOption() override {
        ++options_shown;
        if (on_option) on_option();
    }
    void frmDeviceSelect() override {
        ++device_selects_shown;
        if (on_device_select) on_device_select();
    }

    std::deque<BoxAnswer> answers;
    std::vector<MessageBox> boxes;
    std::vector<FileDialog> file_dialogs;
    std::optional<std::filesystem::path> chosen_file;
    std::vector<HintQuestion> hints;
    int hint_answer = 2;
    std::vector<std::string> power_questions;
    int power_answer = 0;
    int options_shown = 0;
    int device_selects_shown = 0;
    std::function<void()> on_option;
    std::function<void()> on_device_select;
};

class MemoryStore : public SettingsStore {
  public:
    std::optional<std::string> read(std::string_view section, std::string_view key) override {
        const auto found = values.find({std::string{section}, std::string{key}});
        if (found == values.end()) return std::nullopt;
        return found->second;
    }
    bool write(std::string_view section, std::string_view key, std::string_view value) override {
        if (!writable) return false;
        values[{std::string{section}, std::string{key}}] = std::string{value};
        return true;
    }
    std::string operator[](std::string_view key) {
        return read(Settings::kSection, key).value_or("<none>");
    }

    std::map<std::pair<std::string, std::string>, std::string> values;
    bool writable = true;
};

}  // namespace quillon::test
