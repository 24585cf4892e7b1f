// SPDX-License-Identifier: MIT
// The drawing of the programmer board.
#include "forms/board_drawing.h"

#include <QPainter>

#include "forms/binders.h"

namespace quillon {

namespace {

using enum PinFunction;

// Parts with 8, 14 and 20 pins share one socket: counted from the index end, their supply and data
// pins agree.
constexpr std::array kPins8{SocketPin{1, VDD}, SocketPin{4, VPP}, SocketPin{20, VSS},
                            SocketPin{19, PGD}, SocketPin{18, PGC}};
constexpr std::array kPins18{SocketPin{4, VPP}, SocketPin{5, VSS}, SocketPin{14, VDD},
                             SocketPin{12, PGC}, SocketPin{13, PGD}};
constexpr std::array kPins28{SocketPin{1, VPP},  SocketPin{8, VSS},  SocketPin{19, VSS},
                             SocketPin{20, VDD}, SocketPin{27, PGC}, SocketPin{28, PGD}};
constexpr std::array kPins28A{SocketPin{2, VDD}, SocketPin{4, VSS}, SocketPin{28, VPP},
                              SocketPin{16, PGC}, SocketPin{17, PGD}};
constexpr std::array kPins40{SocketPin{1, VPP},  SocketPin{11, VDD}, SocketPin{12, VSS},
                             SocketPin{31, VSS}, SocketPin{32, VDD}, SocketPin{39, PGC},
                             SocketPin{40, PGD}};

constexpr std::array kSockets{
    BoardSocket{"Shape_8P", "8-20", 20, kPins8}, BoardSocket{"Shape_18P", "18", 18, kPins18},
    BoardSocket{"Shape_28P", "28", 28, kPins28}, BoardSocket{"Shape_28AP", "28A", 28, kPins28A},
    BoardSocket{"Shape_40P", "40", 40, kPins40},
};

// Lengths in steps between two pins
constexpr double kMargin = 3;
constexpr double kTop = 5;
constexpr double kSocketWidth = 5;
constexpr double kGap = 3.5;
constexpr double kGapWithNames = 10;
constexpr double kFoot = 2.5;
constexpr double kJumperStep = 1.6;

const QColor kBoard{0x2B, 0x5D, 0x4B};
const QColor kBoardEdge{0x1C, 0x40, 0x33};
const QColor kSilk{0xE6, 0xEF, 0xEA};
const QColor kSocketBody{0x24, 0x4C, 0x3E};
const QColor kChip{0x22, 0x26, 0x2B};
const QColor kPin{0x7E, 0x9C, 0x90};
const QColor kChipPin{0xC4, 0xCA, 0xCE};
const QColor kLight{0xFF, 0xD5, 0x6B};

}  // namespace

std::span<const BoardSocket> board_sockets() { return kSockets; }

QColor pin_colour(PinFunction function) {
    switch (function) {
        case VDD:
            return {0xFF, 0x8A, 0x80};
        case VSS:
            return {0x90, 0xC2, 0xFF};
        case VPP:
            return {0xFF, 0xC4, 0x57};
        case PGC:
            return {0xB9, 0xF0, 0x8A};
        case PGD:
            return {0xE6, 0xB3, 0xFF};
    }
    return {};
}

std::string_view pin_name(PinFunction function) {
    switch (function) {
        case VDD:
            return "VDD";
        case VSS:
            return "VSS";
        case VPP:
            return "VPP";
        case PGC:
            return "PGC";
        case PGD:
            return "PGD";
    }
    return {};
}

BoardDrawing::BoardDrawing(Names names, QWidget* parent) : QWidget{parent}, names_{names} {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

double BoardDrawing::step() const {
    // With pin names, a step is as high as a line of text: each name is beside its pin.
    return names_ == Names::Pins ? fontMetrics().height() * 0.95 : fontMetrics().height() * 0.72;
}

double BoardDrawing::socket_pitch() const {
    return kSocketWidth + (names_ == Names::Pins ? kGapWithNames : kGap);
}

QRect BoardDrawing::socket_area(std::size_t socket) const {
    const double left = kMargin + (names_ == Names::Pins ? kGapWithNames / 2 - 1 : 0) +
                        socket_pitch() * static_cast<double>(socket);
    const int rows = kSockets[socket].pins / 2 + 1;
    return QRectF{left * step(), kTop * step(), kSocketWidth * step(), rows * step()}
        .toAlignedRect();
}

QRect BoardDrawing::jumper_area(int first_pin) const {
    const double y = kTop + 10 + 5.5;  // below the shortest sockets, of ten rows
    return QRectF{(kMargin + (first_pin - 1) * kJumperStep) * step(), y * step(),
                  2 * kJumperStep * step(), kJumperStep * step()}
        .toAlignedRect();
}

QRect BoardDrawing::jumper_text_area() const {
    const QRect first = jumper_area(1);
    return {first.left(), first.bottom() + static_cast<int>(step() / 2),
            static_cast<int>(11 * step()), fontMetrics().height() + 2};
}

QSize BoardDrawing::sizeHint() const {
    const double gaps = names_ == Names::Pins ? kGapWithNames / 2 - 1 : 0;
    const double width = 2 * (kMargin + gaps) + socket_pitch() * 4 + kSocketWidth;
    return QSizeF{width * step(), (kTop + 21 + kFoot) * step()}.toSize();
}

void BoardDrawing::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen{kBoardEdge, 2});
    painter.setBrush(kBoard);
    painter.drawRoundedRect(QRectF{rect()}.adjusted(1, 1, -1, -1), step() * 0.7, step() * 0.7);

