// SPDX-License-Identifier: MIT
// The device list: a combo that is searched by typing any part of a name.
//
// A choice clears the image, so nothing is chosen in passing: the wheel does nothing, and the arrow
// keys open the list.
#pragma once

#include <QComboBox>

namespace quillon {

class DeviceBox : public QComboBox {
  public:
    explicit DeviceBox(QWidget* parent = nullptr);

  protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void choose_typed();
    void restore();
};

}  // namespace quillon
