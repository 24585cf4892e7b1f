// SPDX-License-Identifier: MIT
// nmuFile1 to nmuFile5 hold "folder    device", nmuDevice1 to nmuDevice5 hold the device's index in
// the list and are never visible.
#include "files/history.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "app/text.h"

namespace quillon {

namespace {

constexpr std::string_view kBetween = "    ";  // 4 blanks

// Entries count from 1, as their settings do.
std::string folder_key(std::size_t entry) { return fmt::format("OPEN_DIR{}", entry + 1); }
std::string device_key(std::size_t entry) { return fmt::format("OPEN_Device{}", entry + 1); }

}  // namespace

void FileHistory::add(std::string_view folder, std::string_view DeviceName, int device_index) {
    const auto entry = fmt::format("{}{}{}", lower(folder), kBetween, DeviceName);
    const bool stands = std::ranges::any_of(
        form_.nmuFile, [&](const MenuItem& item) { return item.Caption.get() == entry; });
    if (!stands) {
        for (std::size_t i = kEntries - 1; i > 0; --i) {
            form_.nmuFile[i].Caption.set(form_.nmuFile[i - 1].Caption.get());
            form_.nmuDevice[i].Caption.set(form_.nmuDevice[i - 1].Caption.get());
        }
        form_.nmuFile[0].Caption.set(entry);
        form_.nmuDevice[0].Caption.set(fmt::to_string(device_index));
    }
    save();
    show_entries();
}

void FileHistory::clear() {
    for (std::size_t i = 0; i < kEntries; ++i) {
        form_.nmuFile[i].Caption.set("");
        form_.nmuDevice[i].Caption.set("");
        settings_.save(folder_key(i), "");
        settings_.save(device_key(i), 0);
    }
    show_entries();
}

void FileHistory::restore() {
    for (std::size_t i = 0; i < kEntries; ++i) {
        form_.nmuFile[i].Caption.set(settings_.text(folder_key(i)));
        form_.nmuDevice[i].Caption.set(settings_.text(device_key(i)));
    }
    show_entries();
}

std::string FileHistory::folder(int n) const {
    const auto& caption = caption_of(n);
    const std::string words = trim(replace_all(caption, "=", " = "));
    return words.substr(0, words.find(' '));
}

int FileHistory::device_index(int n) const {
    return settings_.number(device_key(static_cast<std::size_t>(n - 1)), 0);
}

std::string FileHistory::device_name(int n) const {
    const auto& caption = caption_of(n);
    const auto blanks = caption.rfind(kBetween);
    return blanks == std::string::npos ? "" : caption.substr(blanks + kBetween.size());
}

const std::string& FileHistory::caption_of(int n) const {
    return form_.nmuFile.at(static_cast<std::size_t>(n - 1)).Caption.get();
}

void FileHistory::save() {
    for (std::size_t i = 0; i < kEntries; ++i) {
        settings_.save(folder_key(i), form_.nmuFile[i].Caption.get());
        settings_.save(device_key(i), form_.nmuDevice[i].Caption.get());
    }
}

void FileHistory::show_entries() {
    for (std::size_t i = 0; i < kEntries; ++i) {
        form_.nmuFile[i].Visible.set(!form_.nmuFile[i].Caption.get().empty());
        form_.nmuDevice[i].Visible.set(false);
    }
}

}  // namespace quillon
