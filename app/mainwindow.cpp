#include "mainwindow.h"

#include "accessible.h"
#include "cells.h"
#include "controller.h"
#include "dialog.h"
#include "focusring.h"
#include "listdelegates.h"
#include "menustyle.h"
#include "messages.h"
#include "mydelegate.h"
#include "mymodel.h"
#include "padgeometry.h"
#include "radiostyle.h"
#include "sheets.h"
#include "styles.h"
#include "toolkit.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

/// The resources live in a library, from which nothing but this call links them. Q_INIT_RESOURCE does not
/// work inside a namespace.
static void initresources() { Q_INIT_RESOURCE(lumipad); }

namespace {

// The two ways into the MIDI layout differ by one pixel.
constexpr int midiWindowWidthFromPads = 1365;

/// The icon of every window, in the sizes of title bars, task bars and switchers.
QIcon windowicon()
{
    QIcon icon;
    for (const char* size : {"16", "32", ""})
        icon.addFile(QStringLiteral(":/icons/Images/lumipadicon%1.png").arg(QLatin1String(size)));
    // By its name alone Qt 6 would give it to screens of twice the scale only.
    QPixmap largest(QStringLiteral(":/icons/Images/lumipadicon@2x.png"));
    largest.setDevicePixelRatio(1);
    icon.addPixmap(largest);
    return icon;
}

/// Creates the last folder of \a path only; that it failed shows when something is saved there.
void createfolder(const QString& path)
{
    if (!QDir(path).exists())
        QDir().mkdir(path);
}

void setdragging(QTableView* view, bool acceptdrops)
{
    view->setDragEnabled(true);
    view->setAcceptDrops(acceptdrops);
    view->setDropIndicatorShown(acceptdrops);
    view->setDefaultDropAction(Qt::CopyAction);
}

QMessageBox::StandardButton confirmexit(const QString& style)
{
    return showmessage(style, MainWindow::tr("Project is not empty."),
                       MainWindow::tr("Are you sure you want to exit ?"),
                       QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel);
}

void removeallrows(QAbstractItemModel* model)
{
    if (model->rowCount() > 0)
        model->removeRows(0, model->rowCount());
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::MainWindow>()),
      homePath(QStandardPaths::writableLocation(QStandardPaths::HomeLocation)),
      documentsPath(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)),
      programFolder(documentsPath + QStringLiteral("/Lumipad")),
      projectsPath(programFolder + QStringLiteral("/projects")),
      padsPath(documentsPath + QStringLiteral("/VirtualDJ/Pads")),
      mappersPath(documentsPath + QStringLiteral("/VirtualDJ/Mappers")),
      history(std::make_unique<app::History>(
          static_cast<int>(outputs.size()), [this](int output) { return takework(output); },
          [this](int output, const app::Work& work) { putwork(output, work); }))
{
    initresources();
    QApplication::setWindowIcon(windowicon());
    installaccessibility();
    ui->setupUi(this);
    setWindowTitle(tr("Lumipad"));
    setupviews();
    setupoutputs();
    setuphistory();
    const app::History::Step start(history.get());

    // The two boxes of the MIDI side overlap; the last line of this one would hide the first of the grid's.
    ui->groupBox_midis->setMask(ui->groupBox_midis->rect().adjusted(0, 0, 0, -1));

    ui->mainToolBar->hide();
    ui->statusBar->hide();
    ui->statusBar->setSizeGripEnabled(false);
    setstyles();
    setupkeys();

    resetbanks();
    updatebankcombo();
    {
        // Nothing is to answer to the first entry: there is no mapping yet, and no grid.
        const QSignalBlocker quiet(ui->devicescombo);
        readdefaultmappers();
    }
    readmappers();
    initpadlist();
    updatemidicombo(0);

    createfolder(programFolder);
    createfolder(projectsPath);

    ui->radioButton_8pads->setChecked(true);
    ui->vdjlistview->hideColumn(1);
    ui->radio_outputpage->setChecked(true);
    // Not showoutput(): the field reads "Pad Page", as the form has it, until an output is clicked.
    placeoutput(outputs.at(PadsOutput), outputs.at(PadsOutput).windowWidth);

    messageBoxStyle = Style::messageBox();
    // A key typed now must not change a name.
    ui->loadini->setFocus();
    history->clear();
    namepopups(this);
    new FocusRing(this);
}

