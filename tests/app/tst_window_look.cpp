#include "mymodel.h"
#include "testmain.h"
#include "testshows.h"
#include "testwindow.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>

#include <memory>

namespace {

struct WidgetRow
{
    const char* name;
    const char* className;
    const char* parent;
    QRect geometry;
    const char* text; ///< text or title; null for widgets without
};

/// Every widget of the central widget as it stands when the program starts.
const WidgetRow widgetTable[] = {
    {"label_4",
     "QLabel",
     "centralWidget",
     {10, 5, 621, 20},
     "Create a VirtualDJ Pads Page from The Lighting Controller DMX (Sweetlight, ShowXPress, QuickDMX)"},
    {"groupBox_2", "QGroupBox", "centralWidget", {10, 30, 271, 441}, "DMX Software"},
    {"label_6", "QLabel", "groupBox_2", {10, 70, 131, 16}, "Live Pages"},
    {"combobox", "QComboBox", "groupBox_2", {10, 90, 241, 27}, nullptr},
    {"label_5", "QLabel", "groupBox_2", {10, 130, 131, 16}, "Live Buttons"},
    {"dmxlistview", "QTableView", "groupBox_2", {10, 150, 241, 240}, nullptr},
    {"loadini", "QPushButton", "groupBox_2", {120, 30, 131, 31}, "Load DMX Show"},
    {"groupBox_3", "QGroupBox", "centralWidget", {290, 175, 341, 296}, ""},
    {"vdjlistview", "QTableView", "groupBox_3", {10, 5, 301, 240}, nullptr},
    {"pushButton_2", "QPushButton", "centralWidget", {120, 490, 131, 31}, "Export"},
    {"groupBox", "QGroupBox", "centralWidget", {290, 30, 341, 51}, "VirtualDJ"},
    {"radio_outputpage", "QRadioButton", "groupBox", {11, 20, 101, 22}, "Pad Page"},
    {"radio_outputmidi", "QRadioButton", "groupBox", {120, 20, 131, 22}, "MIDI Mapping"},
    {"label_padname", "QLabel", "centralWidget", {290, 490, 111, 31}, "Pad Page"},
    {"padsname", "QLineEdit", "centralWidget", {410, 490, 191, 31}, "OS2L DMX"},
    {"groupBox_midis", "QGroupBox", "centralWidget", {290, 80, 1071, 41}, ""},
    {"label_7", "QLabel", "groupBox_midis", {10, 10, 61, 22}, "Device"},
    {"devicescombo", "QComboBox", "groupBox_midis", {70, 10, 241, 24}, nullptr},
    {"bank_label_3", "QLabel", "groupBox_midis", {330, 10, 61, 21}, "Mapping"},
    {"mididevices", "QComboBox", "groupBox_midis", {400, 10, 251, 24}, nullptr},
    {"label_10", "QLabel", "groupBox_midis", {660, 10, 391, 22}, "Default Colors"},
    {"groupBox_colors", "QGroupBox", "groupBox_midis", {750, 5, 321, 41}, ""},
    {"label", "QLabel", "groupBox_colors", {20, 5, 31, 21}, "Off"},
    {"combo_offcolor", "QComboBox", "groupBox_colors", {50, 5, 111, 24}, nullptr},
    {"label_2", "QLabel", "groupBox_colors", {170, 5, 21, 21}, "On"},
    {"combo_oncolor", "QComboBox", "groupBox_colors", {200, 5, 111, 24}, nullptr},
    {"groupBox_pads", "QGroupBox", "centralWidget", {290, 80, 341, 98}, ""},
    {"groupBox_4", "QGroupBox", "groupBox_pads", {60, 2, 251, 31}, ""},
    {"label_9", "QLabel", "groupBox_pads", {10, 7, 61, 22}, "Layout"},
    {"radioButton_8pads", "QRadioButton", "groupBox_4", {10, 6, 81, 22}, "8 Pads "},
    {"radioButton_16pads", "QRadioButton", "groupBox_4", {110, 6, 91, 22}, "16 Pads"},
    {"bank_label", "QLabel", "groupBox_pads", {120, 41, 51, 21}, "Bank"},
    {"bankcombo", "QComboBox", "groupBox_pads", {170, 37, 61, 30}, nullptr},
    {"label_3", "QLabel", "groupBox_pads", {120, 70, 41, 22}, "Name"},
    {"bankname", "QLineEdit", "groupBox_pads", {170, 72, 141, 22}, "BANK 1"},
    {"cleanpads_button", "QPushButton", "groupBox_pads", {10, 40, 95, 31}, "Clean"},
    {"groupBox_controller", "QGroupBox", "centralWidget", {290, 110, 1071, 361}, ""},
    {"tablecontroller", "QTableView", "groupBox_controller", {10, 10, 1028, 346}, nullptr},
    {"cleanmidi_button", "QPushButton", "groupBox_controller", {10, 10, 95, 31}, "Clean"},
};

/// The text or title of any widget of the table.
QString textof(const QWidget* widget)
{
    const QVariant title = widget->property("title");
    return (title.isValid() ? title : widget->property("text")).toString();
}

/// The names of the widgets below \a parent that were given one by us.
QStringList widgetnames(const QWidget* parent)
{
    QStringList names;
    const auto all = parent->findChildren<QWidget*>();
    for (const QWidget* widget : all)
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            names.append(widget->objectName());
    names.sort();
    return names;
}

/// A declaration's value with its white space, and the unit of zeros, in one form.
QString plainvalue(const QString& value)
{
    static const QRegularExpression zero(QStringLiteral("\\b0px\\b"));
    return value.simplified().replace(zero, QStringLiteral("0"));
}

/// The declarations of a style sheet, "selector | property" to value.
QMap<QString, QString> declarations(const QString& sheet)
{
    QMap<QString, QString> all;
    static const QRegularExpression rule(QStringLiteral("([^{}]+)\\{([^{}]*)\\}"));
    for (auto rules = rule.globalMatch(sheet); rules.hasNext();) {
        const auto match = rules.next();
        const QStringList selectors = match.captured(1).split(QLatin1Char(','));
        const QStringList body = match.captured(2).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (const QString& selector : selectors) {
            for (const QString& declaration : body) {
                const auto colon = declaration.indexOf(QLatin1Char(':'));
                if (colon > 0)
                    all.insert(selector.simplified() + QStringLiteral(" | ") +
                                   declaration.left(colon).simplified(),
                               plainvalue(declaration.mid(colon + 1)));
            }
        }
    }
    return all;
}

struct SheetRow
{
    const char* declaration; ///< "selector | property"
    const char* value;
};

/// Fails the test when \a sheet does not declare each of \a rows.
void checksheet(const QString& sheet, const QVector<SheetRow>& rows)
{
    const QMap<QString, QString> all = declarations(sheet);
    for (const SheetRow& row : rows)
        QVERIFY2(all.value(QLatin1String(row.declaration)) == QLatin1String(row.value),
                 qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(row.declaration),
                                                         all.value(QLatin1String(row.declaration)))));
}

