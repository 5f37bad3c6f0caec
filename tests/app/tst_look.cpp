// What is drawn beside the style sheets: the focus, the circles of the radio buttons, the rows of popups, the
// swatches, the window's icon.

#include "midiwindow.h"
#include "mymodel.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTableView>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

/// The relative luminance of a colour and the contrast of two, as the Web Content Accessibility Guidelines
/// (WCAG 2.1) define them.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QImage pictureof(QWidget* widget) { return widget->grab().toImage().convertToFormat(QImage::Format_RGB32); }

/// The colours of the frame of pixels along the inner edge of \a area.
QSet<QString> edgecolors(const QImage& picture, const QRect& area)
{
    QSet<QString> colors;
    for (int x = area.left(); x <= area.right(); ++x)
        colors << picture.pixelColor(x, area.top()).name() << picture.pixelColor(x, area.bottom()).name();
    for (int y = area.top(); y <= area.bottom(); ++y)
        colors << picture.pixelColor(area.left(), y).name() << picture.pixelColor(area.right(), y).name();
    return colors;
}

int count(const QImage& picture, const QRect& area, const QColor& color)
{
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            found += picture.pixelColor(x, y) == color ? 1 : 0;
    return found;
}

/// Where \a widget stands in its window.
QRect placeof(const QWidget* widget)
{
    return {widget->mapTo(widget->window(), QPoint(0, 0)), widget->size()};
}

const QColor ringColor(0xaa, 0xaa, 0xaa);
const QColor rowColor(0x50, 0x50, 0x50);

} // namespace

class LookTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theControlWithTheFocusHasARing_data();
    void theControlWithTheFocusHasARing();
    void aNameWithTheFocusHasItsOwnBorder();
    void theEditorOfAPadHasARing();
    void theCurrentCellHasARing_data();
    void theCurrentCellHasARing();
    void theRingGoesWithTheWindowsFocus();
    void theRingFollowsTheScrolledRow();
    void buttonsOfBoxesHaveARing();
    void theRingLeavesTheMouseAlone();
    void unselectedCirclesCanBeSeen_data();
    void unselectedCirclesCanBeSeen();
    void selectedCirclesHaveADot();
    void popupsShowTheCurrentAndTheHoveredRow_data();
    void popupsShowTheCurrentAndTheHoveredRow();
    void selectedSwatchesKeepTheirColor_data();
    void selectedSwatchesKeepTheirColor();
    void windowsHaveTheProgramsIcon();

private:
    void fillpads();
    void choosemidi()
    {
        QTest::mouseClick(m_window->child<QRadioButton>("radio_outputmidi"), Qt::LeftButton);
    }

    std::unique_ptr<MidiWindow> m_work;
    TestWindow* m_window = nullptr;
};

void LookTest::init()
{
    m_work = std::make_unique<MidiWindow>(MidiWindow::Output::Pads);
    m_window = &m_work->window;
    QVERIFY(m_window->showready());
}

void LookTest::cleanup()
{
    m_window = nullptr;
    m_work.reset();
}

/// Puts the first Live Button, which is red, onto a pad of each output.
void LookTest::fillpads()
{
    m_work->drop(0, m_work->pad(1));
    m_work->drop(0, m_work->cell(3, 3));
}

void LookTest::theControlWithTheFocusHasARing_data()
{
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QByteArray>("name");
    for (const char* name :
         {"loadini", "combobox", "dmxlistview", "radio_outputpage", "radio_outputmidi", "radioButton_8pads",
          "radioButton_16pads", "cleanpads_button", "bankcombo", "vdjlistview", "pushButton_2"})
        QTest::addRow("pads page, %s", name) << false << QByteArray(name);
    for (const char* name : {"loadini", "combobox", "dmxlistview", "radio_outputpage", "radio_outputmidi",
                             "devicescombo", "mididevices", "combo_offcolor", "combo_oncolor",
                             "cleanmidi_button", "tablecontroller", "pushButton_2"})
        QTest::addRow("MIDI mapping, %s", name) << true << QByteArray(name);
}

