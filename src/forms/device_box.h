// SPDX-License-Identifier: MIT
// The device list: a combo box that finds devices by any part of their name.
//
// A choice clears the image, so nothing is chosen by accident: the wheel does nothing, and the
// arrow keys open the list. This class doesn't decide which device a typed text means.
#pragma once

#include <QComboBox>
#include <cstdint>
#include <functional>

namespace quillon {

class DeviceBox : public QComboBox {
  public:
    // What happens to an unfinished text when the user leaves the box.
    enum class Leaving : std::uint8_t { Restores, Keeps };
    explicit DeviceBox(QWidget* parent = nullptr, Leaving leaving = Leaving::Restores);

    // Called when Return follows a typed text. By then the box shows the selected device again,
    // unless it keeps texts.
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
