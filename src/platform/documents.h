// SPDX-License-Identifier: MIT
// Documents and their texts: opened with their default program, and read from the code page.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// Opens a file or a web page with its default program, which goes on by itself. False for a file
// that isn't there, and where no program could be started.
bool start_default(const std::string& path_or_url);

// Valid UTF-8 as it stands, anything else from code page 932. A byte that doesn't convert becomes
// U+FFFD.
std::string decode_text(std::string_view bytes);

}  // namespace quillon
