// SPDX-License-Identifier: MIT
// Runs a fuzz target over the files of the folders that are named, with no fuzzer at hand: the kept
// corpus is part of the test suite.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int argc, char** argv) {
    std::size_t files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator{argv[i]}) {
            std::ifstream file{entry.path(), std::ios::binary};
            const std::string text{std::istreambuf_iterator<char>{file}, {}};
            const std::vector<std::uint8_t> bytes{text.begin(), text.end()};
            std::printf("%s\n", entry.path().filename().string().c_str());
            std::fflush(stdout);  // the last name printed is the one that failed
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++files;
        }
    }
    std::printf("%zu files\n", files);
    // A corpus that isn't there must not pass for one that holds.
    return files == 0 ? 1 : 0;
}
