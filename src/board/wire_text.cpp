// SPDX-License-Identifier: MIT
#include "board/wire_text.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <span>

namespace quillon {
namespace {

using Kind = WireForm::Kind;
using Way = WireEvent::Way;

constexpr std::size_t kShownBytes = 40;
constexpr auto kStale = std::chrono::milliseconds{50};
constexpr std::uint8_t kEraseWithPlace = 0x11;  // this mode byte is followed by two more
constexpr std::size_t kIdentityField18 = 0x3FFFFF;

bool printable(std::uint8_t byte) { return byte > 0x20 && byte < 0x7F; }

std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const auto byte : bytes) text += fmt::format("{}{:02X}", text.empty() ? "" : " ", byte);
    return text;
}

std::string letter(std::uint8_t byte) {
    return printable(byte) ? std::string(1, static_cast<char>(byte))
                           : fmt::format("\\x{:02X}", byte);
}

std::string shown(std::span<const std::uint8_t> bytes) {
    if (bytes.size() <= kShownBytes) return hexadecimal(bytes);
    bool alike = bytes.size() % 2 == 0;
    for (std::size_t i = 2; alike && i < bytes.size(); ++i) alike = bytes[i] == bytes[i - 2];
    if (alike) return fmt::format("{} x {}", bytes.size() / 2, hexadecimal(bytes.first(2)));
    return fmt::format("{} bytes {:08X}", bytes.size(), crc32(bytes));
}

// The bytes in the place of the end code.
std::string closing(std::span<const std::uint8_t> bytes) {
    return bytes.size() == 1 && bytes[0] == '@' ? "@" : hexadecimal(bytes);
}

std::string times(std::size_t count) { return count == 1 ? "" : fmt::format(" x{}", count); }

std::string identity(std::span<const std::uint8_t> bytes) {
    const bool ended = bytes.size() >= 2 && bytes[bytes.size() - 2] == '\r' && bytes.back() == '\n';
    std::string text;
    for (const auto byte : bytes.first(bytes.size() - (ended ? 2 : 0)))
        text += byte == ' ' ? " " : letter(byte);
    return ended ? text : text + " (no CR LF)";
}

}  // namespace

void WireText::add(const WireEvent& event) {
    if (event.way == Way::FromBoard) {
        open_ = true;
        take_part(event.way, event.bytes);
        return;
    }
    if (begins_line(event)) end_line();
    open_ = true;
    for (const auto byte : event.bytes) take(byte);
    last_write_ = event.at;
}

std::string WireText::finish() {
    end_line();
    return done_;
}

bool WireText::unfinished() const {
    return !form_ || form_->kind == Kind::Unknown || parameters_.size() < form_->parameters;
}

bool WireText::begins_line(const WireEvent& event) const {
    if (!open_ || letters_.empty()) return open_;
    const std::uint8_t first = event.bytes.front();
    const bool calls = letters_.front() == '*' && !form_ && parts_.empty();
    if (first == '*' && calls) return false;
    if (calls) return first != '?';
    if (unfinished()) {
        // A letter is never "*" or "?"; a parameter can be any byte.
        const bool in_letters = !form_;
        if (in_letters && (first == '*' || first == '?')) return true;
        if (form_ && form_->kind == Kind::Unknown && first == '*') return true;
        return event.at - last_write_ >= kStale;
    }
    if (form_->kind == Kind::Read) return first != '@';
    return form_->kind != Kind::Write || !item_due(event);
}

bool WireText::item_due(const WireEvent& event) const {
    const std::size_t due = data_due();
    if (host_data_ >= due) return false;
    const std::uint8_t first = event.bytes.front();
    const bool single = event.bytes.size() == 1;
    if (single && first == '*' && event.at - last_write_ >= kStale) return false;
    // Items of one byte may come one at a time, and so may the two bytes of a single word.
    if (!single || due <= 2 || letters_.ends_with("Xwed")) return true;
    return std::string_view{"nN*?mp"}.find(static_cast<char>(first)) == std::string_view::npos;
}

std::size_t WireText::parameter(std::size_t from, std::size_t count) const {
    std::size_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | parameters_.at(from + i);
    return value;
}

std::size_t WireText::data_due() const {
    if (parameters_.size() == 2) return 2 * parameter(0, 2);
    const std::size_t count = parameter(3, 3);
    if (form_->kind == Kind::Read)
        return parameter(0, 3) == kIdentityField18 && count == kIdentityField18 ? 2 : count;
    switch (letters_.back()) {
        case 's':
            return (parameter(3, 2) + 1) * 8;
        case 'p':
        case 'm':
            return count == 0 ? 0 : (count - 1) * 8192;
        case 'c':
            return parameter(0, 3) == 11 ? 2 * count : count;
        default:
            return count;
    }
}

