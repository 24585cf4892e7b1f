// SPDX-License-Identifier: MIT
// Helpers that find and make the lines of a saved HEX file.
#pragma once

#include <string>
#include <vector>

#include "image/image_support.h"

namespace quillon::test {

// The record without its line end, as a line of a file reads.
inline std::string line(unsigned address, const Bytes& bytes) {
    const auto text = data(address, bytes);
    return text.substr(0, text.size() - 2);
}

// The 16 bytes of a record: the first ones, then `rest` again and again.
inline Bytes filled(Bytes head, const Bytes& rest) {
    while (head.size() < 16) head.insert(head.end(), rest.begin(), rest.end());
    return head;
}

inline std::vector<std::string> lines_of_file(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = text.find("\r\n", at);
        lines.push_back(text.substr(at, end - at));
        if (end == std::string::npos) break;
        at = end + 2;
    }
    return lines;
}

}  // namespace quillon::test
