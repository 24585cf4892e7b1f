// SPDX-License-Identifier: MIT
// Gives the focus back to a widget, but only if the widget lost it by being disabled.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quillon {

class LostFocus : public QObject {
  public:
    explicit LostFocus(QWidget* widget) : widget_{widget} {
        if (widget_) widget_->installEventFilter(this);
    }
    void give_back() const {
        if (widget_ && disabled_ && widget_->isEnabled() && widget_->isVisible())
            widget_->setFocus(Qt::OtherFocusReason);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::EnabledChange && !widget_->isEnabled()) disabled_ = true;
        return QObject::eventFilter(watched, event);
    }

  private:
    QPointer<QWidget> widget_;
    bool disabled_ = false;
};

}  // namespace quillon
