#include "dialog.h"

#include "addresses.h"
#include "focusring.h"
#include "styles.h"
#include "ui_dialog.h"
#include "version.h"

#include <QDesktopServices>
#include <QUrl>

namespace {

void openaddress(const char* address) { QDesktopServices::openUrl(QUrl(QString::fromUtf8(address))); }

} // namespace

Dialog::Dialog(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::Dialog>())
{
    ui->setupUi(this);
    ui->label_7->setText(ui->label_7->text().arg(QLatin1String(programVersion)));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowTitle(tr("Lumipad - About"));
    setStyleSheet(Style::aboutDialog());
    setSizeGripEnabled(false);
    new FocusRing(this);
}

Dialog::~Dialog() = default;

void Dialog::on_checkupdates_clicked() { openaddress(Address::addOns); }

void Dialog::on_support_clicked() { openaddress(Address::support); }

void Dialog::on_vdjwebsite_clicked() { openaddress(Address::virtualDj); }

void Dialog::on_pushButton_clicked() { openaddress(Address::os2l); }

void Dialog::on_tlcforum_clicked() { openaddress(Address::lightingController); }
