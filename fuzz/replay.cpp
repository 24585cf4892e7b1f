// SPDX-License-Identifier: MIT
// Runs a fuzz target without a fuzzer, as part of the test suite: on the kept corpus, then on
// changed copies of it for a few seconds. The changes are the same in every run.
//
//     fuzz_items_replay CORPUS [SECONDS]
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Corpus {
    std::vector<std::string> names;
    std::vector<Bytes> files;
};

Corpus read(const char* folder) {
    Corpus corpus;
    for (const auto& entry : std::filesystem::directory_iterator{folder}) {
        std::ifstream file{entry.path(), std::ios::binary};
        const std::string text{std::istreambuf_iterator<char>{file}, {}};
        corpus.names.push_back(entry.path().filename().string());
        corpus.files.emplace_back(text.begin(), text.end());
    }
    return corpus;
}

// Makes changes like a fuzzer's: alters, removes and inserts bytes, and joins pieces of two files.
class Changes {
  public:
    explicit Changes(const Corpus& corpus) : corpus_{corpus} {}

    Bytes next() {
        Bytes bytes = any();
        for (auto count = 1 + random_() % 4; count > 0; --count) change(bytes);
        return bytes;
    }

  private:
    const Bytes& any() { return corpus_.files[random_() % corpus_.files.size()]; }
    std::ptrdiff_t place(const Bytes& bytes) {
        return static_cast<std::ptrdiff_t>(random_() % (bytes.size() + 1));
    }
    std::uint8_t byte() {
        constexpr std::string_view kOften = ":0123456789ABCDEF\r\n,\" \t;";
        const auto r = random_();
        return r % 2 == 0 ? static_cast<std::uint8_t>(kOften[(r >> 8) % kOften.size()])
                          : static_cast<std::uint8_t>(r >> 8);
    }
    void change(Bytes& bytes) {
        const auto at = bytes.begin() + place(bytes);
        switch (random_() % 4) {
            case 0:
                if (at != bytes.end()) *at = byte();
                break;
            case 1:
                bytes.erase(at, bytes.begin() + std::max(at - bytes.begin(), place(bytes)));
                break;
            case 2:
                bytes.insert(at, byte());
                break;
            default: {
                const auto& other = any();
                bytes.erase(at, bytes.end());
                bytes.insert(bytes.end(), other.begin() + place(other), other.end());
            }
        }
    }

    const Corpus& corpus_;
    std::mt19937 random_{20'011};
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const Corpus corpus = read(argv[1]);
    for (std::size_t i = 0; i < corpus.files.size(); ++i) {
        std::printf("%s\n", corpus.names[i].c_str());
        std::fflush(stdout);  // the last name printed is the one that failed
        LLVMFuzzerTestOneInput(corpus.files[i].data(), corpus.files[i].size());
    }
    std::printf("%zu files\n", corpus.files.size());
    // A missing corpus must not pass.
    if (corpus.files.empty()) return 1;

    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds{argc > 2 ? std::atoi(argv[2]) : 0};
    Changes changes{corpus};
    std::size_t runs = 0;
    for (; Clock::now() < end; ++runs) {
        const auto bytes = changes.next();
        // After a crash the input that caused it is in this file, in the working folder.
        std::ofstream{"last_input", std::ios::binary}.write(
            reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%zu changed files\n", runs);
    return 0;
}
