// SPDX-License-Identifier: MIT
#include "board/faults.h"

#include <algorithm>
#include <utility>

namespace quillon {
namespace {

using Kind = Fault::Kind;

// True for a fault that kills the line for good, not just one byte.
bool is_breakdown(Kind kind) { return kind == Kind::SilentAfter || kind == Kind::UnplugAfter; }

}  // namespace

void FaultDesk::add(Fault fault) {
    faults_.push_back({.fault = std::move(fault)});
    place(faults_.back());
}

void FaultDesk::begin(std::string_view letters) {
    letters_ = letters;
    for (auto& armed : faults_) {
        if (!armed.fault.place.empty()) armed.count = 0;
        place(armed);
    }
}

void FaultDesk::place(Armed& armed) {
    armed.here = letters_.starts_with(armed.fault.place);
    if (armed.here && is_breakdown(armed.fault.kind) && armed.fault.n == 0) armed.spent = true;
}

FaultDesk::Sending FaultDesk::send(std::uint8_t byte, bool end_code) {
    Sending sending{.bytes = {byte}};
    if (broken_down(Kind::UnplugAfter) || broken_down(Kind::SilentAfter)) {
        sending.bytes.clear();
        return sending;
    }
    for (auto& armed : faults_) {
        if (!armed.here) continue;
        ++armed.count;
        if (!armed.spent) strike(armed, byte, end_code, sending);
    }
    return sending;
}

void FaultDesk::strike(Armed& armed, std::uint8_t byte, bool end_code, Sending& sending) {
    const Fault& fault = armed.fault;
    if (fault.kind == Kind::NoEndCode) {
        if (!end_code) return;
        sending.bytes.clear();
        armed.spent = true;
        return;
    }
    if (armed.count != fault.n) return;
    switch (fault.kind) {
        case Kind::Drop:
            sending.bytes.clear();
            break;
        case Kind::Alter:
            sending.bytes = {fault.value.value_or(static_cast<std::uint8_t>(~byte))};
            break;
        case Kind::Add:
            sending.bytes.push_back(fault.value.value_or(std::uint8_t{0}));
            break;
        case Kind::Late:
            sending.late = fault.time;
            break;
        case Kind::SilentAfter:
        case Kind::UnplugAfter:
            break;
        default:
            return;
    }
    armed.spent = true;
}

bool FaultDesk::aborts_write(std::size_t items_taken) {
    for (auto& armed : faults_) {
        if (armed.fault.kind != Kind::AbortWrite || armed.spent || !armed.here) continue;
        if (armed.fault.n != items_taken) continue;
        armed.spent = true;
        return true;
    }
    return false;
}

bool FaultDesk::ignores_star() const {
    const Fault* fault = standing(Kind::IgnoreBursts);
    return fault != nullptr && fault->n > 0;
}

bool FaultDesk::ignores_question() {
    for (auto& armed : faults_) {
        if (armed.fault.kind != Kind::IgnoreBursts || armed.fault.n == 0) continue;
        --armed.fault.n;
        return true;
    }
    return false;
}

bool FaultDesk::broken_down(Kind kind) const {
    return std::ranges::any_of(
        faults_, [&](const Armed& armed) { return armed.fault.kind == kind && armed.spent; });
}

const Fault* FaultDesk::standing(Kind kind) const {
    const auto found =
        std::ranges::find_if(faults_, [&](const Armed& armed) { return armed.fault.kind == kind; });
    return found == faults_.end() ? nullptr : &found->fault;
}

bool FaultDesk::stuck(Kind kind, std::size_t address) const {
    return std::ranges::any_of(faults_, [&](const Armed& armed) {
        return armed.fault.kind == kind && armed.fault.n == address;
    });
}

}  // namespace quillon
