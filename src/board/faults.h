// SPDX-License-Identifier: MIT
// What can be wrong with a board, each fault with its name and its place.
//
// As text, one fault: [PLACE/]NAME[:VALUE...], numbers decimal or 0x-hexadecimal.
//
//   drop:N             the N-th byte that the board sends is lost
//   alter:N[:BYTE]     it comes altered: all bits inverted, or as the given byte
//   add:N[:BYTE]       one more byte (0x00) comes behind it
//   late:TIME[:N]      the N-th byte (the first) and all behind it wait: 2000ms, 3s
//   no-end-code        the end code "@" isn't sent
//   abort-write:N      after N items the board breaks the write off
//   silent-after:N     after N bytes the board sends nothing more
//   unplug-after:N     after N bytes the port vanishes
//   ignore-bursts:N    the first N identifications "?" get no answer, and no "*" before them helps
//   identity:TEXT      another answer to "?", CR LF behind it
//   empty-socket       no part: all reads give zeros
//   wrong-part:WORD    a part with another identification word
//   stuck-cell:ADDRESS, stuck-eeprom:ADDRESS, stuck-config:WORD
//                      a cell that doesn't program. WORD counts the configuration area's words
//
// N counts what the board means to send, from 1, over all exchanges since the fault was set. PLACE,
// the letters of an exchange without its power letter ("rsc", "we8", "mD", "?", "Xrsp"; their
// beginning is enough), makes N count anew in each such exchange. A fault strikes once; silent,
// unplugged and what is wrong with the socket or the identity stays until the faults are cleared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/host.h"

namespace quillon {

struct Fault {
    enum class Kind : std::uint8_t {
        Drop,
        Alter,
        Add,
        Late,
        NoEndCode,
        AbortWrite,
        SilentAfter,
        UnplugAfter,
        IgnoreBursts,
        Identity,
        EmptySocket,
        WrongPart,
        StuckCell,
        StuckEeprom,
        StuckConfig,
    };
    Kind kind = Kind::Drop;
    std::string place{};  // letters of the exchange, "" for all
    std::size_t n = 1;    // byte, item, count, address or word, as the kind says
    std::optional<std::uint8_t> value{};
    Host::Time time{};
    std::string text{};
};

struct FaultReading {
    std::optional<Fault> fault;
    std::string error;  // one line, where there is no fault
};

FaultReading read_fault(std::string_view text);

// The board's faults at work: counts what is sent and says which fault strikes.
class FaultDesk {
  public:
    void add(Fault fault);
    void clear() { faults_.clear(); }

    // An exchange begins: its letters without the power letter.
    void begin(std::string_view letters);

    // What becomes of one byte that the board means to send.
    struct Sending {
        std::vector<std::uint8_t> bytes;  // in its place
        Host::Time late{};                // it waits so long
    };
    Sending send(std::uint8_t byte, bool end_code);

    // Asked before each item of a write stream.
    bool aborts_write(std::size_t items_taken);
    // Asked at each "*" and "?"; the latter uses one up.
    bool ignores_star() const;
    bool ignores_question();

    bool unplugged() const { return broken_down(Fault::Kind::UnplugAfter); }
    // The fault of that kind that is in force, nullptr for none.
    const Fault* standing(Fault::Kind kind) const;
    bool stuck(Fault::Kind kind, std::size_t address) const;

  private:
    struct Armed {
        Fault fault;
        std::size_t count = 0;  // bytes sent in its place
        bool here = false;      // the running exchange is its place
        bool spent = false;     // it has struck
    };
    bool broken_down(Fault::Kind kind) const;
    void place(Armed& armed);
    void strike(Armed& armed, std::uint8_t byte, bool end_code, Sending& sending);

    std::vector<Armed> faults_;
    std::string letters_;
};

}  // namespace quillon
