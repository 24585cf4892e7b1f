// SPDX-License-Identifier: MIT
// The configuration tabs of frmMain.
//
// There is one option list and one free entry, as in the model. Each moves to the grid in use.
#include "forms/config_panel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

#include "forms/frmMain_texts.h"
#include "forms/hex_validator.h"

namespace quillon {

namespace {

constexpr double kNameShare = 0.30;  // of the grid's width; the option takes the rest

// Closes itself once its popup is gone, unless a choice has closed it before.
class OptionList : public QComboBox {
  public:
    using QComboBox::QComboBox;
    std::function<void()> on_left;

    void hidePopup() override {
        QComboBox::hidePopup();
        // The choice is reported only after the popup is gone, and may have opened the list
        // elsewhere.
        const auto leave = [this] {
            if (isVisible() && !view()->isVisible() && on_left) on_left();
        };
        QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape && on_left)
            on_left();
        else
            QComboBox::keyPressEvent(event);
    }
};

// Closes itself when the user leaves it. Its own menu or another window doesn't count as leaving.
class FreeEntry : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;
    std::function<void()> on_left;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape && on_left)
            on_left();
        else
            QLineEdit::keyPressEvent(event);
        event->accept();  // else the grid below handles Return and opens its list
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        const bool stays = event->reason() == Qt::PopupFocusReason ||
                           event->reason() == Qt::ActiveWindowFocusReason;
        if (!stays && on_left) on_left();
    }
};

// A word as a text that can be clicked. It handles its own events and uses no event filter: a
// command filters the events of the widget with the focus, and adding a filter while another one
// runs makes that one run again.
class WordText : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;
    std::function<void()> on_click;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton && on_click) on_click();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Space && on_click)
            on_click();
        else
            QLineEdit::keyPressEvent(event);
    }
};

// The character that the key writes into a cell; 0 if the key is a command.
char typed_character(const QKeyEvent& event) {
    const auto held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const QString text = event.text();
    return held == Qt::NoModifier && text.size() == 1 ? text.front().toLatin1() : '\0';
}

}  // namespace

ConfigGrid::ConfigGrid(QWidget* parent) : QTableWidget{parent} {
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) {
        if (on_open) on_open(row, column);
    });
}

void ConfigGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F2:
        case Qt::Key_Space:
            if (currentRow() >= 0 && on_open) on_open(currentRow(), 1);
            return;
        default:
            if (currentRow() >= 0 && on_type && on_type(currentRow(), typed_character(*event)))
                return;
            QTableWidget::keyPressEvent(event);
    }
}

void ConfigGrid::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    const int width = viewport()->width();
    const int name = static_cast<int>(width * kNameShare);
    horizontalHeader()->resizeSection(0, name);
    horizontalHeader()->resizeSection(1, width - name);
}

ConfigPanel::ConfigPanel(MainForm& form, ConfigModel& config, const Catalogue& catalogue,
                         Bindings& bindings, QWidget* parent)
    : QWidget{parent},
      form_{form},
      config_{config},
      catalogue_{catalogue},
      bindings_{bindings},
      tabs_{new QTabWidget{this}},
      options_{new OptionList{this}},
      free_entry_{new FreeEntry{this}} {
    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(tabs_, 1);
    make_grids(bindings);
    make_option_list(bindings);
    make_texts(bindings);
}

void ConfigPanel::make_grids(Bindings& bindings) {
    tabs_->setDocumentMode(true);
    tabs_->setUsesScrollButtons(true);
    tabs_->setAccessibleName(q(form_text::kConfiguration));
    for (int n = 1; n <= kConfigWords; ++n) {
        auto* grid = new ConfigGrid{tabs_};
        grids_[static_cast<std::size_t>(n - 1)] = grid;
        tabs_->addTab(grid, q(form_text::kConfigTab) + QString::number(n));
        bindings.bind(form_.HFGrid(n), *grid);
        bindings.keep(form_.HFGrid(n).Changed.connect([this, n] { show_help_tips(n); }));
        grid->setAccessibleName(q(form_text::kConfigTab) + QString::number(n));
        // Sets the cursor first because the model takes the cell from it.
        grid->on_open = [this, n, &bindings](int row, int column) {
            close_option_list();
            form_.HFGrid(n).CursorRow.set(row + 1);
            form_.HFGrid(n).CursorColumn.set(column);
            bindings.act([&] { config_.FieldClicked(n, row + 1, column); });
        };
        grid->on_type = [this, n, &bindings](int row, char key) {
            bool taken = false;
            bindings.act([&] { taken = config_.FieldTyped(n, row + 1, 1, key); });
            return taken;
        };
        connect(grid->verticalScrollBar(), &QScrollBar::valueChanged, this,
                [this] { close_option_list(); });
    }
    bindings.bind(form_.SSTab_Config, *tabs_);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] { close_option_list(); });
}