void LookTest::theControlWithTheFocusHasARing()
{
    QFETCH(const bool, midi);
    QFETCH(const QByteArray, name);
    if (midi)
        choosemidi();
    auto* control = m_window->child<QWidget>(name.constData());
    const QRect ring = placeof(control).adjusted(-2, -2, 2, 2);
    // A name has the focus now, which shows that in its own border.
    m_window->child<QLineEdit>("padsname")->setFocus();
    QVERIFY(!edgecolors(pictureof(m_window), ring).contains(ringColor.name()));
    control->setFocus();
    QVERIFY(control->hasFocus());
    QCOMPARE(edgecolors(pictureof(m_window), ring), QSet<QString>{ringColor.name()});
    QVERIFY(contrast(ringColor, QColor(0x30, 0x30, 0x30)) >= 3);
}

void LookTest::aNameWithTheFocusHasItsOwnBorder()
{
    for (const char* name : {"bankname", "padsname"}) {
        auto* edit = m_window->child<QLineEdit>(name);
        edit->setFocus();
        const QImage picture = pictureof(m_window);
        QCOMPARE(edgecolors(picture, placeof(edit)), QSet<QString>{ringColor.name()});
        QVERIFY(!edgecolors(picture, placeof(edit).adjusted(-2, -2, 2, 2)).contains(ringColor.name()));
    }
}

void LookTest::theEditorOfAPadHasARing()
{
    fillpads();
    auto* view = m_window->child<QTableView>("vdjlistview");
    view->setFocus();
    view->setCurrentIndex(m_work->pad(1));
    QTest::keyClick(view, Qt::Key_F2);
    auto* editor = view->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor && editor->hasFocus());
    const QRect ring = placeof(editor).adjusted(-2, -2, 2, 2);
    QCOMPARE(edgecolors(pictureof(m_window), ring), QSet<QString>{ringColor.name()});
}

void LookTest::theCurrentCellHasARing_data()
{
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("Live Button") << false << QByteArray("dmxlistview") << 2 << 0;
    QTest::newRow("pad") << false << QByteArray("vdjlistview") << 4 << 0;
    QTest::newRow("controller pad") << true << QByteArray("tablecontroller") << 5 << 5;
}

void LookTest::theCurrentCellHasARing()
{
    QFETCH(const bool, midi);
    QFETCH(const QByteArray, name);
    QFETCH(const int, row);
    QFETCH(const int, column);
    fillpads();
    if (midi)
        choosemidi();
    auto* view = m_window->child<QTableView>(name.constData());
    const auto place = [view](const QModelIndex& index) {
        return view->visualRect(index).translated(placeof(view->viewport()).topLeft());
    };
    const QModelIndex cell = view->model()->index(row, column);
    view->setFocus();
    view->setCurrentIndex(cell);
    QCOMPARE(edgecolors(pictureof(m_window), place(cell)), QSet<QString>{ringColor.name()});
    QTest::keyClick(view, Qt::Key_Up);
    const QModelIndex above = view->model()->index(row - 1, column);
    QCOMPARE(view->currentIndex(), above);
    const QImage picture = pictureof(m_window);
    QCOMPARE(edgecolors(picture, place(above)), QSet<QString>{ringColor.name()});
    QVERIFY(!edgecolors(picture, place(cell)).contains(ringColor.name()));
    m_window->child<QPushButton>("loadini")->setFocus();
    QVERIFY(!edgecolors(pictureof(m_window), place(above)).contains(ringColor.name()));
}

void LookTest::theRingGoesWithTheWindowsFocus()
{
    auto* button = m_window->child<QPushButton>("loadini");
    const QRect ring = placeof(button).adjusted(-2, -2, 2, 2);
    button->setFocus();
    QCOMPARE(edgecolors(pictureof(m_window), ring), QSet<QString>{ringColor.name()});
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(!edgecolors(pictureof(m_window), ring).contains(ringColor.name()));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QCOMPARE(edgecolors(pictureof(m_window), ring), QSet<QString>{ringColor.name()});
}