QVector<SheetRow> scrollBarSheet()
{
    return {
        {"QScrollBar:vertical | width", "20px"},
        {"QScrollBar:vertical | border", "1px solid #505050"},
        {"QScrollBar:vertical | background", "#202020"},
        {"QScrollBar::handle:vertical | background", "#707070"},
        {"QScrollBar::handle:vertical | min-height", "15px"},
        {"QScrollBar::add-line:vertical | height", "0"},
        {"QScrollBar::sub-line:vertical | height", "0"},
        {"QScrollBar::add-page:vertical | background", "transparent"},
        {"QScrollBar::sub-page:vertical | background", "transparent"},
    };
}

/// The middle and the corners, one pixel inside.
QList<QPoint> samplepoints(const QRect& area)
{
    const QRect inside = area.adjusted(1, 1, -1, -1);
    return {inside.center(), inside.topLeft(), inside.topRight(), inside.bottomLeft(), inside.bottomRight()};
}

} // namespace

class WindowLookTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void everyWidgetStandsInItsPlace_data();
    void everyWidgetStandsInItsPlace();
    void thereAreNoOtherWidgets();
    void windowHasOneFixedSize();
    void windowSpeaksArial();
    void fontSizesAreAsDrawn();
    void labelsAreAligned();
    void cleanButtonsExplainThemselves();
    void outputBoxIsFlat();
    void everyActionHasItsText();
    void fileMenuHoldsItsEntriesInOrder();
    void barsAreHidden();
    void sheetsAreToTheLetter_data();
    void sheetsAreToTheLetter();
    void twoWidgetsHaveNoSheet();
    void messageBoxSheetIsToTheLetter();
    void comboBoxSheets_data();
    void comboBoxSheets();
    void listSheets_data();
    void listSheets();
    void scrollBarSheets_data();
    void scrollBarSheets();
    void sheetImagesAreInTheProgram();
    void padsViewTakesAndGivesDrags();
    void controllerViewTakesAndGivesDrags();
    void listIsADragSourceOnly();
    void viewsShowNoHeaders();
    void scrollBarsAreOffWhereNothingScrolls();
    void bothPadColumnsFitTheirView();
    void everyPadOfABankIsInView_data();
    void everyPadOfABankIsInView();
    void eightLiveButtonsAreInView();
    void windowIsDark();
    void nothingOfThePadsShowsInMidiMode();
    void everyControlCanBeReachedByTheMouse_data();
    void everyControlCanBeReachedByTheMouse();
    void noTextIsCutOff_data();
    void noTextIsCutOff();
    void usedMarkIsDrawn();

