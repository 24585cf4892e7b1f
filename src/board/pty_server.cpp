// SPDX-License-Identifier: MIT
#include "board/pty_server.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <random>
#include <system_error>
#include <thread>
#include <utility>

namespace quillon {
namespace {

using Time = Host::Time;

constexpr Time kSecond = std::chrono::seconds{1};
// How often the server checks whether a killed host has left the terminal in exclusive use.
constexpr Time kLook = std::chrono::milliseconds{250};

Time now() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return std::chrono::seconds{time.tv_sec} + std::chrono::nanoseconds{time.tv_nsec};
}

timespec timespec_of(Time time) {
    return {.tv_sec = time / kSecond, .tv_nsec = (time % kSecond).count()};
}

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error{errno, std::generic_category(), what};
}

void set_raw(int terminal) {
    termios settings{};
    if (::tcgetattr(terminal, &settings) != 0) fail("pseudo-terminal settings");
    ::cfmakeraw(&settings);
    if (::tcsetattr(terminal, TCSANOW, &settings) != 0) fail("pseudo-terminal settings");
}

// Makes the link under a random name beside its place. Nothing that exists is replaced.
std::filesystem::path make_link_beside(const std::filesystem::path& link, const std::string& to) {
    std::random_device random;
    for (;;) {
        auto beside = link;
        beside += '.' + std::to_string(random());
        std::error_code error;
        std::filesystem::create_symlink(to, beside, error);
        if (!error) return beside;
        if (error != std::errc::file_exists) throw std::system_error{error, link.string()};
    }
}

void rest(Time time) {
    const timespec left = timespec_of(time);
    ::nanosleep(&left, nullptr);
}

// Waits for a byte as a host does. Returns when the byte was read, nothing where none came.
std::optional<Time> receive_one(int terminal) {
    pollfd event{.fd = terminal, .events = POLLIN, .revents = 0};
    char byte = 0;
    if (::poll(&event, 1, 200) != 1 || ::read(terminal, &byte, 1) != 1) return std::nullopt;
    return now();
}

// Sends a byte and returns the time just before.
Time send_one(int terminal) {
    const char byte = 0;
    const Time time = now();
    (void)!::write(terminal, &byte, 1);
    return time;
}

// The times at one end: when each of its bytes was sent and each of the other end's was received.
struct EndTimes {
    std::vector<Time> sent;
    std::vector<Time> received;
};

Time median(const std::vector<Time>& from, const std::vector<Time>& to) {
    std::vector<Time> delays;
    for (std::size_t i = 0; i < std::min(from.size(), to.size()); ++i)
        delays.push_back(to[i] - from[i]);
    if (delays.empty()) return Time{0};
    const auto middle = delays.begin() + static_cast<std::ptrdiff_t>(delays.size() / 2);
    std::ranges::nth_element(delays, middle);
    return std::max(*middle, Time{0});
}

// Sends bytes to and fro between two threads. Each sleeps until the other's byte wakes it.
std::pair<EndTimes, EndTimes> send_to_and_fro(int master, int slave, int rounds) {
    constexpr Time kPause = std::chrono::microseconds{300};
    EndTimes board;
    EndTimes host;
    const std::jthread other{[&] {
        for (int i = 0; i < rounds; ++i) {
            const auto received = receive_one(slave);
            if (!received) return;
            host.received.push_back(*received);
            rest(kPause);
            host.sent.push_back(send_one(slave));
        }
    }};
    for (int i = 0; i < rounds; ++i) {
        rest(kPause);
        board.sent.push_back(send_one(master));
        const auto received = receive_one(master);
        if (!received) break;
        board.received.push_back(*received);
    }
    return {std::move(board), std::move(host)};
}

}  // namespace

PtyServer::PtyServer(SimulatedBoard& board, PtyOptions options)
    : board_{board}, options_{std::move(options)}, in_{options_.baud}, out_{options_.baud} {
    auto& times = board_.times();
    times.letter_gap = Time{0};
    times.item_gap = std::max(times.item_gap, 2 * in_.byte_time());
    try {
        open_terminal();
        measure();
        if (!options_.link.empty()) make_link();
    } catch (...) {
        close_terminal();
        throw;
    }
}

PtyServer::~PtyServer() {
    remove_link();
    close_terminal();
}

void PtyServer::open_terminal() {
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0)
        fail("no pseudo-terminal");
    std::array<char, 128> name{};
    if (const int error = ::ptsname_r(master_, name.data(), name.size()); error != 0) {
        errno = error;
        fail("no pseudo-terminal");
    }
    path_ = name.data();
    slave_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave_ < 0) fail(path_);
    stop_event_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (stop_event_ < 0) fail("no event");
    set_raw(slave_);
}

void PtyServer::close_terminal() {
    for (int* file : {&slave_, &master_, &stop_event_})
        if (*file >= 0) ::close(std::exchange(*file, -1));
}

