// SPDX-License-Identifier: MIT
// An output stream into a file descriptor that keeps the reason of a failed write.
//
// The standard's own streams fail without a reason. They also lose bytes on a pipe that another
// program has made non-blocking. Here a write waits until such a pipe takes the bytes.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <ostream>
#include <streambuf>
#include <string>

namespace quillon::cli {

class DescriptorBuffer : public std::streambuf {
  public:
    explicit DescriptorBuffer(int descriptor) : descriptor_{descriptor} { clear(); }

    // errno of the first write that failed, 0 while none has.
    int error() const { return error_; }

  protected:
    int_type overflow(int_type character) override;
    int sync() override;

  private:
    void clear() { setp(buffer_.data(), buffer_.data() + buffer_.size()); }
    void wait_until_writable() const;

    int descriptor_;
    int error_ = 0;
    std::array<char, 8192> buffer_{};
};

class DescriptorStream : public std::ostream {
  public:
    enum class Owns : bool { No, Yes };

    explicit DescriptorStream(int descriptor, Owns owns = Owns::No);
    // Creates or empties a file; opens a device or a pipe as it is. A failure is in problem().
    explicit DescriptorStream(const std::filesystem::path& path);
    ~DescriptorStream() override;

    // The system's message for the first failure, nothing if all went well.
    std::optional<std::string> problem() const;
    // True if the reader has closed the pipe. That was its choice, so the run hasn't failed.
    bool lost_its_reader() const;

  private:
    int descriptor_;
    Owns owns_;
    int open_error_ = 0;
    DescriptorBuffer buffer_;
};

}  // namespace quillon::cli
