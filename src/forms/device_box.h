// SPDX-License-Identifier: MIT
// The device list: a combo that is searched by typing any part of a name.
//
// A choice clears the image, so nothing is chosen in passing: the wheel does nothing, and the arrow
// keys open the list. Which device a typed text means is not decided here.
#pragma once

#include <QComboBox>
#include <cstdint>
#include <functional>

namespace quillon {

class DeviceBox : public QComboBox {
  public:
    // What becomes of an unfinished text when the box is left.
    enum class Leaving : std::uint8_t { Restores, Keeps };
    explicit DeviceBox(QWidget* parent = nullptr, Leaving leaving = Leaving::Restores);

    // Return behind a text that was typed. The box itself has gone back to the selected device by
    // then, unless it keeps texts.
    std::function<void(const QString& text)> on_typed;

  protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void hand_over();
    void restore();

    Leaving leaving_;
};

}  // namespace quillon
