// SPDX-License-Identifier: MIT
// frmBoard: the programmer board with the socket and the jumper place for the selected device.
#include "forms/frmBoard.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "forms/board_drawing.h"
#include "forms/frmMain.h"
#include "forms/placing.h"
#include "forms/small_form_texts.h"

namespace quillon {

namespace {

const QColor kJumper{0xFF, 0xD5, 0x6B};

// A part of the drawing that is shown or hidden by itself.
class Overlay : public QWidget {
  public:
    Overlay(QWidget* parent, std::function<void(QPainter&, const QRect&)> paint)
        : QWidget{parent}, paint_{std::move(paint)} {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter{this};
        painter.setRenderHint(QPainter::Antialiasing);
        paint_(painter, rect());
    }

  private:
    std::function<void(QPainter&, const QRect&)> paint_;
};

void paint_cap(QPainter& painter, const QRect& area) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kJumper);
    painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), 3, 3);
}

Shape& shape(BoardForm& form, std::string_view name) {
    return *std::get<Shape*>(form.find(name)->second);
}

}  // namespace

frmBoard::frmBoard(Run& run, QWidget* owner)
    : QDialog{owner, Qt::Tool},
      run_{run},
      drawing_{new BoardDrawing{BoardDrawing::Names::None, this}} {
    setObjectName("frmBoard");
    setWindowTitle(q(form_text::kBoardCaption));
    make_sockets();
    make_jumper();
    auto* legend = new QHBoxLayout;
    make_legend(*legend);
    lay_out();
    auto* layout = new QVBoxLayout{this};
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(12, 12, 12, 10);
    layout->setSpacing(8);
    layout->addWidget(drawing_);
    layout->addLayout(legend);

    bindings_.keep(run.board.Visible.observe([this](bool shown) {
        if (shown) place();
        setVisible(shown);
    }));
}

void frmBoard::make_legend(QHBoxLayout& legend) {
    auto* index = new QLabel{this};
    bindings_.bind(run_.board.Label2, *index);
    legend.addWidget(index);
    legend.addStretch(1);
    for (const auto function : {PinFunction::VDD, PinFunction::VSS, PinFunction::VPP,
                                PinFunction::PGC, PinFunction::PGD}) {
        colours_.push_back(new Overlay{this, [function](QPainter& painter, const QRect& area) {
                                           painter.setPen(QColor{0x50, 0x50, 0x50});
                                           painter.setBrush(pin_colour(function));
                                           painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), 2,
                                                                   2);
                                       }});
        legend.addWidget(colours_.back());
        legend.addWidget(new QLabel{q(pin_name(function)), this});
    }
}

void frmBoard::lay_out() {
    for (const auto& [overlay, area] : overlays_) overlay->setGeometry(area());
    const int side = fontMetrics().height() * 3 / 4;
    for (auto* colour : colours_) colour->setFixedSize(side, side);
}

void frmBoard::make_sockets() {
    for (std::size_t socket = 0; socket < board_sockets().size(); ++socket) {
        auto* lit = new Overlay{drawing_, [this, socket](QPainter& painter, const QRect&) {
                                    drawing_->paint_socket(painter, socket, {0, 0}, true);
                                }};
        overlays_.push_back({lit, [this, socket] { return drawing_->socket_area(socket); }});
        bindings_.bind(shape(run_.board, board_sockets()[socket].control), *lit);
    }
}

void frmBoard::make_jumper() {
    auto* cap12 = new Overlay{drawing_, paint_cap};
    overlays_.push_back({cap12, [this] { return drawing_->jumper_area(1); }});
    auto* cap23 = new Overlay{drawing_, paint_cap};
    overlays_.push_back({cap23, [this] { return drawing_->jumper_area(2); }});
    auto* either = new QLabel{drawing_};
    QPalette own;
    own.setColor(QPalette::WindowText, kJumper);
    either->setPalette(own);
    overlays_.push_back({either, [this] {
                             const int line = drawing_->fontMetrics().height();
                             return drawing_->jumper_text_area().translated(0, line);
                         }});
    bindings_.bind(run_.board.Shape_12, *cap12);
    bindings_.bind(run_.board.Shape_23, *cap23);
    bindings_.bind(run_.board.Label_sel, *either);
}

void frmBoard::place() {
    // The size must be set before the place: a later resize would place the window by its inside,
    // with the title off the screen.
    adjustSize();
    move(beside(*parentWidget(), *this, {run_.board.Left / kTwips, run_.board.Top / kTwips}));
}

void frmBoard::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange) lay_out();
}

void frmBoard::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    if (isVisible()) run_.menu.frmBoard_Moved(x() * kTwips, y() * kTwips);
}

void frmBoard::closeEvent(QCloseEvent* event) {
    event->ignore();  // the form's Visible hides it
    run_.menu.frmBoard_Closed();
}

void frmBoard::reject() { run_.menu.frmBoard_Closed(); }

}  // namespace quillon
