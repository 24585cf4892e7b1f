// SPDX-License-Identifier: MIT
#include "cli/descriptor_stream.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <span>
#include <system_error>

namespace quillon::cli {

namespace {

constexpr int kFilePermissions = 0666;  // minus the user's umask

int open_file(const std::filesystem::path& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kFilePermissions);
}

}  // namespace

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type character) {
    if (sync() != 0) return traits_type::eof();
    if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
    return sputc(traits_type::to_char_type(character));
}

int DescriptorBuffer::sync() {
    std::span left{pbase(), pptr()};
    clear();
    while (error_ == 0 && !left.empty()) {
        const auto count = ::write(descriptor_, left.data(), left.size());
        if (count >= 0)
            left = left.subspan(static_cast<std::size_t>(count));
        else if (errno == EAGAIN)
            wait_until_writable();
        else if (errno != EINTR)
            error_ = errno;
    }
    return error_ == 0 ? 0 : -1;
}

// No limit: a write to a blocking pipe has none either.
void DescriptorBuffer::wait_until_writable() const {
    pollfd event{.fd = descriptor_, .events = POLLOUT, .revents = 0};
    ::poll(&event, 1, -1);
}

DescriptorStream::DescriptorStream(int descriptor, Owns owns)
    : std::ostream{nullptr}, descriptor_{descriptor}, owns_{owns}, buffer_{descriptor} {
    rdbuf(&buffer_);
}

DescriptorStream::DescriptorStream(const std::filesystem::path& path)
    : DescriptorStream{open_file(path), Owns::Yes} {
    if (descriptor_ >= 0) return;
    open_error_ = errno;
    setstate(badbit);
}

DescriptorStream::~DescriptorStream() {
    flush();
    if (owns_ == Owns::Yes && descriptor_ >= 0) ::close(descriptor_);
}

std::optional<std::string> DescriptorStream::problem() const {
    const int error = open_error_ != 0 ? open_error_ : buffer_.error();
    if (error == 0) return std::nullopt;
    return std::generic_category().message(error);
}

bool DescriptorStream::lost_its_reader() const { return buffer_.error() == EPIPE; }

}  // namespace quillon::cli