private:
    static void choosemidi(TestWindow* window)
    {
        QTest::mouseClick(window->child<QRadioButton>("radio_outputmidi"), Qt::LeftButton);
    }

    /// A window as it starts, for the tests that only look at it.
    std::unique_ptr<const TestWindow> m_window;
};

void WindowLookTest::initTestCase() { m_window = std::make_unique<const TestWindow>(); }

void WindowLookTest::cleanupTestCase() { m_window.reset(); }

void WindowLookTest::everyWidgetStandsInItsPlace_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const WidgetRow& widget : widgetTable)
        QTest::newRow(widget.name) << row++;
}

void WindowLookTest::everyWidgetStandsInItsPlace()
{
    QFETCH(const int, row);
    const WidgetRow& wanted = widgetTable[row];
    const TestWindow& window = *m_window;
    const auto* widget = window.child<QWidget>(wanted.name);
    QCOMPARE(widget->metaObject()->className(), wanted.className);
    QCOMPARE(widget->parentWidget()->objectName(), QLatin1String(wanted.parent));
    QCOMPARE(widget->geometry(), wanted.geometry);
    if (wanted.text)
        QCOMPARE(textof(widget), QString::fromLatin1(wanted.text));
}

void WindowLookTest::thereAreNoOtherWidgets()
{
    const TestWindow& window = *m_window;
    QStringList wanted;
    for (const WidgetRow& widget : widgetTable)
        wanted.append(QLatin1String(widget.name));
    wanted.sort();
    QCOMPARE(widgetnames(window.centralWidget()), wanted);
    QCOMPARE(window.centralWidget()->objectName(), QStringLiteral("centralWidget"));
    QCOMPARE(window.centralWidget()->layout(), nullptr);
    QCOMPARE(window.objectName(), QStringLiteral("MainWindow"));
}

void WindowLookTest::windowHasOneFixedSize()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    QCOMPARE(window.size(), QSize(650, 606));
    QCOMPARE(window.minimumSize(), QSize(650, 606));
    QCOMPARE(window.maximumSize(), QSize(650, 606));
    choosemidi(&window);
    QCOMPARE(window.size(), QSize(1366, 606));
    QCOMPARE(window.minimumSize(), QSize(1366, 606));
    QCOMPARE(window.maximumSize(), QSize(1366, 606));
}

void WindowLookTest::windowSpeaksArial()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.font().family(), QStringLiteral("Arial"));
    for (const WidgetRow& widget : widgetTable)
        QCOMPARE(window.child<QWidget>(widget.name)->font().family(), QStringLiteral("Arial"));
}

void WindowLookTest::fontSizesAreAsDrawn()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.child<QGroupBox>("groupBox_2")->font().pointSize(), 11);
    QCOMPARE(window.child<QComboBox>("combobox")->font().pointSize(), 12);
    QCOMPARE(window.child<QGroupBox>("groupBox_3")->font().pointSize(), 9);
    QCOMPARE(window.child<QPushButton>("pushButton_2")->font().pointSize(), 11);
    QCOMPARE(window.child<QPushButton>("pushButton_2")->font().weight(), static_cast<int>(QFont::Normal));
}

void WindowLookTest::labelsAreAligned()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.child<QLabel>("label_4")->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    QVERIFY(window.child<QLabel>("label_padname")->alignment().testFlag(Qt::AlignRight));
    QVERIFY(window.child<QLabel>("label_3")->alignment().testFlag(Qt::AlignLeft));
}

