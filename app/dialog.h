#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class Dialog;
}

/// The About box: the program, its version line and five buttons that open web pages in the desktop's
/// browser.
class Dialog : public QDialog
{
    Q_OBJECT

public:
    explicit Dialog(QWidget* parent = nullptr);
    ~Dialog() override;

public slots:
    void on_checkupdates_clicked();
    void on_support_clicked();
    void on_vdjwebsite_clicked();
    void on_pushButton_clicked();
    void on_tlcforum_clicked();

private:
    std::unique_ptr<Ui::Dialog> ui;
};
