#include "sheets.h"

#include "styles.h"
#include "ui_mainwindow.h"

#include <QScrollBar>

void setsheets(const Ui::MainWindow& ui)
{
    ui.centralWidget->setStyleSheet(Style::centralWidget());
    // All labels but label_4, which shows on the window's own background.
    for (QLabel* label : {ui.label, ui.label_2, ui.label_3, ui.label_5, ui.label_6, ui.label_7, ui.label_9,
                          ui.label_10, ui.bank_label, ui.bank_label_3, ui.label_padname})
        label->setStyleSheet(Style::label());
    // All group boxes but groupBox_colors, which belongs to the one around it.
    for (QGroupBox* box : {ui.groupBox, ui.groupBox_2, ui.groupBox_3, ui.groupBox_4, ui.groupBox_midis,
                           ui.groupBox_pads, ui.groupBox_controller})
        box->setStyleSheet(Style::groupBox());
    for (QRadioButton* radio :
         {ui.radio_outputpage, ui.radio_outputmidi, ui.radioButton_8pads, ui.radioButton_16pads})
        radio->setStyleSheet(Style::radioButton());
    for (QLineEdit* edit : {ui.padsname, ui.bankname})
        edit->setStyleSheet(Style::lineEdit());
    for (QPushButton* button : {ui.loadini, ui.pushButton_2, ui.cleanpads_button, ui.cleanmidi_button})
        button->setStyleSheet(Style::pushButton());
    for (QComboBox* combo :
         {ui.combobox, ui.devicescombo, ui.mididevices, ui.combo_offcolor, ui.combo_oncolor, ui.bankcombo})
        combo->setStyleSheet(Style::comboBox());
    ui.tablecontroller->setStyleSheet(Style::controllerTable());
    ui.dmxlistview->setStyleSheet(Style::listTable());
    ui.vdjlistview->setStyleSheet(Style::listTable());
    for (QTableView* view : {ui.dmxlistview, ui.vdjlistview, ui.tablecontroller})
        view->verticalScrollBar()->setStyleSheet(Style::scrollBar());
}