void LookTest::theRingFollowsTheScrolledRow()
{
    TestPage page{QStringLiteral("Many"), {}};
    for (int button = 0; button < 30; ++button)
        page.buttons.append({QStringLiteral("Button"), 0});
    m_work->loadshow(QStringLiteral("Many"), {page});
    auto* view = m_window->child<QTableView>("dmxlistview");
    view->setFocus();
    view->setCurrentIndex(m_window->dmxModel->index(0, 0));
    QTRY_VERIFY(view->verticalScrollBar()->isVisible());
    QTest::keyClick(view, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(view->currentIndex().row(), 29);
    const QRect viewport = placeof(view->viewport());
    const QRect row = view->visualRect(view->currentIndex()).translated(viewport.topLeft());
    QVERIFY(viewport.contains(row));
    QCOMPARE(edgecolors(pictureof(m_window), row), QSet<QString>{ringColor.name()});
    // A row that was scrolled away has no ring, also not over what lies beside the list.
    view->scrollToTop();
    const QImage away = pictureof(m_window);
    view->setCurrentIndex(QModelIndex());
    view->scrollToTop();
    QCOMPARE(away, pictureof(m_window));
}

void LookTest::buttonsOfBoxesHaveARing()
{
    fillpads();
    m_window->showName = QStringLiteral("Gig");
    QSet<QString> message;
    QSet<QString> about;
    const auto lookat = [](QSet<QString>* colors) {
        return [colors](QDialog* box) {
            QVERIFY(QTest::qWaitForWindowActive(box));
            const auto* button = qobject_cast<const QPushButton*>(QApplication::focusWidget());
            QVERIFY(button && button->window() == box);
            *colors = edgecolors(pictureof(box), placeof(button).adjusted(-2, -2, 2, 2));
        };
    };
    const Dialogs dialogs({Answers::looking(lookat(&message), Answers::press(QMessageBox::Cancel)),
                           Answers::looking(lookat(&about), Answers::closebox())});
    m_window->close();
    QCOMPARE(message, QSet<QString>{ringColor.name()});
    m_window->on_actionAbout_triggered();
    QCOMPARE(about, QSet<QString>{ringColor.name()});
    m_window->showName.clear();
}

void LookTest::theRingLeavesTheMouseAlone()
{
    fillpads();
    auto* pads = m_window->child<QTableView>("vdjlistview");
    pads->setFocus();
    const QRect pad = pads->visualRect(m_window->vdjModel->index(6, 0));
    const QPoint place = pads->viewport()->mapTo(m_window, pad.topLeft());
    QCOMPARE(m_window->childAt(place), pads->viewport());
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, place);
    QCOMPARE(pads->currentIndex(), QModelIndex(m_window->vdjModel->index(6, 0)));
}

void LookTest::unselectedCirclesCanBeSeen_data()
{
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("output pads page") << true << QByteArray("radio_outputpage");
    QTest::newRow("output MIDI mapping") << false << QByteArray("radio_outputmidi");
    QTest::newRow("16 pads") << false << QByteArray("radioButton_16pads");
}

void LookTest::unselectedCirclesCanBeSeen()
{
    QFETCH(const bool, midi);
    QFETCH(const QByteArray, name);
    if (midi)
        choosemidi();
    auto* radio = m_window->child<QRadioButton>(name.constData());
    QVERIFY(!radio->isChecked());
    const QImage picture = pictureof(radio);
    const QColor ground = picture.pixelColor(picture.width() - 1, 0);
    QCOMPARE(ground.name(), QStringLiteral("#303030"));
    // From the left edge to the circle's inside there must be the line; all around it, so in each direction.
    QStyleOptionButton option;
    option.initFrom(radio);
    const QRect circle = radio->style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, radio);
    const QPoint middle = circle.center();
    for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
        double best = 0;
        for (QPoint at = middle; circle.contains(at); at += step)
            best = std::max(best, contrast(picture.pixelColor(at), ground));
        QVERIFY2(best >= 3, qPrintable(QString::number(best)));
    }
}

