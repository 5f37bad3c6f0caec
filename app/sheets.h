#pragma once

namespace Ui {
class MainWindow;
}

/// Gives every widget of the set up form \a ui its style sheet. Apart from the window, so that a window with
/// nothing but form and sheets can be made, which is what the start is measured against.
void setsheets(const Ui::MainWindow& ui);
