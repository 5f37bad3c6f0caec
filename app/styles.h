#pragma once

#include <QColor>
#include <QString>

/// The program's style sheets, one per kind of widget, and the colours of what no sheet can draw.
namespace Style {

/// The window's ground, also inside the circles of radio buttons.
inline QColor ground() { return {0x20, 0x20, 0x20}; }
/// Inside a circle under the pressed mouse.
inline QColor pressed() { return {0x40, 0x40, 0x40}; }
/// A circle of a radio button: 4.1 to 1 against its box, where 3 is legible.
inline QColor ring() { return {0x90, 0x90, 0x90}; }
inline QColor hoveredRing() { return {0xcc, 0xcc, 0xcc}; }
inline QColor text() { return {0xcc, 0xcc, 0xcc}; }
/// The current row of the lists that combo boxes pop up.
inline QColor currentRow() { return {0x50, 0x50, 0x50}; }
/// Around the control that has the keyboard.
inline QColor focus() { return {0xaa, 0xaa, 0xaa}; }

inline QString messageBox()
{
    return QStringLiteral(
        "QMessageBox {background-color:#202020; color:#cccccc ; border: 1px solid #505050;} "
        "QMessageBox QLabel {min-width: 360px; color:white;}"
        "QMessageBox QPushButton {width: 70; height:20; color: #cccccc; background-color: #303030;"
        "border: 1px solid #505050;}"
        "QMessageBox QPushButton:hover {width: 70; height:20; color: #ffffff; background-color: #404040;"
        "border: 1px solid #606060;}");
}

inline QString aboutDialog()
{
    return QStringLiteral("QDialog {border:1px solid #606060; background-color: black; }"
                          "QLabel {color: #aaaaaa; background-color:transparent;}"
                          "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
                          "QPushButton:hover {color: #ffffff; background-color: #404040;"
                          "border: 1px solid #606060;}");
}

inline QString centralWidget()
{
    return QStringLiteral("QWidget {color: #cccccc; background-color: #202020;}");
}

inline QString label() { return QStringLiteral("QLabel {background-color:transparent; color:#cccccc} "); }

inline QString groupBox()
{
    return QStringLiteral("QGroupBox {background-color:#303030; color:white;border: 0px solid;} "
                          "QGroupBox::title {background-color:#303030; color:#909090;} ");
}

inline QString radioButton()
{
    return QStringLiteral("QRadioButton {color: #cccccc; background-color: #303030; border: 0px;}");
}

inline QString lineEdit()
{
    return QStringLiteral("QLineEdit {color: #cccccc; background-color: black; selection-color: white; "
                          "selection-background-color: #606060; border: 1px solid #606060;}"
                          "QLineEdit:focus {border: 1px solid #aaaaaa};");
}

inline QString pushButton()
{
    return QStringLiteral(
        "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
        "QPushButton:hover {color: #ffffff; background-color: #404040;border: 1px solid #606060;}"
        "QToolTip {background:#202020;color:white;border: 1px solid #808080;}");
}

inline QString controllerTable()
{
    return QStringLiteral("QTableView {font: normal 12px 'Arial' ;outline: 0; gridline-color: #252525; "
                          "background:#303030; border: 0px;}"
                          "QToolTip {background:#202020;color:white;border: 1px solid #808080;}");
}

inline QString menu()
{
    return QStringLiteral("QMenu {padding: 2px; background-color: black; border:1px solid #505050;}"
                          "QMenu::item{color:#aaaaaa; background-color: #101010;}"
                          "QMenu::item:selected{color:white;background: #404040;}"
                          "QMenu::separator{height: 1px; margin: 5px; background: #909090; }");
}

inline QString scrollBar()
{
    return QStringLiteral(
        "QScrollBar:vertical {width: 20px; border: 1px solid #505050; background: #202020;}"
        "QScrollBar::handle:vertical {background: #707070; min-height: 15px;}"
        "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical {height: 0px; border: 0px;}"
        "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical {background: transparent;}");
}

inline QString comboBox()
{
    return QStringLiteral(
               "QComboBox {color: #bbbbbb; border: 1px solid #707070; padding: 2px 0px 2px 10px;}"
               "QComboBox:hover {border: 1px solid #909090;}"
               "QComboBox:disabled {color: #707070; border: 1px solid #404040; padding: 0px 0px 0px 10px;}"
               "QComboBox::drop-down {image: url(:/icons/Images/arrowdown.png); width: 20px; "
               "background: #505050; border-left: 1px solid #707070;}"
               "QComboBox QListView {padding: 3px 0px; border: 1px solid darkgray; "
               "selection-background-color: #505050;}") +
           scrollBar();
}

inline QString listTable()
{
    return QStringLiteral("QTableView {font: normal 12px 'Arial'; outline: 0; gridline-color: #252525; "
                          "background: black; border: 0px;}"
                          "QTableView::item {background-color: black; border: 1px solid #404040;}"
                          "QTableView::item:focus {background-color: black;}"
                          "QTableView::item:selected, QTableView::item:selected:focus "
                          "{background-color: #404040; color: white;}"
                          "QTableView::item:hover {background-color: #202020;}"
                          "QTableView::item:hover:selected {background-color: #404040;}"
                          "QTableView::indicator:checked {image: url(:/icons/Images/checkbox.png); "
                          "background-color: #202020; color: #aaaaaa; border: 1px solid #505050;}"
                          "QTableView::indicator:unchecked {background-color: #202020; color: #aaaaaa; "
                          "border: 1px solid #505050;}"
                          "QToolTip {background: #202020; color: white; border: 1px solid #808080;}");
}

} // namespace Style
