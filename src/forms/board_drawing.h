// SPDX-License-Identifier: MIT
// The drawing of the programmer board: its five sockets with the pins that programming uses, and
// the jumper JP2. frmBoard lights one socket, frmIndex names the pins of all.
//
// Sockets are upright, with pin 1 at the upper left. Lengths are in steps between two pins.
#pragma once

#include <QRectF>
#include <QWidget>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

class QPainter;

namespace quillon {

enum class PinFunction : std::uint8_t { VDD, VSS, VPP, PGC, PGD };

struct SocketPin {
    int number;
    PinFunction function;
};

struct BoardSocket {
    std::string_view control;  // the shape of frmBoard that lights the socket
    std::string_view title;
    int pins;
    std::span<const SocketPin> used;
};

std::span<const BoardSocket> board_sockets();

class BoardDrawing : public QWidget {
  public:
    enum class Names : std::uint8_t { None, Pins };
    explicit BoardDrawing(Names names, QWidget* parent = nullptr);

    QRect socket_area(std::size_t socket) const;
    // The jumper's area on pins 1 and 2, or on 2 and 3.
    QRect jumper_area(int first_pin) const;
    QRect jumper_text_area() const;
    // Draws a socket into its area, whose upper left is `corner`.
    void paint_socket(QPainter& painter, std::size_t socket, QPointF corner, bool lit) const;
    double step() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    double socket_pitch() const;  // from one socket's left edge to the next one's, in steps
    void paint_jumper(QPainter& painter) const;
    void paint_pin_names(QPainter& painter, std::size_t socket) const;

    Names names_;
};

// The colour of a pin by its function. It is the same in every theme because the board has its own
// background.
QColor pin_colour(PinFunction function);
std::string_view pin_name(PinFunction function);

}  // namespace quillon
