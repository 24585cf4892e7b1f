// SPDX-License-Identifier: MIT
// Makes the wire log's notation: cuts what went over the wire into exchanges and folds each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/wire_log.h"

namespace quillon {

// What follows a command's letters.
struct WireForm {
    enum class Kind : std::uint8_t { Text, Reply, Read, Write, Silent, Unknown };
    Kind kind = Kind::Unknown;
    std::size_t parameters = 0;  // bytes
    std::size_t reply = 0;       // bytes before the end code
};

// Unset while letters are missing.
std::optional<WireForm> wire_form(std::string_view letters);

class WireText {
  public:
    void add(const WireEvent& event);
    // The whole text, with the line that isn't finished yet.
    std::string finish();

  private:
    // Bytes that one side sent in a row, with none of the other side between them.
    struct Part {
        WireEvent::Way way;
        std::vector<std::uint8_t> bytes;
    };

    bool begins_line(const WireEvent& event) const;
    bool unfinished() const;
    bool item_due(const WireEvent& event) const;
    std::size_t data_due() const;
    std::size_t parameter(std::size_t from, std::size_t count) const;
    void take(std::uint8_t byte);
    void take_part(WireEvent::Way way, const std::vector<std::uint8_t>& bytes);
    void end_line();

    std::string head() const;
    std::string answer() const;
    std::string read() const;
    std::string write() const;

    std::string done_;
    bool open_ = false;  // a line has begun and isn't finished
    std::string letters_;
    std::vector<std::uint8_t> parameters_;
    std::optional<WireForm> form_;
    std::vector<Part> parts_;
    std::size_t host_data_ = 0;  // bytes behind the parameters
    Host::Time last_write_{};
};

}  // namespace quillon