// Calls on_change if the act changed a configuration word. The grids' headings show the words.
void ConfigPanel::change(const std::function<void()>& act) {
    const auto words = [this] {
        std::array<std::string, 7> shown;
        for (std::size_t n = 0; n < shown.size(); ++n) shown[n] = form_.HFGrids[n].cell(0, 1);
        return shown;
    };
    const auto former = words();
    act();
    if (on_change && words() != former) on_change();
}

void ConfigPanel::make_option_list(Bindings& bindings) {
    options_->hide();
    free_entry_->hide();
    bindings.bind(form_.CmbInit, *options_);
    bindings.bind(form_.TxtInit, *free_entry_);
    form_.CmbInit.Click = [this] { change([this] { config_.CmbInit_Click(); }); };
    static_cast<OptionList*>(options_)->on_left = [this] { close_option_list(); };
    static_cast<FreeEntry*>(free_entry_)->on_left = [this] { close_option_list(); };
    free_entry_->setValidator(new HexValidator{free_entry_});
    free_entry_->setAcceptDrops(false);
    connect(free_entry_, &QLineEdit::returnPressed, this, [this] {
        bindings_.act([this] { change([this] { config_.TxtInit_Done(); }); });
        // After the command, because that gives the focus back to the former widget.
        if (!form_.TxtInit.Visible.get()) focus_grid();
    });
    bindings.keep(form_.CmbInit.Visible.observe([this](bool shown) {
        if (!shown) return focus_grid();
        place_over_cell(*options_);
        options_->showPopup();
    }));
    bindings.keep(form_.TxtInit.Visible.observe(
        [this](bool shown) { shown ? place_over_cell(*free_entry_) : focus_grid(); }));
}

void ConfigPanel::make_texts(Bindings& bindings) {
    // A word in binary is wider than an ID of four digits. An ID of eight digits has the row for
    // itself.
    constexpr int kIdShare = 2;
    constexpr int kWordShare = 5;
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    const auto add = [&](TextBox& control, std::string_view title, QLineEdit* edit, int share) {
        auto* label = new QLabel{q(title), this};
        label->setBuddy(edit);
        bindings.follow(control.Visible, [label](bool on) { label->setVisible(on); });
        edit->setAccessibleName(q(title));
        edit->setAcceptDrops(false);
        row->addWidget(label);
        row->addWidget(edit, share);
        bindings.bind(control, *edit);
    };
    const auto add_word = [&](TextBox& control, std::string_view title) {
        auto* edit = new WordText{this};
        edit->setReadOnly(true);
        edit->setToolTip(q(form_text::kConfigTextTip));
        edit->on_click = [this] { bindings_.act([this] { config_.Text_Config_Click(); }); };
        add(control, title, edit, kWordShare);
    };
    auto* id = new QLineEdit{this};
    id->setValidator(new HexValidator{id});
    id->setMinimumWidth(id->fontMetrics().horizontalAdvance("DDDD") + 14);
    add(form_.Text_ID, form_text::kId, id, kIdShare);
    add_word(form_.Text_Config1, form_text::kConfig1);
    add_word(form_.Text_Config2, form_text::kConfig2);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

// Each row also has its field's help line as a tooltip, so that it can be read without a click.
void ConfigPanel::show_help_tips(int n) {
    auto& grid = *grids_[static_cast<std::size_t>(n - 1)];
    const QSignalBlocker blocker{grid};
    for (int row = 0; row < grid.rowCount(); ++row) {
        const std::string name = utf8(grid.item(row, 0)->text());
        QString tip;
        for (const auto& comment : catalogue_.CmtTable())
            if (comment.key == name) tip = q(comment.title) + QChar{u'　'} + q(comment.text);
        for (int column = 0; column < 2; ++column) grid.item(row, column)->setToolTip(tip);
    }
}

void ConfigPanel::focus_grid() {
    grids_.at(static_cast<std::size_t>(form_.SSTab_Config.Tab.get()))
        ->setFocus(Qt::OtherFocusReason);
}

void ConfigPanel::place_over_cell(QWidget& widget) {
    const int tab = form_.SSTab_Config.Tab.get();
    auto& grid = *grids_.at(static_cast<std::size_t>(tab));
    const int row = form_.HFGrid(tab + 1).CursorRow.get() - 1;
    if (row < 0 || row >= grid.rowCount()) return;
    widget.setParent(grid.viewport());
    widget.setGeometry(grid.visualRect(grid.model()->index(row, 1)).adjusted(1, 1, -1, -1));
    widget.show();
    widget.setFocus(Qt::OtherFocusReason);
}

void ConfigPanel::close_option_list() {
    form_.CmbInit.Visible.set(false);
    form_.TxtInit.Visible.set(false);
}

}  // namespace quillon