void WireText::take(std::uint8_t byte) {
    if (!form_) {
        letters_ += static_cast<char>(byte);
        form_ = wire_form(letters_);
        return;
    }
    const bool open_ended = form_->kind == Kind::Unknown && parts_.empty();
    if (open_ended || parameters_.size() < form_->parameters) {
        parameters_.push_back(byte);
        const bool erase = letters_.size() == 3 && letters_[1] == 'b' &&
                           (letters_[2] == 'd' || letters_[2] == 'D');
        if (erase && parameters_.size() == 1 && byte == kEraseWithPlace) form_->parameters = 3;
        return;
    }
    ++host_data_;
    take_part(Way::ToBoard, {byte});
}

void WireText::take_part(Way way, const std::vector<std::uint8_t>& bytes) {
    if (parts_.empty() || parts_.back().way != way) parts_.push_back({way, {}});
    auto& all = parts_.back().bytes;
    all.insert(all.end(), bytes.begin(), bytes.end());
}

void WireText::end_line() {
    if (!open_) return;
    std::string line = head();
    if (form_ && form_->kind == Kind::Read)
        line += read();
    else if (form_ && form_->kind == Kind::Write)
        line += write();
    else
        line += answer();
    done_ += line + "\n";
    open_ = false;
    letters_.clear();
    parameters_.clear();
    form_.reset();
    parts_.clear();
    host_data_ = 0;
}

std::string WireText::head() const {
    if (letters_.empty()) return {};
    std::string text = "> ";
    for (const char c : letters_) text += letter(static_cast<std::uint8_t>(c));
    if (!parameters_.empty()) text += " " + hexadecimal(parameters_);
    return text;
}

std::string WireText::answer() const {
    std::string text;
    std::size_t seen = 0;
    for (const auto& part : parts_) {
        const std::span<const std::uint8_t> bytes{part.bytes};
        text += letters_.empty() && text.empty() ? "" : "  ";
        if (part.way == Way::ToBoard) {
            text += "> " + shown(bytes);
        } else if (form_ && form_->kind == Kind::Text) {
            text += "< " + identity(bytes);
        } else {
            const std::size_t due = form_ ? form_->reply - std::min(seen, form_->reply) : 0;
            const auto body = bytes.first(std::min(due, bytes.size()));
            const auto rest = bytes.subspan(body.size());
            const bool ends = form_ && form_->kind == Kind::Reply && letters_ != "mD";
            text += "< " + shown(body);
            if (!body.empty() && !rest.empty()) text += " ";
            text += ends ? closing(rest) : hexadecimal(rest);
            seen += bytes.size();
        }
    }
    return text;
}

std::string WireText::read() const {
    std::vector<std::uint8_t> sent;
    std::size_t acknowledges = 0;
    for (const auto& part : parts_) {
        if (part.way == Way::ToBoard)
            acknowledges += part.bytes.size();
        else
            sent.insert(sent.end(), part.bytes.begin(), part.bytes.end());
    }
    const bool complete = parameters_.size() >= form_->parameters;
    const std::size_t due = complete ? data_due() : 0;
    const std::span<const std::uint8_t> bytes{sent};
    const auto body = bytes.first(std::min(due, bytes.size()));
    const auto rest = bytes.subspan(body.size());
    std::string text;
    if (!body.empty()) text += "  < " + shown(body);
    if (acknowledges > 0) text += "  > @" + times(acknowledges);
    if (!rest.empty()) text += "  < " + closing(rest);
    return text;
}

std::string WireText::write() const {
    std::string text;
    std::vector<std::uint8_t> ready;
    std::vector<std::uint8_t> items;
    const auto fold = [&] {
        const bool alike = std::ranges::all_of(ready, [&](auto byte) { return byte == ready[0]; });
        if (!ready.empty())
            text += "  < " + (alike ? letter(ready[0]) + times(ready.size()) : shown(ready));
        if (!items.empty()) text += "  > " + shown(items);
        ready.clear();
        items.clear();
    };
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const auto& bytes = parts_[i].bytes;
        if (parts_[i].way == Way::ToBoard) {
            items.insert(items.end(), bytes.begin(), bytes.end());
        } else if (bytes.size() == 1 && i + 1 < parts_.size()) {
            ready.push_back(bytes[0]);
        } else {
            fold();
            text += "  < " + closing(bytes);
        }
    }
    fold();
    return text;
}

}  // namespace quillon
