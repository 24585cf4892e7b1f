// SPDX-License-Identifier: MIT
// What can be wrong with a board, each fault with its name and its place.
//
// As text, one fault: [PLACE/]NAME[:VALUE...], numbers decimal or 0x-hexadecimal.
//
//   drop:N             the N-th byte that the board sends is lost
//   alter:N[:BYTE]     the N-th byte arrives with all bits inverted, or as the given byte
//   add:N[:BYTE]       one more byte (default: 0x00) follows the N-th
//   late:TIME[:N]      the N-th byte (default: the first) and all after it are delayed: 2000ms, 3s
//   no-end-code        the end code "@" isn't sent
//   abort-write:N      after N items the board aborts the write
//   silent-after:N     after N bytes the board sends nothing more
//   unplug-after:N     after N bytes the port vanishes
//   ignore-bursts:N    the first N identifications "?" get no answer, and "*" is ignored until then
//   identity:TEXT      the answer to "?"; CR LF is added
//   empty-socket       no part: all reads give zeros
//   wrong-part:WORD    a part with another identification word
//   stuck-cell:ADDRESS, stuck-eeprom:ADDRESS, stuck-config:WORD
//                      a cell that doesn't program. WORD counts the configuration area's words
//
// N counts what the board would send without faults, from 1, over all exchanges since the fault was
// set. PLACE is the letters of an exchange without its power letter ("rsc", "we8", "mD", "?",
// "Xrsp"); their beginning is enough. With a PLACE, N counts anew in each such exchange. A fault
// strikes once. Silence, an unplugged port, and faults of the socket or the identity last until the
// faults are cleared.
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

    // What goes out for one byte that the board sends.
    struct Sending {
        std::vector<std::uint8_t> bytes;  // empty for a lost byte
        Host::Time late{};                // how long they are delayed
    };
    Sending send(std::uint8_t byte, bool end_code);

    // Called before each item of a write stream. True once for each fault that aborts it.
    bool aborts_write(std::size_t items_taken);
    // Called at each "*" and "?". Each ignored "?" counts as one burst.
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
