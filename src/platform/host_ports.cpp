// SPDX-License-Identifier: MIT
#include "platform/host_ports.h"

#include <fmt/format.h>

#include <QSerialPortInfo>
#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "app/text.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSection = "HostPorts";
constexpr std::string_view kNotConnected = "（未接続）";
// by-id names the adapter itself. by-path names its socket, for adapters without a serial number.
constexpr std::array<std::string_view, 2> kLastingNames{"/dev/serial/by-id", "/dev/serial/by-path"};

std::string key(int number) { return fmt::format("COM{}", number); }

std::size_t index(int number) { return static_cast<std::size_t>(number); }

std::string lasting_name(const std::string& path) {
    std::error_code error;
    for (const auto folder : kLastingNames)
        for (fs::directory_iterator entry{folder, error}, end; !error && entry != end;
             entry.increment(error))
            if (fs::equivalent(entry->path(), path, error)) return entry->path().string();
    return path;
}

// 7 for "COM7" in upper or lower case; nothing for any other name.
std::optional<int> com_number(std::string_view name) {
    if (!upper(name).starts_with("COM")) return std::nullopt;
    int number = 0;
    const char* last = name.data() + name.size();
    const auto [end, error] = std::from_chars(name.data() + 3, last, number);
    if (error != std::errc{} || end != last || number < 1) return std::nullopt;
    return number;
}

}  // namespace

std::vector<FoundPort> discover_ports() {
    std::vector<FoundPort> ports;
    for (const auto& info : QSerialPortInfo::availablePorts()) {
        const std::string path = info.systemLocation().toStdString();
#ifdef Q_OS_WIN
        ports.push_back({info.portName().toStdString(), info.portName().toStdString(),
                         info.description().toStdString()});
#else
        ports.push_back({path, lasting_name(path), info.description().toStdString()});
#endif
    }
    std::ranges::sort(ports, {}, [](const FoundPort& port) {
        return std::pair{port.path.size(), port.path};  // ttyUSB2 before ttyUSB10
    });
    return ports;
}

HostPorts::HostPorts(SettingsStore& store, Discover discover)
    : store_{store}, discover_{std::move(discover)} {
    for (int number = 1; number <= kPorts; ++number)
        given_[index(number)] = store_.read(kSection, key(number)).value_or("");
    refresh();
}

void HostPorts::refresh() {
    found_ = discover_();
    for (const auto& port : found_) {
        if (number_of(port.lasting) != 0) continue;
        if (const auto own = com_number(port.path)) {
            if (*own <= kPorts) given_[index(*own)] = port.lasting;
        } else if (const int number = free_number()) {
            keep(number, port.lasting);
        }
    }
}

int HostPorts::number_of(const std::string& lasting) const {
    const auto place = std::ranges::find(given_, lasting);
    return place == given_.end() ? 0 : static_cast<int>(place - given_.begin());
}

// 0 if all 20 numbers are in use by ports that are connected or named for this run.
int HostPorts::free_number() const {
    for (int number = 1; number <= kPorts; ++number)
        if (given_[index(number)].empty() && named_[index(number)].empty()) return number;
    for (int number = 1; number <= kPorts; ++number)
        if (found(number) == nullptr && named_[index(number)].empty()) return number;
    return 0;
}

void HostPorts::keep(int number, const std::string& lasting) {
    given_[index(number)] = lasting;
    store_.write(kSection, key(number), lasting);
}

const FoundPort* HostPorts::found(int number) const {
    const auto& lasting = given_[index(number)];
    const auto port = std::ranges::find(found_, lasting, &FoundPort::lasting);
    return lasting.empty() || port == found_.end() ? nullptr : &*port;
}

int HostPorts::assign(const std::string& name) {
    if (const auto number = com_number(name)) return *number;
    std::error_code error;
    const std::string real = fs::weakly_canonical(name, error).string();
    for (const auto& port : found_)
        if (port.lasting == name || port.path == name || port.path == real)
            if (const int number = number_of(port.lasting)) return number;
    const std::string path = fs::absolute(name, error).string();
    if (const auto named = std::ranges::find(named_, path); named != named_.end())
        return static_cast<int>(named - named_.begin());
    int number = kPorts;
    while (number > 1 && !(given_[index(number)].empty() && named_[index(number)].empty()))
        --number;
    if (!given_[index(number)].empty()) number = kPorts;  // all are given: take over the last one
    named_[index(number)] = path;
    return number;
}

std::string HostPorts::path(int number) const {
    if (number < 1 || number > kPorts) return {};
    if (const auto& named = named_[index(number)]; !named.empty()) return named;
    if (const auto* port = found(number)) return port->path;
#ifdef Q_OS_WIN
    return key(number);
#else
    return given_[index(number)];
#endif
}

std::string HostPorts::describe(int number) const {
    if (number < 1 || number > kPorts) return {};
    if (const auto& named = named_[index(number)]; !named.empty()) return named;
    if (const auto* port = found(number))
        return port->text.empty() ? port->path : fmt::format("{} ({})", port->path, port->text);
    const auto& lasting = given_[index(number)];
    return lasting.empty() ? "" : fmt::format("{} {}", lasting, kNotConnected);
}

}  // namespace quillon