MainWindow::~MainWindow()
{
    // A text that is still being edited is stored when the views go; there is no history any more by then.
    for (const OutputMode& output : outputs)
        output.grid->watchchanges([] {}, [] {});
}

void MainWindow::setupviews()
{
    for (QTableView* view : {ui->dmxlistview, ui->vdjlistview, ui->tablecontroller}) {
        // Ahead of the models: a header that is shown loads its bold fonts to measure what it would read.
        view->horizontalHeader()->hide();
        view->verticalHeader()->hide();
    }
    delegate = new Mydelegate(this);
    vdjModel = new VDJModel(this);
    ui->vdjlistview->setModel(vdjModel);
    setdragging(ui->vdjlistview, true);
    ui->vdjlistview->horizontalHeader()->setStretchLastSection(true);
    ui->vdjlistview->setSelectionMode(QAbstractItemView::SingleSelection);
    ui->vdjlistview->setColumnWidth(0, padspage::padWidth);
    ui->vdjlistview->setMouseTracking(true);

    controllerModel = new Controller(this);
    ui->tablecontroller->setModel(controllerModel);
    setdragging(ui->tablecontroller, true);
    ui->tablecontroller->verticalHeader()->setMinimumSectionSize(Grid::SpacerSize);
    ui->tablecontroller->horizontalHeader()->setMinimumSectionSize(Grid::SpacerSize);
    ui->tablecontroller->setItemDelegate(delegate);
    ui->tablecontroller->setMouseTracking(true);

    dmxModel = new MyModel(this);
    ui->dmxlistview->setModel(dmxModel);
    setdragging(ui->dmxlistview, false);
    ui->dmxlistview->horizontalHeader()->setStretchLastSection(true);
    ui->dmxlistview->setSelectionMode(QAbstractItemView::SingleSelection);

    for (QTableView* view : {ui->dmxlistview, ui->vdjlistview, ui->tablecontroller}) {
        connect(static_cast<RecordModel*>(view->model()), &RecordModel::recordsChanged, view->viewport(),
                qOverload<>(&QWidget::update));
        // Tab leads on to the next control; the arrow keys walk the cells.
        view->setTabKeyNavigation(false);
    }
    for (QTableView* list : {ui->dmxlistview, ui->vdjlistview})
        list->setItemDelegate(new SwatchDelegate(list));
    // Eight rows fill both lists exactly; the toolkit's own height follows the screen's resolution.
    ui->dmxlistview->verticalHeader()->setDefaultSectionSize(padspage::padHeight);
    ui->vdjlistview->verticalHeader()->setDefaultSectionSize(padspage::padHeight);
    ui->tablecontroller->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui->tablecontroller, &QWidget::customContextMenuRequested, this,
            &MainWindow::customMenuRequested);
    connect(ui->vdjlistview, &QWidget::customContextMenuRequested, this, &MainWindow::customMenuRequestedvdj);
    connect(vdjModel, &VDJModel::ItemDroped, this, &MainWindow::CheckChanged);
    connect(dmxModel, &MyModel::ItemUnchecked, this, &MainWindow::dmxcheckchange);
    connect(vdjModel, &VDJModel::ItemToUncheck, this, &MainWindow::dmxtoremove);
    connect(controllerModel, &Controller::ItemDroped, this, &MainWindow::CheckChangedCon);
    connect(controllerModel, &Controller::ItemToUncheck, this, &MainWindow::dmxtoremove2);
    ui->vdjlistview->setContextMenuPolicy(Qt::CustomContextMenu);
}