void WindowLookTest::cleanButtonsExplainThemselves()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.child<QPushButton>("cleanpads_button")->toolTip(),
             QStringLiteral("Clean content from All Pads"));
    QCOMPARE(window.child<QPushButton>("cleanmidi_button")->toolTip(),
             QStringLiteral("Clean content from All Buttons"));
    for (const WidgetRow& widget : widgetTable)
        if (!QByteArray(widget.name).startsWith("clean"))
            QCOMPARE(window.child<QWidget>(widget.name)->toolTip(), QString());
}

void WindowLookTest::outputBoxIsFlat()
{
    const TestWindow& window = *m_window;
    const auto boxes = window.findChildren<QGroupBox*>();
    for (const QGroupBox* box : boxes)
        QCOMPARE(box->isFlat(), box->objectName() == QLatin1String("groupBox"));
}

void WindowLookTest::everyActionHasItsText()
{
    const TestWindow& window = *m_window;
    QMap<QString, QString> texts;
    const auto actions = window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QAction* action : actions)
        texts.insert(action->objectName(), action->text());
    const QMap<QString, QString> wanted{
        {QStringLiteral("actionNew"), QStringLiteral("Load DMX Show")},
        {QStringLiteral("actionExport"), QStringLiteral("Export")},
        {QStringLiteral("actionSave"), QStringLiteral("Save")},
        {QStringLiteral("actionAbout"), QStringLiteral("About")},
        {QStringLiteral("actionNew_2"), QStringLiteral("New Project")},
        {QStringLiteral("actionSave_2"), QStringLiteral("Save Project")},
        {QStringLiteral("actionLoad_Project"), QStringLiteral("Load Project")},
        {QStringLiteral("actionExit"), QStringLiteral("Exit")},
        {QStringLiteral("actionManual"), QStringLiteral("Manual")},
        {QStringLiteral("actionAbout_2"), QStringLiteral("About")},
    };
    QCOMPARE(texts, wanted);
}

void WindowLookTest::fileMenuHoldsItsEntriesInOrder()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.menuBar()->objectName(), QStringLiteral("menuBar"));
    const auto menus = window.findChildren<QMenu*>();
    QCOMPARE(menus.size(), 1);
    QCOMPARE(menus.constFirst()->objectName(), QStringLiteral("menuPage"));
    QCOMPARE(menus.constFirst()->title(), QStringLiteral("File"));
    QCOMPARE(window.menuBar()->actions(), QList<QAction*>{menus.constFirst()->menuAction()});
    QStringList entries;
    const auto actions = menus.constFirst()->actions();
    for (const QAction* action : actions)
        entries.append(action->isSeparator() ? QStringLiteral("-") : action->objectName());
    const QStringList wanted{
        QStringLiteral("actionNew"),     QStringLiteral("-"),
        QStringLiteral("actionNew_2"),   QStringLiteral("actionLoad_Project"),
        QStringLiteral("actionSave_2"),  QStringLiteral("-"),
        QStringLiteral("actionExport"),  QStringLiteral("-"),
        QStringLiteral("actionAbout_2"), QStringLiteral("-"),
        QStringLiteral("actionExit"),
    };
    QCOMPARE(entries, wanted);
    QVERIFY(window.child<QToolBar>("mainToolBar")->actions().isEmpty());
}

void WindowLookTest::barsAreHidden()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    auto* toolBar = window.child<QToolBar>("mainToolBar");
    QVERIFY(!toolBar->isVisible());
    QCOMPARE(window.toolBarArea(toolBar), Qt::TopToolBarArea);
    const auto* statusBar = window.child<QStatusBar>("statusBar");
    QVERIFY(!statusBar->isVisible());
    QVERIFY(!statusBar->isSizeGripEnabled());
    QCOMPARE(window.menuBar()->geometry().topLeft(), QPoint(0, 0));
    QCOMPARE(window.menuBar()->width(), 650);
}

