// SPDX-License-Identifier: MIT
// Opens documents with their default program, and decodes their texts.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// Opens a file or a web page with its default program and doesn't wait for it. Returns false if the
// file doesn't exist or no program could be started.
bool start_default(const std::string& path_or_url);

// Returns valid UTF-8 unchanged and decodes anything else from code page 932. A byte that doesn't
// convert becomes U+FFFD.
std::string decode_text(std::string_view bytes);

}  // namespace quillon