void MainWindow::setstyles()
{
    if (sheetsStopFonts) {
        // So every widget gets as its own what it has from its parent.
        const auto widgets = ui->centralWidget->findChildren<QWidget*>();
        for (QWidget* widget : widgets)
            widget->setFont(widget->font());
    }
    for (QRadioButton* radio :
         {ui->radio_outputpage, ui->radio_outputmidi, ui->radioButton_8pads, ui->radioButton_16pads})
        radio->setStyle(new RadioStyle(radio));
    ui->menuPage->setStyle(new MenuStyle(ui->menuPage));
    for (QComboBox* combo : {ui->combobox, ui->devicescombo, ui->mididevices, ui->combo_offcolor,
                             ui->combo_oncolor, ui->bankcombo})
        combo->setItemDelegate(new PopupDelegate(combo));
    setsheets(*ui);
}

void MainWindow::setupoutputs()
{
    OutputMode& pads = outputs.at(PadsOutput);
    pads.radio = ui->radio_outputpage;
    pads.view = ui->vdjlistview;
    pads.grid = vdjModel;
    // The second column keeps no mark: a Live Button that stands only there counts as not used.
    pads.markColumns = 1;
    pads.widgets = {ui->groupBox_pads};
    pads.box = QRect(290, 30, 341, 51);
    pads.windowWidth = 650;
    pads.label = tr("Pads Page");
    pads.empty = [this](const QModelIndex& pad) { padspage::emptypad(vdjModel, pad); };
    pads.takeoff = [this](const QModelIndex& pad) { padspage::takeoff(vdjModel, pad); };
    pads.places = [this] { return padplaces(); };
    pads.openmenu = [this](const QPoint& pos) { customMenuRequestedvdj(pos); };
    pads.take = [this](app::Work* work) { takepadspage(work); };
    pads.put = [this](const app::Work& work) { putpadspage(work); };
    pads.exportwork = [this] { return exportpage(); };
    pads.savework = [this](const QString& path) { savepadsproject(path); };

    OutputMode& midi = outputs.at(MidiOutput);
    midi.radio = ui->radio_outputmidi;
    midi.view = ui->tablecontroller;
    midi.grid = controllerModel;
    midi.markColumns = controllerModel->columnCount();
    midi.widgets = {ui->groupBox_midis, ui->groupBox_controller};
    midi.box = QRect(290, 30, 1071, 51);
    midi.windowWidth = 1366;
    midi.label = tr("MIDI Mapping");
    midi.empty = [this](const QModelIndex& cell) { controller::emptycell(controllerModel, cell); };
    midi.takeoff = [this](const QModelIndex& cell) { controller::takeoff(controllerModel, cell); };
    midi.places = [this] { return cellplaces(); };
    midi.openmenu = [this](const QPoint& pos) { customMenuRequested(pos); };
    midi.take = [this](app::Work* work) { takecontroller(work); };
    midi.put = [this](const app::Work& work) { putcontroller(work); };
    midi.exportwork = [this] { return exportmapping(); };
    midi.savework = [this](const QString& path) { savemidiproject(path); };
}

const OutputMode& MainWindow::chosenoutput() const
{
    const auto* chosen = std::find_if(outputs.cbegin(), outputs.cend(),
                                      [](const OutputMode& output) { return output.radio->isChecked(); });
    return chosen == outputs.cend() ? outputs.back() : *chosen;
}

void MainWindow::placeoutput(const OutputMode& output, int width)
{
    for (const OutputMode& any : outputs)
        for (QWidget* widget : any.widgets)
            widget->setVisible(&any == &output);
    for (const OutputMode& any : outputs) {
        // A grid that lies behind another one is not hidden, so it would still be found by Tab.
        any.view->setFocusPolicy(&any == &output ? Qt::StrongFocus : Qt::NoFocus);
        if (&any != &output && (any.view == focusWidget() || any.view->isAncestorOf(focusWidget())))
            output.view->setFocus();
    }
    ui->groupBox->setGeometry(output.box);
    setFixedWidth(width);
}

void MainWindow::showoutput(const OutputMode& output, int width)
{
    placeoutput(output, width);
    ui->label_padname->setText(output.label);
}