void LookTest::selectedCirclesHaveADot()
{
    auto* radio = m_window->child<QRadioButton>("radioButton_8pads");
    QStyleOptionButton option;
    option.initFrom(radio);
    const QPoint middle =
        radio->style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, radio).center();
    QCOMPARE(pictureof(radio).pixelColor(middle).name(), QStringLiteral("#cccccc"));
    QTest::mouseClick(m_window->child<QRadioButton>("radioButton_16pads"), Qt::LeftButton);
    QCOMPARE(pictureof(radio).pixelColor(middle).name(), QStringLiteral("#202020"));
}

void LookTest::popupsShowTheCurrentAndTheHoveredRow_data()
{
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"combobox", "bankcombo"})
        QTest::newRow(name) << false << QByteArray(name);
    for (const char* name : {"devicescombo", "mididevices", "combo_offcolor", "combo_oncolor"})
        QTest::newRow(name) << true << QByteArray(name);
}

void LookTest::popupsShowTheCurrentAndTheHoveredRow()
{
    QFETCH(const bool, midi);
    QFETCH(const QByteArray, name);
    fillpads();
    if (midi)
        choosemidi();
    auto* combo = m_window->child<QComboBox>(name.constData());
    QVERIFY(combo->count() > 1);
    combo->setCurrentIndex(0);
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    QVERIFY(QTest::qWaitForWindowExposed(list->window()));
    const auto color = [list](int row) {
        const QRect place = list->visualRect(list->model()->index(row, 0));
        return pictureof(list->viewport()).pixelColor(place.right() - 3, place.center().y()).name();
    };
    QCOMPARE(color(0), rowColor.name());
    QCOMPARE(color(1), QStringLiteral("#202020"));
    // Where the mouse is already, it does not arrive.
    for (const int row : {0, 1})
        QTest::mouseMove(list->viewport(), list->visualRect(list->model()->index(row, 0)).center());
    QTRY_COMPARE(color(1), rowColor.name());
    QCOMPARE(color(0), QStringLiteral("#202020"));
    combo->hidePopup();
}

void LookTest::selectedSwatchesKeepTheirColor_data()
{
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("area"); // of the swatch, in pixels
    QTest::newRow("Live Button") << false << QByteArray("dmxlistview") << 0 << 0 << 16 * 16;
    QTest::newRow("pad") << false << QByteArray("vdjlistview") << 1 << 0 << 16 * 16;
    QTest::newRow("controller pad") << true << QByteArray("tablecontroller") << 3 << 3 << 15 * 15;
}

void LookTest::selectedSwatchesKeepTheirColor()
{
    QFETCH(const bool, midi);
    QFETCH(const QByteArray, name);
    QFETCH(const int, row);
    QFETCH(const int, column);
    QFETCH(const int, area);
    fillpads();
    if (midi)
        choosemidi();
    auto* view = m_window->child<QTableView>(name.constData());
    const QModelIndex index = view->model()->index(row, column);
    QCOMPARE(count(pictureof(view->viewport()), view->visualRect(index), Qt::red), area);
    view->setFocus();
    view->setCurrentIndex(index);
    QVERIFY(view->selectionModel()->isSelected(index));
    QCOMPARE(count(pictureof(view->viewport()), view->visualRect(index), Qt::red), area);
}

void LookTest::windowsHaveTheProgramsIcon()
{
    const QIcon icon = m_window->windowIcon();
    for (const int side : {16, 32, 64, 128}) {
        QVERIFY(icon.availableSizes().contains(QSize(side, side)));
        const QImage picture = icon.pixmap(side, side).toImage();
        QCOMPARE(picture.size(), QSize(side, side));
        // The three lit pads, as in the logo, and corners that let the desktop through.
        QCOMPARE(picture.pixelColor(side / 2, side * 14 / 64).name(), QStringLiteral("#ffb428"));
        QCOMPARE(picture.pixelColor(side * 14 / 64, side / 2).name(), QStringLiteral("#2fb4ff"));
        QCOMPARE(picture.pixelColor(side * 50 / 64, side * 50 / 64).name(), QStringLiteral("#ff4fa0"));
        QVERIFY(picture.pixelColor(0, 0).alpha() < 64);
    }
    QWidget other;
    QVERIFY(!other.windowIcon().isNull());
}

LUMIPAD_TEST_MAIN(LookTest)

#include "tst_look.moc"