    for (std::size_t socket = 0; socket < kSockets.size(); ++socket) {
        const QRect area = socket_area(socket);
        paint_socket(painter, socket, area.topLeft(), false);
        painter.setPen(kSilk);
        painter.drawText(QRectF(area.left() - 2 * step(), area.top() - 2.6 * step(),
                                area.width() + 4 * step(), 2.2 * step()),
                         Qt::AlignHCenter | Qt::AlignBottom, q(kSockets[socket].title));
        if (names_ == Names::Pins) paint_pin_names(painter, socket);
    }
    if (names_ == Names::None) paint_jumper(painter);
}

void BoardDrawing::paint_socket(QPainter& painter, std::size_t socket, QPointF corner,
                                bool lit) const {
    const BoardSocket& facts = kSockets[socket];
    const double s = step();
    const int rows = facts.pins / 2;
    const QRectF body{corner.x() + s, corner.y(), (kSocketWidth - 2) * s, (rows + 1) * s};
    const auto pin_at = [&](int pin) {
        const bool left = pin <= rows;
        const int row = left ? pin - 1 : facts.pins - pin;
        return QRectF{corner.x() + (left ? 0.15 : kSocketWidth - 1.05) * s,
                      corner.y() + (row + 0.72) * s, 0.9 * s, 0.56 * s};
    };
    painter.setPen(lit ? QPen{kLight, 2} : QPen{kPin, 1});
    painter.setBrush(lit ? kChip : kSocketBody);
    painter.drawRoundedRect(body, s * 0.25, s * 0.25);
    // The index: a notch at the upper end.
    painter.setBrush(lit ? kLight : kBoard);
    painter.setPen(Qt::NoPen);
    painter.drawChord(QRectF{body.center().x() - 0.6 * s, body.top() - 0.6 * s, 1.2 * s, 1.2 * s},
                      180 * 16, 180 * 16);
    for (int pin = 1; pin <= facts.pins; ++pin) {
        painter.setBrush(lit ? kChipPin : kPin);
        for (const SocketPin& used : facts.used)
            if (used.number == pin && (lit || names_ == Names::Pins))
                painter.setBrush(pin_colour(used.function));
        painter.drawRoundedRect(pin_at(pin), 1, 1);
    }
}

void BoardDrawing::paint_pin_names(QPainter& painter, std::size_t socket) const {
    const BoardSocket& facts = kSockets[socket];
    const QRect area = socket_area(socket);
    const int rows = facts.pins / 2;
    for (const SocketPin& used : facts.used) {
        const bool left = used.number <= rows;
        const int row = left ? used.number - 1 : facts.pins - used.number;
        const double y = area.top() + (row + 0.5) * step();
        const QRectF place = left ? QRectF{area.left() - 5 * step(), y, 4.9 * step(), step()}
                                  : QRectF{area.right() + 0.1 * step(), y, 4.9 * step(), step()};
        const QString name = q(pin_name(used.function));
        const QString number = QString::number(used.number);
        const Qt::Alignment side = left ? Qt::AlignRight : Qt::AlignLeft;
        painter.setPen(pin_colour(used.function));
        painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter),
                         left ? name + ' ' + number : number + ' ' + name);
    }
}

void BoardDrawing::paint_jumper(QPainter& painter) const {
    const double s = step();
    const QRect first = jumper_area(1);
    painter.setPen(kSilk);
    painter.drawText(QRectF(first.left(), first.top() - 2.4 * s, 8 * s, 2 * s),
                     Qt::AlignLeft | Qt::AlignBottom, QStringLiteral("JP2"));
    painter.setBrush(kSocketBody);
    painter.setPen(QPen{kPin, 1});
    painter.drawRoundedRect(QRectF(first.left(), first.top(), 3 * kJumperStep * s, first.height()),
                            2, 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPin);
    for (int pin = 0; pin < 3; ++pin)
        painter.drawEllipse(QPointF{first.left() + (pin + 0.5) * kJumperStep * s,
                                    first.top() + first.height() / 2.0},
                            0.35 * s, 0.35 * s);
    painter.setPen(kSilk);
    for (int pin = 0; pin < 3; ++pin)
        painter.drawText(QRectF{first.left() + pin * kJumperStep * s - s, first.bottom() + 0.0,
                                kJumperStep * s + 2 * s, 1.8 * s},
                         Qt::AlignHCenter | Qt::AlignTop, QString::number(pin + 1));
}

}  // namespace quillon