// A host that asked for exclusive use ends it when it closes the terminal. A killed host can't, and
// the mark stays because the server holds the terminal open: only the superuser could open it then.
// A living host also locks the terminal. So a mark without a lock was left by a killed host.
void PtyServer::free_abandoned() {
    const Time time = now();
    if (time - looked_at_ < kLook) return;
    looked_at_ = time;
    int exclusive = 0;
    if (::ioctl(slave_, TIOCGEXCL, &exclusive) != 0 || exclusive == 0) return;
    if (::flock(slave_, LOCK_EX | LOCK_NB) != 0) return;
    ::ioctl(slave_, TIOCNXCL);
    ::flock(slave_, LOCK_UN);
}

// The new link is made beside its place and then moved there: a reader always finds a whole link.
void PtyServer::make_link() {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto status = fs::symlink_status(options_.link, error);
    if (fs::exists(status) && !fs::is_symlink(status)) {
        errno = EEXIST;
        fail(options_.link.string());
    }
    const auto beside = make_link_beside(options_.link, path_);
    fs::rename(beside, options_.link, error);
    if (error) {
        std::error_code ignored;
        fs::remove(beside, ignored);
        throw std::system_error{error, options_.link.string()};
    }
    linked_ = true;
}

// A link that somebody else has put in its place is left alone.
void PtyServer::remove_link() {
    if (!std::exchange(linked_, false)) return;
    std::error_code error;
    if (std::filesystem::read_symlink(options_.link, error) == path_)
        std::filesystem::remove(options_.link, error);
}

void PtyServer::measure() {
    if (!options_.credit_delay || options_.baud <= 0) return;
    const auto [board, host] = send_to_and_fro(master_, slave_, options_.measurements);
    // At most one byte time: a machine that was busy while measuring must not make the line faster
    // than it is.
    delay_in_ = std::min(median(host.sent, board.received), in_.byte_time());
    delay_out_ = std::min(median(board.sent, host.received), out_.byte_time());
    ::tcflush(slave_, TCIOFLUSH);
    ::tcflush(master_, TCIOFLUSH);
}

void PtyServer::run(const std::stop_token& stop) {
    // Linux may end a sleep 50 us late by default, a third of a byte's time at 57600 baud.
    ::prctl(PR_SET_TIMERSLACK, 1, 0, 0, 0);
    serve(stop);
    remove_link();
    close_terminal();
}

void PtyServer::serve(const std::stop_token& stop) {
    const std::stop_callback wake{stop, [this] { ::eventfd_write(stop_event_, 1); }};
    horizon_ = now();
    while (!stop.stop_requested() && !board_.unplugged()) {
        free_abandoned();
        take_from_host();
        schedule();
        hand_to_host();
        if (!board_.unplugged()) wait();
    }
}

void PtyServer::take_from_host() {
    std::array<std::uint8_t, 512> buffer{};
    const auto count = ::read(master_, buffer.data(), buffer.size());
    if (count <= 0) return;
    const Time written = std::max(now() - delay_in_, handed_over_);
    for (const auto byte : std::span{buffer}.first(static_cast<std::size_t>(count))) {
        const Time arrived = in_.pass(written);
        board_.receive(byte, arrived);
        horizon_ = std::max(horizon_, arrived);
    }
}

void PtyServer::schedule() {
    horizon_ = std::max(horizon_, now());
    board_.run_until(horizon_);
    std::size_t together = 0;
    for (const auto& sent : board_.take_sent(horizon_)) {
        output_.push_back({sent.value, out_.pass(sent.ready)});
        ++together;
        if (sent.more) continue;
        const Time due = output_.back().due;
        for (auto byte = output_.rbegin(); together > 0; ++byte, --together) byte->due = due;
    }
}

void PtyServer::hand_to_host() {
    std::array<std::uint8_t, 512> block{};
    std::size_t count = 0;
    const Time reach = now() + delay_out_;
    while (!output_.empty() && output_.front().due <= reach && count < block.size()) {
        handed_over_ = output_.front().due;
        block[count++] = output_.front().value;
        output_.pop_front();
    }
    // A host that doesn't read loses bytes, as on a UART with nobody at the other end.
    if (count > 0) (void)!::write(master_, block.data(), count);
}

void PtyServer::wait() {
    auto next = board_.next_event();
    if (!output_.empty()) {
        const Time due = output_.front().due - delay_out_;
        next = next ? std::min(*next, due) : due;
    }
    Time time = kLook;
    if (next) time = std::min(time, *next - now() - Time{options_.spin});
    if (time <= Time{0}) return;
    const timespec left = timespec_of(time);
    std::array<pollfd, 2> events{{{.fd = master_, .events = POLLIN, .revents = 0},
                                  {.fd = stop_event_, .events = POLLIN, .revents = 0}}};
    ::ppoll(events.data(), events.size(), &left, nullptr);
}

}  // namespace quillon