void WindowLookTest::sheetsAreToTheLetter_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("sheet");
    const auto add = [](const QList<QByteArray>& names, const char* sheet) {
        for (const QByteArray& name : names)
            QTest::newRow(name.constData()) << QString::fromLatin1(name) << QString::fromLatin1(sheet);
    };
    add({"centralWidget"}, "QWidget {color: #cccccc; background-color: #202020;}");
    add({"label", "label_2", "label_3", "label_5", "label_6", "label_7", "label_9", "label_10", "bank_label",
         "bank_label_3", "label_padname"},
        "QLabel {background-color:transparent; color:#cccccc} ");
    add({"groupBox", "groupBox_2", "groupBox_3", "groupBox_4", "groupBox_midis", "groupBox_pads",
         "groupBox_controller"},
        "QGroupBox {background-color:#303030; color:white;border: 0px solid;} "
        "QGroupBox::title {background-color:#303030; color:#909090;} ");
    add({"radio_outputpage", "radio_outputmidi", "radioButton_8pads", "radioButton_16pads"},
        "QRadioButton {color: #cccccc; background-color: #303030; border: 0px;}");
    add({"padsname", "bankname"},
        "QLineEdit {color: #cccccc; background-color: black; selection-color: white; "
        "selection-background-color: #606060; border: 1px solid #606060;}"
        "QLineEdit:focus {border: 1px solid #aaaaaa};");
    add({"loadini", "pushButton_2", "cleanpads_button", "cleanmidi_button"},
        "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
        "QPushButton:hover {color: #ffffff; background-color: #404040;border: 1px solid #606060;}"
        "QToolTip {background:#202020;color:white;border: 1px solid #808080;}");
    add({"tablecontroller"}, "QTableView {font: normal 12px 'Arial' ;outline: 0; gridline-color: #252525; "
                             "background:#303030; border: 0px;}"
                             "QToolTip {background:#202020;color:white;border: 1px solid #808080;}");
}

void WindowLookTest::sheetsAreToTheLetter()
{
    QFETCH(const QString, name);
    QFETCH(const QString, sheet);
    const TestWindow& window = *m_window;
    QCOMPARE(window.child<QWidget>(name.toLatin1().constData())->styleSheet(), sheet);
}

void WindowLookTest::twoWidgetsHaveNoSheet()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.child<QLabel>("label_4")->styleSheet(), QString());
    QCOMPARE(window.child<QGroupBox>("groupBox_colors")->styleSheet(), QString());
    QCOMPARE(window.styleSheet(), QString());
    QCOMPARE(qApp->styleSheet(), QString());
}

void WindowLookTest::messageBoxSheetIsToTheLetter()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.messageBoxStyle,
             QStringLiteral(
                 "QMessageBox {background-color:#202020; color:#cccccc ; border: 1px solid #505050;} "
                 "QMessageBox QLabel {min-width: 360px; color:white;}"
                 "QMessageBox QPushButton {width: 70; height:20; color: #cccccc; background-color: #303030;"
                 "border: 1px solid #505050;}"
                 "QMessageBox QPushButton:hover {width: 70; height:20; color: #ffffff; "
                 "background-color: #404040;border: 1px solid #606060;}"));
}

void WindowLookTest::comboBoxSheets_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name :
         {"combobox", "devicescombo", "mididevices", "combo_offcolor", "combo_oncolor", "bankcombo"})
        QTest::newRow(name) << QByteArray(name);
}

void WindowLookTest::comboBoxSheets()
{
    QFETCH(const QByteArray, name);
    const TestWindow& window = *m_window;
    const QString sheet = window.child<QComboBox>(name.constData())->styleSheet();
    const QVector<SheetRow> wanted{
        {"QComboBox | color", "#bbbbbb"},
        {"QComboBox | border", "1px solid #707070"},
        {"QComboBox | padding", "2px 0 2px 10px"},
        {"QComboBox:hover | border", "1px solid #909090"},
        {"QComboBox:disabled | color", "#707070"},
        {"QComboBox:disabled | border", "1px solid #404040"},
        {"QComboBox:disabled | padding", "0 0 0 10px"},
        {"QComboBox::drop-down | image", "url(:/icons/Images/arrowdown.png)"},
        {"QComboBox::drop-down | width", "20px"},
        {"QComboBox::drop-down | background", "#505050"},
        {"QComboBox::drop-down | border-left", "1px solid #707070"},
        {"QComboBox QListView | padding", "3px 0"},
        {"QComboBox QListView | border", "1px solid darkgray"},
        {"QComboBox QListView | selection-background-color", "#505050"},
    };
    checksheet(sheet, wanted);
    checksheet(sheet, scrollBarSheet());
}

void WindowLookTest::listSheets_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("dmxlistview") << QByteArray("dmxlistview");
    QTest::newRow("vdjlistview") << QByteArray("vdjlistview");
}

