// SPDX-License-Identifier: MIT
#include "platform/qt_serial_port.h"

#include <QSocketNotifier>
#include <QString>
#include <algorithm>
#include <thread>
#include <utility>

#include "app/host.h"
#ifdef Q_OS_UNIX
#include "platform/port_descriptor.h"
#endif

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 57600;
// Start bit, 8 data bits, stop bit.
constexpr std::chrono::nanoseconds kByteTime{10'000'000'000 / kBaud};
// The longest sleep computed from the line speed alone. A simulated board may be faster than its
// line, and must not be kept waiting.
constexpr std::chrono::microseconds kLongestSleep{3000};

PortOpen reason_of_failure(const QSerialPort& port, [[maybe_unused]] const std::string& name) {
    if (port.error() != QSerialPort::PermissionError) return PortOpen::Unavailable;
#ifdef Q_OS_UNIX
    // Qt reports the same error for a locked port and for one that this user may not open.
    return port_descriptor::may_open(name) ? PortOpen::Busy : PortOpen::Denied;
#else
    return PortOpen::Busy;
#endif
}

}  // namespace

QtSerialPort::QtSerialPort(NameOf name_of) : name_of_{std::move(name_of)} {}

QtSerialPort::~QtSerialPort() { QtSerialPort::close(); }

PortOpen QtSerialPort::open() {
    close();
    const std::string name = name_of_(number_);
    if (name.empty()) return PortOpen::Unavailable;
    auto port = std::make_unique<QSerialPort>(QString::fromStdString(name));
    port->setBaudRate(kBaud);
    port->setParity(QSerialPort::NoParity);
    port->setDataBits(QSerialPort::Data8);
    port->setStopBits(QSerialPort::OneStop);
    port->setFlowControl(QSerialPort::NoFlowControl);
    if (!port->open(QIODevice::ReadWrite)) return reason_of_failure(*port, name);
#ifdef Q_OS_UNIX
    // QSerialPort's notifier would read bytes at each turn of the event loop, before receive() can.
    for (auto* notifier : port->findChildren<QSocketNotifier*>()) notifier->setEnabled(false);
    if (!port_descriptor::lock(static_cast<int>(port->handle()))) return PortOpen::Busy;
    port_descriptor::tune(static_cast<int>(port->handle()));
#endif
    port_ = std::move(port);
    apply_rts();
    return PortOpen::Ok;
}

void QtSerialPort::close() {
    port_.reset();
    received_.clear();
    lost_ = false;
    sent_by_ = {};
}

void QtSerialPort::RTSEnable(bool on) {
    rts_ = on;
    if (port_) apply_rts();
}

std::size_t QtSerialPort::InBufferCount() {
    if (port_) receive();
    return received_.size();
}

std::vector<std::uint8_t> QtSerialPort::read() {
    if (port_) receive();
    return std::exchange(received_, {});
}

void QtSerialPort::lose() {
    lost_ = true;
    throw Abandoned{Abandoned::Reason::PortLost};
}

void QtSerialPort::wait_for_data(std::size_t wanted, std::chrono::microseconds time) {
    if (!port_ || lost_) lose();
    const auto end = Clock::now() + time;
    for (;;) {
        const std::size_t count = received_.size();
        if (count >= wanted) return;
        const auto left = std::chrono::ceil<std::chrono::microseconds>(end - Clock::now());
        if (left <= 0us) return;
        if (count == 0) {
            wait_for_byte(left);
            receive();
            if (received_.empty()) return;
            continue;
        }
        // The line needs this long to carry the missing bytes.
        const auto rest = kByteTime * static_cast<std::int64_t>(wanted - count);
        std::this_thread::sleep_for(
            std::min<std::chrono::nanoseconds>(rest, std::min(left, kLongestSleep)));
        receive();
        if (received_.size() > count) continue;
        wait_for_byte(
            std::min(std::chrono::ceil<std::chrono::microseconds>(end - Clock::now()), left));
        receive();
    }
}

#ifdef Q_OS_UNIX

void QtSerialPort::apply_rts() {
    if (rts_) port_descriptor::set_rts(static_cast<int>(port_->handle()), *rts_);
}

void QtSerialPort::receive() {
    if (lost_ || !port_descriptor::receive(static_cast<int>(port_->handle()), received_)) lose();
}

void QtSerialPort::wait_for_byte(std::chrono::microseconds time) {
    if (time > 0us && !port_descriptor::wait(static_cast<int>(port_->handle()), time)) lose();
}

void QtSerialPort::write(std::span<const std::uint8_t> bytes) {
    if (!port_ || lost_ || !port_descriptor::send(static_cast<int>(port_->handle()), bytes)) lose();
    sent_by_ =
        std::max(sent_by_, Clock::now()) + kByteTime * static_cast<std::int64_t>(bytes.size());
}

void QtSerialPort::discard_input() {
    if (!port_) return;
    receive();
    port_descriptor::discard_input(static_cast<int>(port_->handle()));
    received_.clear();
}

// Bytes that the line has had time to carry count as sent. A pseudo-terminal would still discard
// those that the board's side hasn't read yet.
void QtSerialPort::discard_output() {
    if (!port_) return;
    if (lost_) lose();
    if (Clock::now() < sent_by_) port_descriptor::discard_output(static_cast<int>(port_->handle()));
    sent_by_ = {};
}

#else

void QtSerialPort::apply_rts() {
    if (rts_) port_->setRequestToSend(*rts_);
    port_->clearError();
}

void QtSerialPort::receive() {
    port_->waitForReadyRead(0);
    const auto bytes = port_->readAll();
    received_.insert(received_.end(), bytes.begin(), bytes.end());
    const auto error = port_->error();
    port_->clearError();
    if (lost_ || error == QSerialPort::ResourceError) lose();
}

void QtSerialPort::wait_for_byte(std::chrono::microseconds time) {
    if (time > 0us)
        port_->waitForReadyRead(
            static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(time).count()));
}

void QtSerialPort::write(std::span<const std::uint8_t> bytes) {
    if (!port_ || lost_) lose();
    const auto size = static_cast<qint64>(bytes.size());
    if (port_->write(reinterpret_cast<const char*>(bytes.data()), size) != size) lose();
    port_->flush();
    sent_by_ = std::max(sent_by_, Clock::now()) + kByteTime * size;
}

void QtSerialPort::discard_input() {
    if (!port_) return;
    receive();
    port_->clear(QSerialPort::Input);
    received_.clear();
}

void QtSerialPort::discard_output() {
    if (!port_) return;
    if (lost_) lose();
    if (Clock::now() < sent_by_) port_->clear(QSerialPort::Output);
    sent_by_ = {};
}

#endif

}  // namespace quillon
