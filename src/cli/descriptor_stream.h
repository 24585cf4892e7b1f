// SPDX-License-Identifier: MIT
// An output stream into a file descriptor that keeps the reason why a write failed.
//
// The standard's own streams fail without a reason, and lose bytes on a pipe that somebody else
// has made non-blocking: here a write waits until such a pipe takes it.
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
    // A file that is made, or emptied; a device or a pipe as it is. Fails with a reason.
    explicit DescriptorStream(const std::filesystem::path& path);
    ~DescriptorStream() override;

    // The system's words for what went wrong first, nothing while all went well.
    std::optional<std::string> problem() const;
    // A reader that has gone away: its own choice, and no failure of the run.
    bool lost_its_reader() const;

  private:
    int descriptor_;
    Owns owns_;
    int open_error_ = 0;
    DescriptorBuffer buffer_;
};

}  // namespace quillon::cli