void WindowLookTest::listSheets()
{
    QFETCH(const QByteArray, name);
    const TestWindow& window = *m_window;
    const QString sheet = window.child<QTableView>(name.constData())->styleSheet();
    const QVector<SheetRow> wanted{
        {"QTableView | font", "normal 12px 'Arial'"},
        {"QTableView | outline", "0"},
        {"QTableView | gridline-color", "#252525"},
        {"QTableView | background", "black"},
        {"QTableView | border", "0"},
        {"QTableView::item | background-color", "black"},
        {"QTableView::item | border", "1px solid #404040"},
        {"QTableView::item:selected | background-color", "#404040"},
        {"QTableView::item:selected | color", "white"},
        {"QTableView::item:selected:focus | background-color", "#404040"},
        {"QTableView::item:selected:focus | color", "white"},
        {"QTableView::item:focus | background-color", "black"},
        {"QTableView::item:hover | background-color", "#202020"},
        {"QTableView::item:hover:selected | background-color", "#404040"},
        {"QTableView::indicator:checked | image", "url(:/icons/Images/checkbox.png)"},
        {"QTableView::indicator:checked | background-color", "#202020"},
        {"QTableView::indicator:checked | color", "#aaaaaa"},
        {"QTableView::indicator:checked | border", "1px solid #505050"},
        {"QTableView::indicator:unchecked | background-color", "#202020"},
        {"QTableView::indicator:unchecked | color", "#aaaaaa"},
        {"QTableView::indicator:unchecked | border", "1px solid #505050"},
        {"QToolTip | background", "#202020"},
        {"QToolTip | color", "white"},
        {"QToolTip | border", "1px solid #808080"},
    };
    checksheet(sheet, wanted);
    // The form's own sheet of the list is gone: it made the items' text white.
    QVERIFY(!declarations(sheet).contains(QStringLiteral("QTableView::item | color")));
}

void WindowLookTest::scrollBarSheets_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"dmxlistview", "vdjlistview", "tablecontroller"})
        QTest::newRow(name) << QByteArray(name);
}

void WindowLookTest::scrollBarSheets()
{
    QFETCH(const QByteArray, name);
    const TestWindow& window = *m_window;
    const auto* view = window.child<QTableView>(name.constData());
    checksheet(view->verticalScrollBar()->styleSheet(), scrollBarSheet());
    QCOMPARE(view->horizontalScrollBar()->styleSheet(), QString());
}

void WindowLookTest::sheetImagesAreInTheProgram()
{
    for (const char* path : {":/icons/Images/arrowdown.png", ":/icons/Images/checkbox.png"})
        QVERIFY2(!QImage(QLatin1String(path)).isNull(), path);
}

