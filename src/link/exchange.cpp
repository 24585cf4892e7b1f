// SPDX-License-Identifier: MIT
#include "link/exchange.h"

#include <algorithm>

#include "link/silence_watch.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto kLetterPause = 1ms;
// The bytes of one report follow each other on the line, but a USB adapter may cut them in two. A
// poll that finds the first alone gives the others this long to arrive: a report taken for a ready
// byte would send image data into the board's command loop.
constexpr auto kReportTime = 20000us;
constexpr std::size_t kConfigReport = 4;
constexpr std::size_t kItemReport = 3;  // the abort byte and a word

bool is_one_of(std::uint8_t byte, std::string_view letters) {
    return letters.find(static_cast<char>(byte)) != std::string_view::npos;
}

}  // namespace

void Exchange::begin() {
    host_.pump();
    port_.discard_input();
    send({&dialect_.power, 1});
    port_.discard_input();
    if (dialect_.extended) send("X");
}

void Exchange::send(std::string_view letters) {
    for (const char letter : letters) send_byte(static_cast<std::uint8_t>(letter));
}

void Exchange::send_byte(std::uint8_t byte) {
    port_.write(std::array{byte});
    host_.sleep(kLetterPause);
}

void Exchange::send_number(std::int32_t value) {
    for (int byte = dialect_.number_bytes - 1; byte >= 0; --byte)
        send_byte(static_cast<std::uint8_t>(value >> 8 * byte));
}

void Exchange::send_unpaced(std::uint8_t byte) { port_.write(std::array{byte}); }

void Exchange::acknowledge() {
    host_.sleep(kLetterPause);
    port_.write(std::array{kEndCode});
}

bool Exchange::wait(std::size_t bytes, Limit limit, std::chrono::milliseconds expected) {
    if (limit) return wait_for(host_, port_, bytes, limit);
    SilenceWatch silence{host_, messages_, expected};
    return wait_watched(bytes, silence);
}

bool Exchange::wait_watched(std::size_t bytes, SilenceWatch& silence) {
    silence.restart();
    return wait_for(host_, port_, bytes, kNoLimit, [&](std::size_t count) {
        silence.poll(count);
        return bytes;
    });
}

bool Exchange::read_stream(std::size_t total, Limit limit) {
    SilenceWatch silence{host_, messages_, kUsualReply};
    std::size_t last = 0;
    std::size_t shown = 0;
    const bool complete = wait_for(host_, port_, total, limit, [&](std::size_t count) {
        if (!limit) silence.poll(count);
        if (count != last && count % dialect_.read_block == 0) {
            acknowledge();
            last = count;
        }
        show_progress(shown, count, total - 1);
        shown = count;
        return std::min(total, (count / dialect_.read_block + 1) * dialect_.read_block);
    });
    messages_.ShowProgress(Messages::Progress::Off);
    return complete;
}

std::vector<std::uint8_t> Exchange::read_config(std::size_t bytes, Limit limit) {
    if (!wait(bytes, limit)) return {};
    acknowledge();
    wait(bytes + 1, kNoLimit);
    return take();
}

std::vector<std::uint8_t> Exchange::read_config_at_once(std::size_t bytes) {
    acknowledge();
    wait(bytes + 1, kNoLimit);
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

// The bytes that are waiting and, if they are fewer than `most`, those that arrive within
// kReportTime.
std::vector<std::uint8_t> Exchange::take_report(std::size_t most) {
    auto reply = take();
    if (reply.size() < most) port_.wait_for_data(most - reply.size(), kReportTime);
    const auto rest = take();
    reply.insert(reply.end(), rest.begin(), rest.end());
    return reply;
}

std::vector<std::uint8_t> Exchange::take_ready(std::string_view abort) {
    auto reply = take();
    if (reply.size() == 1 && is_one_of(reply.front(), abort)) {
        const auto rest = take_report(kItemReport - 1);
        reply.insert(reply.end(), rest.begin(), rest.end());
    }
    return reply;
}

WriteResult Exchange::write_stream(std::span<const std::uint8_t> image, const WriteRules& rules) {
    SilenceWatch silence{host_, messages_, kUsualReply};
    const auto wait_for_reply = [&] {
        return rules.limit ? wait(1, rules.limit) : wait_watched(1, silence);
    };
    WriteResult result;
    for (auto& i = result.index; i < image.size(); i += rules.item_bytes) {
        host_.pump();  // a board that is ready at once would leave the interface unpumped
        if (!wait_for_reply()) {
            result.end = WriteEnd::NoReady;
            break;
        }
        result.reply = take_ready(rules.abort);
        if (result.reply.size() > 1 && is_one_of(result.reply.front(), rules.abort)) {
            result.end = WriteEnd::Interrupted;
            break;
        }
        messages_.ShowProgress(Messages::Progress::On, 0, static_cast<int>(image.size()),
                               static_cast<int>(i));
        port_.write(image.subspan(i, rules.item_bytes));
    }
    messages_.ShowProgress(Messages::Progress::Off);
    if (result.end != WriteEnd::Done) return result;
    if (!wait_for_reply()) {
        result.end = WriteEnd::NoReply;
        return result;
    }
    result.reply = take();
    if (result.reply.front() == kEndCode) return result;
    result.end = WriteEnd::NoEndCode;
    const auto rest = take_report(kItemReport);
    result.reply.insert(result.reply.end(), rest.begin(), rest.end());
    return result;
}

WriteResult Exchange::write_config(std::span<const std::uint8_t> image, Limit limit) {
    SilenceWatch silence{host_, messages_, kUsualReply};
    const auto reply_came = [&] { return limit ? wait(1, limit) : wait_watched(1, silence); };
    WriteResult result;
    for (auto& i = result.index; i < image.size(); i += 2) {
        host_.pump();
        if (!reply_came()) {
            result.end = WriteEnd::NoReady;
            return result;
        }
        result.reply = take_report(kConfigReport);
        if (result.reply.size() >= kConfigReport) {
            result.end = WriteEnd::Interrupted;
            return result;
        }
        port_.write(image.subspan(i, 2));
    }
    result.reply.clear();
    if (!reply_came()) {
        result.end = WriteEnd::NoReply;
        return result;
    }
    result.reply = take_report(kConfigReport);
    if (result.reply.front() == kEndCode) return result;
    result.end = WriteEnd::NoEndCode;
    return result;
}

}  // namespace quillon
