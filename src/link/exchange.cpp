// SPDX-License-Identifier: MIT
#include "link/exchange.h"

#include <algorithm>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto kLetterPause = 1ms;
// The bytes of one report follow each other on the line, but a USB adapter may cut them in two. A
// poll that finds the first alone gives the others this long to arrive: a report taken for a ready
// byte would send image data into the board's command loop.
constexpr auto kReportTime = 20000us;
constexpr std::size_t kConfigBlock = 16;
constexpr std::size_t kConfigReport = 4;
constexpr std::size_t kItemReport = 3;  // the abort byte and a word

}  // namespace

void Exchange::begin() {
    host_.pump();
    port_.discard_input();
    send(session_.PowerMode == "VPP" ? "n" : "N");
    port_.discard_input();
}

void Exchange::send(std::string_view letters) {
    for (const char letter : letters) send_byte(static_cast<std::uint8_t>(letter));
}

void Exchange::send_byte(std::uint8_t byte) {
    port_.write(std::array{byte});
    host_.sleep(kLetterPause);
}

void Exchange::send_count(std::int32_t count) {
    send_byte(static_cast<std::uint8_t>(count / 256));
    send_byte(static_cast<std::uint8_t>(count % 256));
}

void Exchange::send_unpaced(std::uint8_t byte) { port_.write(std::array{byte}); }

void Exchange::acknowledge() {
    host_.sleep(kLetterPause);
    port_.write(std::array{kEndCode});
}

bool Exchange::wait(std::size_t bytes, Limit limit) { return wait_for(host_, port_, bytes, limit); }

bool Exchange::read_stream(std::size_t total, Limit limit, Bar bar) {
    std::size_t last = 0;
    std::size_t shown = 0;
    const bool complete = wait_for(host_, port_, total, limit, [&](std::size_t count) {
        if (count != last && count % kReadBlock == 0) {
            acknowledge();
            last = count;
        }
        if (bar == Bar::Shown) show_progress(shown, count, total - 1);
        shown = count;
        return std::min(total, (count / kReadBlock + 1) * kReadBlock);
    });
    messages_.ShowProgress(Messages::Progress::Off);
    return complete;
}

std::vector<std::uint8_t> Exchange::read_config(Limit limit) {
    if (!wait(kConfigBlock, limit)) return {};
    acknowledge();
    wait(kConfigBlock + 1, kNoLimit);
    return take();
}

// The bar is drawn at each hundredth part only, and a poll may find the count beyond one.
void Exchange::show_progress(std::size_t from, std::size_t to, std::size_t total) {
    const std::size_t step = total / 100;
    if (step == 0) return;
    const std::size_t value = to - to % step;
    if (value > from || to == 0)
        messages_.ShowProgress(Messages::Progress::On, 0, static_cast<int>(total),
                               static_cast<int>(value));
}

// What is waiting, and what follows on its heels, up to so many bytes in all.
std::vector<std::uint8_t> Exchange::take_report(std::size_t most) {
    auto reply = take();
    if (reply.size() < most) port_.wait_for_data(most - reply.size(), kReportTime);
    const auto rest = take();
    reply.insert(reply.end(), rest.begin(), rest.end());
    return reply;
}

std::vector<std::uint8_t> Exchange::take_ready(std::uint8_t abort) {
    auto reply = take();
    if (reply.size() == 1 && reply.front() == abort) {
        const auto rest = take_report(kItemReport - 1);
        reply.insert(reply.end(), rest.begin(), rest.end());
    }
    return reply;
}

WriteResult Exchange::write_stream(std::span<const std::uint8_t> image, Limit limit,
                                   std::uint8_t abort) {
    WriteResult result;
    for (auto& i = result.index; i < image.size(); i += 2) {
        host_.pump();  // a board that is ready at once would leave the interface unpumped
        if (!wait(1, limit)) {
            result.end = WriteEnd::NoReady;
            break;
        }
        result.reply = take_ready(abort);
        if (result.reply.size() > 1 && result.reply.front() == abort) {
            result.end = WriteEnd::Interrupted;
            break;
        }
        messages_.ShowProgress(Messages::Progress::On, 0, static_cast<int>(image.size()),
                               static_cast<int>(i));
        port_.write(image.subspan(i, 2));
    }
    messages_.ShowProgress(Messages::Progress::Off);
    if (result.end != WriteEnd::Done) return result;
    if (!wait(1, limit)) {
        result.end = WriteEnd::NoReply;
        return result;
    }
    result.reply = take();
    if (result.reply.front() != kEndCode) result.end = WriteEnd::NoEndCode;
    return result;
}

WriteResult Exchange::write_config(std::span<const std::uint8_t> image) {
    WriteResult result;
    for (auto& i = result.index; i < image.size(); i += 2) {
        host_.pump();
        wait(1, kNoLimit);
        result.reply = take_report(kConfigReport);
        if (result.reply.size() >= kConfigReport) {
            result.end = WriteEnd::Interrupted;
            return result;
        }
        port_.write(image.subspan(i, 2));
    }
    wait(1, kNoLimit);
    result.reply = take_report(kConfigReport);
    if (result.reply.front() == kEndCode) return result;
    result.end = WriteEnd::NoEndCode;
    return result;
}

}  // namespace quillon
