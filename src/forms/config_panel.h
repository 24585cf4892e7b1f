// SPDX-License-Identifier: MIT
// The configuration tabs of frmMain: a grid of fields for each word, the option list and the free
// entry over a cell, the ID boxes and the words as numbers.
//
// A click, Return, F2 or Space on a cell opens its option list. A hexadecimal digit opens the free
// entry. Escape leaves the cell unchanged.
#pragma once

#include <QTableWidget>
#include <QWidget>
#include <array>

#include "app/main_form.h"
#include "catalogue/config_model.h"
#include "forms/binders.h"

class QComboBox;
class QLineEdit;
class QTabWidget;

namespace quillon {

// The grid of one configuration word. It reports which cell is to be opened, and edits nothing.
class ConfigGrid : public QTableWidget {
  public:
    explicit ConfigGrid(QWidget* parent = nullptr);
    std::function<void(int row, int column)> on_open;  // counted from 0, without the heading
    std::function<bool(int row, char key)> on_type;    // false if the key isn't used

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

class ConfigPanel : public QWidget {
  public:
    ConfigPanel(MainForm& form, ConfigModel& config, const Catalogue& catalogue, Bindings& bindings,
                QWidget* parent = nullptr);

    std::function<void()> on_change;  // the user has changed a word

  private:
    void make_grids(Bindings& bindings);
    void make_option_list(Bindings& bindings);
    void change(const std::function<void()>& act);
    void make_texts(Bindings& bindings);
    void show_help_tips(int n);
    void place_over_cell(QWidget& widget);
    void focus_grid();
    void close_option_list();

    MainForm& form_;
    ConfigModel& config_;
    const Catalogue& catalogue_;
    Bindings& bindings_;
    QTabWidget* tabs_;
    std::array<ConfigGrid*, 7> grids_{};
    QComboBox* options_;
    QLineEdit* free_entry_;
};

}  // namespace quillon