void MainWindow::on_radio_outputpage_clicked()
{
    resetdmxlist();
    const OutputMode& output = chosenoutput();
    showoutput(output, output.radio == ui->radio_outputpage ? output.windowWidth : midiWindowWidthFromPads);
}

void MainWindow::on_radio_outputmidi_clicked()
{
    resetdmxlist();
    const OutputMode& output = chosenoutput();
    showoutput(output, output.windowWidth);
}

/// Takes over a name or text that is still being typed: a key or menu entry leaves the focus where it is. The
/// keyboard stays there too, or in the grid whose pad was being edited.
void MainWindow::finishediting()
{
    // The editor of a pad's text is a line edit too.
    auto* edit = qobject_cast<QLineEdit*>(focusWidget());
    if (!edit)
        return;
    edit->clearFocus();
    // In a window that is not active no edit notices that it lost the focus.
    if (edit == ui->bankname)
        on_bankname_editingFinished();
    else if (edit == ui->padsname)
        on_padsname_editingFinished();
    QWidget* const goeson = edit->hasFrame() ? static_cast<QWidget*>(edit) : chosenoutput().view;
    goeson->setFocus();
}

bool MainWindow::projectempty() const
{
    return std::any_of(outputs.cbegin(), outputs.cend(), [](const OutputMode& output) {
        return output.radio->isChecked() && show::gridempty(*output.grid);
    });
}

void MainWindow::message(const QString& text, const QString& informativetext)
{
    showmessage(messageBoxStyle, text, informativetext);
}

bool MainWindow::confirmoverwrite(const QString& text)
{
    return showmessage(messageBoxStyle, text, tr("Do you want to overwrite ?"),
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    const bool stay =
        !showName.isEmpty() && !projectempty() && confirmexit(messageBoxStyle) == QMessageBox::Cancel;
    event->setAccepted(!stay);
}

void MainWindow::on_actionExit_triggered()
{
    if (showName.isEmpty()) {
        close();
    } else if (projectempty()) {
        showName.clear();
        close();
        close();
    } else {
        const QMessageBox::StandardButton answer = confirmexit(messageBoxStyle);
        if (answer == QMessageBox::Cancel)
            return;
        // Without a show name the close guard does not ask a second time.
        if (answer == QMessageBox::Yes)
            showName.clear();
        close();
    }
}

void MainWindow::on_actionNew_triggered() { on_loadini_clicked(); }

void MainWindow::on_loadini_clicked()
{
    if (showName.isEmpty() || projectempty()) {
        loadshow();
        return;
    }
    const auto answer = showmessage(
        messageBoxStyle, tr("Are you sure you want to open a new Show \nbefore saving current Project ?"),
        QString(), QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        on_actionSave_2_triggered();
    if (answer == QMessageBox::Yes || answer == QMessageBox::Save)
        loadshow();
}

void MainWindow::on_actionNew_2_triggered()
{
    finishediting();
    const app::History::Step step(history.get());
    initpadlist();
    show::unmarkrows(dmxModel);
    ui->dmxlistview->setCurrentIndex(dmxModel->index(0, 0));
    ui->dmxlistview->setFocus();
}

void MainWindow::cleanDMX() { removeallrows(dmxModel); }

void MainWindow::cleanVDJ() { removeallrows(vdjModel); }

void MainWindow::cleanMIDI() { removeallrows(controllerModel); }

void MainWindow::on_actionAbout_triggered()
{
    Dialog dialog(this);
    dialog.setModal(true);
    dialog.exec();
}

void MainWindow::on_actionAbout_2_triggered() { on_actionAbout_triggered(); }

void MainWindow::on_actionManual_triggered()
{
    const QString manual = programFolder + QStringLiteral("/Manual.pdf");
    if (!QFileInfo::exists(manual))
        QFile::copy(QStringLiteral(":/icons/Images/Manual.pdf"), manual);
    QDesktopServices::openUrl(QUrl::fromLocalFile(manual));
}
