// SPDX-License-Identifier: MIT
// The plain reader: lines to rows, rows to blocks, configuration rows to words.
#include "plain_reader.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <sstream>

namespace catalogue_data {
namespace {

constexpr std::size_t kFirstHalf = 10;  // "0B" and eight digits
constexpr std::size_t kSecondHalf = 8;  // eight digits

Row split(const std::string& text, int line) {
    std::istringstream stream{text};
    return {line, {std::istream_iterator<std::string>{stream}, {}}};
}

std::vector<Row> rows_of(const std::string& bytes) {
    std::vector<Row> rows;
    std::istringstream stream{bytes};
    int line = 0;
    for (std::string text; std::getline(stream, text);) {
        if (Row row = split(text, ++line); !row.tokens.empty()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

bool is_half(const Row& row, std::size_t at, std::size_t length) {
    return at < row.tokens.size() && row.tokens[at].size() == length;
}

// The number of a key such as "CFG3", 0 unless the key is the prefix and a digit from 1 to 7.
unsigned word_number(std::string_view key, std::string_view prefix) {
    if (!key.starts_with(prefix) || key.size() != prefix.size() + 1) {
        return 0;
    }
    const char digit = key.back();
    return digit >= '1' && digit <= '7' ? static_cast<unsigned>(digit - '0') : 0;
}

// Collects the configuration rows of one block.
class WordReader {
  public:
    WordReader(Block& block, std::vector<std::string>& problems)
        : block_{block}, problems_{problems} {}

    void read() {
        for (const Row& row : block_.rows) {
            if (const unsigned n = word_number(row.tokens[0], "CONFIG")) {
                read_config(row, n);
            } else if (const unsigned m = word_number(row.tokens[0], "CFG")) {
                read_option(row, m);
            }
        }
    }

  private:
    void problem(const Row& row, std::string_view reason) {
        problems_.push_back("line " + std::to_string(row.line) + " " + block_.name + ": " +
                            std::string{reason});
    }

    void read_config(const Row& row, unsigned n) {
        std::size_t at = 1;
        const auto preset = take_number(row, at);
        const auto zero = take_number(row, at);
        const auto one = take_number(row, at);
        const auto width = take_number(row, at);
        if (!preset || !zero || !one || !width || at != row.tokens.size()) {
            return problem(row, "CONFIG row doesn't convert");
        }
        // Either all three masks are written in halves or none is. A mixed row isn't joined.
        if (row.tokens.size() != 5 && row.tokens.size() != 8) {
            return problem(row, "CONFIG row mixes halves and single numbers");
        }
        if (!block_.words.empty() && block_.words.back().n >= n) {
            return problem(row, "CONFIG rows out of order");
        }
        block_.words.push_back({n, *width, *preset, *zero, *one, {}});
    }

    void read_option(const Row& row, unsigned n) {
        std::size_t at = 3;
        const auto mask = take_number(row, at);
        const auto value = take_number(row, at);
        if (!mask || !value || at != row.tokens.size()) {
            return problem(row, "option " + text_of(row) + " doesn't convert");
        }
        if (row.tokens.size() != 5 && row.tokens.size() != 7) {
            return problem(row, "option " + text_of(row) + " mixes halves and single numbers");
        }
        if (block_.words.empty() || block_.words.back().n != n) {
            return problem(row, "option " + text_of(row) + " stands outside its CONFIG's rows");
        }
        auto& fields = block_.words.back().fields;
        if (fields.empty() || fields.back().name != row.tokens[1]) {
            fields.push_back({row.tokens[1], {}});
        }
        fields.back().options.push_back({row.tokens[2], *mask, *value});
    }

    static std::string text_of(const Row& row) {
        return row.tokens.size() < 3 ? "(short row)" : row.tokens[1] + " " + row.tokens[2];
    }

    Block& block_;
    std::vector<std::string>& problems_;
};

void read_blocks(Catalogue& file) {
    Block* open = nullptr;
    bool name_due = false;
    for (const Row& row : file.lines) {
        const std::string& key = row.tokens[0];
        if (name_due) {
            file.blocks.push_back({key, row.line, {}, {}});
            open = &file.blocks.back();
            name_due = false;
        } else if (key == "#BEGIN") {
            if (open != nullptr) {
                file.problems.push_back("line " + std::to_string(row.line) + " " + open->name +
                                        ": #BEGIN before #END");
            }
            open = nullptr;
            name_due = true;
        } else if (key == "#END") {
            if (open == nullptr) {
                file.problems.push_back("line " + std::to_string(row.line) + ": stray #END");
            }
            open = nullptr;
        } else if (open == nullptr) {
            file.outside.push_back(row);
        } else if (!key.starts_with(';')) {
            open->rows.push_back(row);
        }
    }
    if (open != nullptr || name_due) {
        file.problems.push_back("the last block isn't closed");
    }
}

}  // namespace

const Row* Block::row(std::string_view key) const {
    const auto found =
        std::ranges::find_if(rows, [&](const Row& each) { return each.tokens[0] == key; });
    return found == rows.end() ? nullptr : &*found;
}

std::optional<std::uint32_t> number(std::string_view text) {
    int base = 10;
    if (text.starts_with("0B") || text.starts_with("0b")) {
        base = 2;
    } else if (text.starts_with("0X") || text.starts_with("0x")) {
        base = 16;
    }
    if (base != 10) {
        text.remove_prefix(2);
    }
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc{} || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::uint32_t> take_number(const Row& row, std::size_t& at) {
    if (at >= row.tokens.size()) {
        return std::nullopt;
    }
    if (is_half(row, at, kFirstHalf) && is_half(row, at + 1, kSecondHalf)) {
        at += 2;
        return number(row.tokens[at - 2] + row.tokens[at - 1]);
    }
    return number(row.tokens[at++]);
}

Catalogue read_catalogue(const std::string& path) {
    Catalogue file;
    std::ifstream stream{path, std::ios::binary};
    if (!stream) {
        file.problems.push_back("can't open " + path);
    }
    file.bytes.assign(std::istreambuf_iterator<char>{stream}, {});
    file.lines = rows_of(file.bytes);
    read_blocks(file);
    for (Block& block : file.blocks) {
        WordReader{block, file.problems}.read();
    }
    return file;
}

const Catalogue& catalogue() {
    static const Catalogue file = read_catalogue(DEVICE6_INI);
    return file;
}

}  // namespace catalogue_data