void WindowLookTest::padsViewTakesAndGivesDrags()
{
    const TestWindow& window = *m_window;
    const auto* view = window.child<QTableView>("vdjlistview");
    QCOMPARE(view->model(), static_cast<QAbstractItemModel*>(window.vdjModel));
    QVERIFY(view->dragEnabled());
    QVERIFY(view->acceptDrops());
    QVERIFY(view->showDropIndicator());
    QCOMPARE(view->defaultDropAction(), Qt::CopyAction);
    QVERIFY(view->horizontalHeader()->stretchLastSection());
    QCOMPARE(view->selectionMode(), QAbstractItemView::SingleSelection);
    QVERIFY(view->hasMouseTracking());
    QCOMPARE(view->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(!view->isColumnHidden(0));
    QVERIFY(view->isColumnHidden(1));
}

void WindowLookTest::controllerViewTakesAndGivesDrags()
{
    const TestWindow& window = *m_window;
    const auto* view = window.child<QTableView>("tablecontroller");
    QCOMPARE(static_cast<const void*>(view->model()), static_cast<const void*>(window.controllerModel));
    QVERIFY(view->dragEnabled());
    QVERIFY(view->acceptDrops());
    QVERIFY(view->showDropIndicator());
    QCOMPARE(view->defaultDropAction(), Qt::CopyAction);
    QCOMPARE(view->verticalHeader()->minimumSectionSize(), 5);
    QCOMPARE(static_cast<const void*>(view->itemDelegate()), static_cast<const void*>(window.delegate));
    QVERIFY(view->hasMouseTracking());
    QCOMPARE(view->contextMenuPolicy(), Qt::CustomContextMenu);
}

void WindowLookTest::listIsADragSourceOnly()
{
    const TestWindow& window = *m_window;
    const auto* view = window.child<QTableView>("dmxlistview");
    QCOMPARE(view->model(), static_cast<QAbstractItemModel*>(window.dmxModel));
    QVERIFY(view->dragEnabled());
    QVERIFY(!view->acceptDrops());
    QCOMPARE(view->defaultDropAction(), Qt::CopyAction);
    QVERIFY(view->horizontalHeader()->stretchLastSection());
    QCOMPARE(view->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(view->contextMenuPolicy(), Qt::DefaultContextMenu);
}

void WindowLookTest::viewsShowNoHeaders()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    choosemidi(&window);
    for (const char* name : {"dmxlistview", "vdjlistview", "tablecontroller"}) {
        const auto* view = window.child<QTableView>(name);
        QVERIFY(view->isVisible());
        QVERIFY2(!view->horizontalHeader()->isVisible(), name);
        QVERIFY2(!view->verticalHeader()->isVisible(), name);
    }
}

void WindowLookTest::scrollBarsAreOffWhereNothingScrolls()
{
    const TestWindow& window = *m_window;
    QCOMPARE(window.child<QTableView>("vdjlistview")->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(window.child<QTableView>("tablecontroller")->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(window.child<QTableView>("tablecontroller")->horizontalScrollBarPolicy(),
             Qt::ScrollBarAlwaysOff);
    QCOMPARE(window.child<QTableView>("dmxlistview")->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

void WindowLookTest::bothPadColumnsFitTheirView()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    const auto* view = window.child<QTableView>("vdjlistview");
    QCOMPARE(view->columnWidth(0), view->viewport()->width());
    QTest::mouseClick(window.child<QRadioButton>("radioButton_16pads"), Qt::LeftButton);
    QTRY_COMPARE(view->columnWidth(0), 150);
    QCOMPARE(view->columnWidth(0) + view->columnWidth(1), view->viewport()->width());
}

void WindowLookTest::everyPadOfABankIsInView_data()
{
    QTest::addColumn<QByteArray>("layout");
    QTest::addColumn<int>("columns");
    QTest::newRow("8 pads") << QByteArray("radioButton_8pads") << 1;
    QTest::newRow("16 pads") << QByteArray("radioButton_16pads") << 2;
}

void WindowLookTest::everyPadOfABankIsInView()
{
    QFETCH(const QByteArray, layout);
    QFETCH(const int, columns);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    QTest::mouseClick(window.child<QRadioButton>(layout.constData()), Qt::LeftButton);
    const auto* view = window.child<QTableView>("vdjlistview");
    for (int bank = 0; bank < 8; ++bank) {
        window.child<QComboBox>("bankcombo")->setCurrentIndex(bank);
        QCoreApplication::processEvents();
        for (int row = 8 * bank; row < 8 * bank + 8; ++row)
            for (int column = 0; column < columns; ++column) {
                const QRect pad = view->visualRect(window.vdjModel->index(row, column));
                QVERIFY(pad.height() > 0 && pad.width() > 0);
                QVERIFY2(view->viewport()->rect().contains(pad), qPrintable(QString::number(row)));
            }
    }
}

void WindowLookTest::eightLiveButtonsAreInView()
{
    const TestHome home;
    TestPage page{QStringLiteral("Many"), {}};
    for (int button = 0; button < 20; ++button)
        page.buttons.append({QStringLiteral("Button"), 0});
    TestWindow window;
    QVERIFY(window.showready());
    QVERIFY(window.loadshowname(writeshow(home, QStringLiteral("Gig"), {page}) +
                                QStringLiteral("/Live/live.ini")));
    QCoreApplication::processEvents();
    const auto* view = window.child<QTableView>("dmxlistview");
    QTRY_VERIFY(view->verticalScrollBar()->isVisible());
    for (int row = 0; row < 8; ++row)
        QVERIFY(view->viewport()->rect().contains(view->visualRect(window.dmxModel->index(row, 0))));
}

void WindowLookTest::windowIsDark()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    const QImage picture = window.centralWidget()->grab().toImage();
    QCOMPARE(picture.pixelColor(3, 300).name(), QStringLiteral("#202020"));
    QCOMPARE(picture.pixelColor(14, 440).name(), QStringLiteral("#303030"));
    QCOMPARE(picture.pixelColor(100, 350).name(), QStringLiteral("#000000"));
    // The caption label has no ground of its own.
    QCOMPARE(picture.pixelColor(11, 6).name(), QStringLiteral("#202020"));
}

void WindowLookTest::nothingOfThePadsShowsInMidiMode()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    choosemidi(&window);
    auto* pads = window.child<QGroupBox>("groupBox_3");
    QVERIFY(!pads->isHidden());
    QCoreApplication::processEvents();
    const QImage picture = window.grab().toImage();
    pads->hide();
    QCOMPARE(window.grab().toImage(), picture);
    pads->show();
    pads->raise();
    QVERIFY(window.grab().toImage() != picture);
}

void WindowLookTest::everyControlCanBeReachedByTheMouse_data()
{
    QTest::addColumn<bool>("midi");
    QTest::newRow("pads page") << false;
    QTest::newRow("MIDI mapping") << true;
}

void WindowLookTest::everyControlCanBeReachedByTheMouse()
{
    QFETCH(const bool, midi);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    if (midi)
        choosemidi(&window);
    QWidget* central = window.centralWidget();
    int controls = 0;
    const QStringList covered{QStringLiteral("vdjlistview"), QStringLiteral("tablecontroller")};
    for (const WidgetRow& row : widgetTable) {
        auto* widget = window.child<QWidget>(row.name);
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus)
            continue;
        // Under the controller grid lie the pads, and one corner of it is the button's.
        if (midi && covered.contains(widget->objectName()))
            continue;
        ++controls;
        const auto points = samplepoints(widget->rect());
        for (const QPoint& point : points) {
            const QWidget* hit = central->childAt(widget->mapTo(central, point));
            QVERIFY2(hit && (hit == widget || widget->isAncestorOf(hit)), row.name);
        }
    }
    QVERIFY(controls > 10);
}

void WindowLookTest::noTextIsCutOff_data() { everyControlCanBeReachedByTheMouse_data(); }

void WindowLookTest::noTextIsCutOff()
{
    QFETCH(const bool, midi);
    // The font size of a plain desktop; without a screen the toolkit starts from a bigger one.
    const QFont before = QApplication::font();
    const auto restore = qScopeGuard([before] { QApplication::setFont(before); });
    QApplication::setFont(QFont(before.family(), 9));
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    if (midi)
        choosemidi(&window);
    QCoreApplication::processEvents();
    int texts = 0;
    for (const WidgetRow& row : widgetTable) {
        const auto* widget = window.child<QWidget>(row.name);
        const bool button = qobject_cast<const QAbstractButton*>(widget);
        if (!widget->isVisible() || !(button || qobject_cast<const QLabel*>(widget)))
            continue;
        ++texts;
        const QFontMetrics metrics = widget->fontMetrics();
        const QString text = textof(widget);
        const int needed = qobject_cast<const QRadioButton*>(widget) ? widget->sizeHint().width()
                                                                     : metrics.horizontalAdvance(text);
        QVERIFY2(needed <= widget->width(),
                 qPrintable(QStringLiteral("%1 needs %2").arg(widget->objectName()).arg(needed)));
        // Texts stand in the middle of their height or at its bottom; what is drawn of them must lie inside.
        const auto* label = qobject_cast<const QLabel*>(widget);
        const int above = widget->height() - metrics.height();
        const bool bottom = label && label->alignment().testFlag(Qt::AlignBottom);
        const int baseline = (bottom ? above : above / 2) + metrics.ascent();
        const QRect ink = metrics.tightBoundingRect(text).translated(0, baseline);
        QVERIFY2(ink.top() >= 0 && ink.bottom() < widget->height(), row.name);
        QVERIFY2(widget->geometry().right() <= widget->parentWidget()->width(), row.name);
    }
    QVERIFY(texts > 8);
    if (midi) {
        // The colours stand upon the wide label behind them.
        const auto* label = window.child<QLabel>("label_10");
        QVERIFY(label->x() + label->fontMetrics().horizontalAdvance(label->text()) <=
                window.child<QGroupBox>("groupBox_colors")->x());
    }
}

void WindowLookTest::usedMarkIsDrawn()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    QVERIFY(window.loadshowname(writeshow(home, QStringLiteral("Gig")) + QStringLiteral("/Live/live.ini")));
    auto* view = window.child<QTableView>("dmxlistview");
    const QImage plain = view->viewport()->grab().toImage();
    window.dmxModel->setData(window.dmxModel->index(1, 0), Qt::Checked, Qt::CheckStateRole);
    const QImage marked = view->viewport()->grab().toImage();
    QVERIFY(marked != plain);
    const QRect other = view->visualRect(window.dmxModel->index(0, 0));
    QCOMPARE(marked.copy(other), plain.copy(other));
}

LUMIPAD_TEST_MAIN(WindowLookTest)

#include "tst_window_look.moc"
