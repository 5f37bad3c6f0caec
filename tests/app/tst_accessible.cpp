// What assistive technology is told about the window: names of everything, the marks of the list, the pads.

#include "accessible.h"
#include "controller.h"
#include "dialog.h"
#include "itemroles.h"
#include "mymodel.h"
#include "testmain.h"
#include "testshows.h"
#include "testwindow.h"
#include "vdjmodel.h"

#include <QAccessible>
#include <QComboBox>
#include <QMimeData>
#include <QRadioButton>
#include <QTableView>

#include <memory>

namespace {

QAccessibleInterface* tell(QObject* object) { return QAccessible::queryAccessibleInterface(object); }

/// A name of its own, or that of the label beside it.
bool hasname(QAccessibleInterface* interface)
{
    if (!interface->text(QAccessible::Name).trimmed().isEmpty())
        return true;
    const auto labels = interface->relations(QAccessible::Label);
    return std::any_of(labels.cbegin(), labels.cend(),
                       [](const auto& label) { return !label.first->text(QAccessible::Name).isEmpty(); });
}

/// The widgets below \a interface, itself included, that are told without a name. Items of tables and lists,
/// and separators of menus, are no widgets.
QStringList nameless(QAccessibleInterface* interface)
{
    QStringList found;
    if (interface->state().invisible && interface->object() &&
        interface->object()->objectName().startsWith(QLatin1String("qt_")))
        return found;
    if (interface->object() && interface->object()->isWidgetType() && !hasname(interface))
        found << QStringLiteral("%1 %2").arg(QLatin1String(interface->object()->metaObject()->className()),
                                             interface->object()->objectName());
    for (int number = 0; number < interface->childCount(); ++number)
        if (QAccessibleInterface* child = interface->child(number))
            found << nameless(child);
    return found;
}

QAccessibleInterface* cell(QTableView* view, int row, int column)
{
    return tell(view)->tableInterface()->cellAt(row, column);
}

QString name(QTableView* view, int row, int column)
{
    return cell(view, row, column)->text(QAccessible::Name);
}

} // namespace

class AccessibleTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyWidgetHasAName_data();
    void everyWidgetHasAName();
    void everyWidgetOfTheAboutBoxHasAName();
    void popupListsAreCalledAsTheirLabels();
    void usedLiveButtonsAreChecked();
    void padsTellLabelAndLiveButton();
    void controllerPadsTellLabelAndLiveButton();
    void padsTellTheirState();
    void itemsAreFoundWhereTheyAre();
    void childrenAreCountedAsTheViewsEventsCountThem();
    void selectionIsTold();
    void rowsThatWentAreForgotten();
    void anItemCanBeMadeCurrent();

private:
    void drop(QAbstractItemModel* model, int listrow, const QModelIndex& pad);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<TestWindow> m_window;
    QTableView* m_list = nullptr;
    QTableView* m_pads = nullptr;
    QTableView* m_grid = nullptr;
};

void AccessibleTest::init()
{
    m_home = std::make_unique<TestHome>();
    m_window = std::make_unique<TestWindow>();
    m_list = m_window->child<QTableView>("dmxlistview");
    m_pads = m_window->child<QTableView>("vdjlistview");
    m_grid = m_window->child<QTableView>("tablecontroller");
    QVERIFY(m_window->showready());
    QVERIFY(
        m_window->loadshowname(writeshow(*m_home, QStringLiteral("Gig")) + QStringLiteral("/Live/live.ini")));
}

void AccessibleTest::cleanup()
{
    m_window.reset();
    m_home.reset();
}

void AccessibleTest::drop(QAbstractItemModel* model, int listrow, const QModelIndex& pad)
{
    const std::unique_ptr<QMimeData> button(
        m_window->dmxModel->mimeData({m_window->dmxModel->index(listrow, 0)}));
    QVERIFY(model->dropMimeData(button.get(), Qt::CopyAction, -1, -1, pad));
}

void AccessibleTest::everyWidgetHasAName_data()
{
    QTest::addColumn<bool>("midi");
    QTest::newRow("pads page") << false;
    QTest::newRow("MIDI mapping") << true;
}

void AccessibleTest::everyWidgetHasAName()
{
    QFETCH(const bool, midi);
    if (midi)
        QTest::mouseClick(m_window->child<QRadioButton>("radio_outputmidi"), Qt::LeftButton);
    QCOMPARE(nameless(tell(m_window.get())), QStringList());
}

void AccessibleTest::everyWidgetOfTheAboutBoxHasAName()
{
    Dialog about;
    QCOMPARE(nameless(tell(&about)), QStringList());
    QCOMPARE(tell(about.findChild<QWidget*>(QStringLiteral("label_5")))->text(QAccessible::Name),
             QStringLiteral("Lumipad logo"));
    QCOMPARE(tell(about.findChild<QWidget*>(QStringLiteral("label")))->text(QAccessible::Name),
             QStringLiteral("Kestrel logo"));
}

void AccessibleTest::popupListsAreCalledAsTheirLabels()
{
    const QMap<QByteArray, QString> names{
        {"combobox", QStringLiteral("Live Pages")}, {"devicescombo", QStringLiteral("Device")},
        {"mididevices", QStringLiteral("Mapping")}, {"combo_offcolor", QStringLiteral("Off")},
        {"combo_oncolor", QStringLiteral("On")},    {"bankcombo", QStringLiteral("Bank")}};
    for (auto combo = names.cbegin(); combo != names.cend(); ++combo)
        QCOMPARE(tell(m_window->child<QComboBox>(combo.key().constData())->view())->text(QAccessible::Name),
                 combo.value());
}

void AccessibleTest::usedLiveButtonsAreChecked()
{
    drop(m_window->vdjModel, 1, m_window->vdjModel->index(0, 0));
    QCOMPARE(name(m_list, 0, 0), QStringLiteral("Strobe"));
    QVERIFY(cell(m_list, 0, 0)->state().checkable);
    QVERIFY(!cell(m_list, 0, 0)->state().checked);
    QVERIFY(cell(m_list, 1, 0)->state().checkable);
    QVERIFY(cell(m_list, 1, 0)->state().checked);
    QVERIFY(!cell(m_pads, 0, 0)->state().checkable);
}

void AccessibleTest::padsTellLabelAndLiveButton()
{
    m_window->on_radioButton_16pads_clicked(true);
    drop(m_window->vdjModel, 0, m_window->vdjModel->index(2, 1));
    drop(m_window->vdjModel, 1, m_window->vdjModel->index(9, 0));
    m_window->vdjModel->setData(m_window->vdjModel->index(9, 0), QStringLiteral("DARK"));
    QCOMPARE(name(m_pads, 0, 0), QStringLiteral("PAD 1"));
    QCOMPARE(name(m_pads, 2, 1), QStringLiteral("PAD 11: Strobe"));
    QCOMPARE(name(m_pads, 9, 0), QStringLiteral("PAD 2: Blackout, shown as DARK"));
    // An emptied pad of the second column shows the number of the first; it is told as what it is.
    m_pads->setCurrentIndex(m_window->vdjModel->index(2, 1));
    m_window->ondeletevdjaction_triggered();
    QCOMPARE(m_window->vdjModel->index(2, 1).data().toString(), QStringLiteral("PAD 3"));
    QCOMPARE(name(m_pads, 2, 1), QStringLiteral("PAD 11"));
}

void AccessibleTest::controllerPadsTellLabelAndLiveButton()
{
    drop(m_window->controllerModel, 2, m_window->controllerModel->index(2, 3));
    m_window->menuIndex = m_window->controllerModel->index(2, 4);
    m_window->ontoggleaction_triggered();
    QCOMPARE(name(m_grid, 2, 2), QStringLiteral("PAD 1"));
    QCOMPARE(name(m_grid, 2, 3), QStringLiteral("PAD 2: Slow Fade"));
    const QString shown = m_window->controllerModel->index(2, 4).data().toString();
    QVERIFY(!shown.isEmpty());
    QCOMPARE(name(m_grid, 2, 4), QStringLiteral("PAD 3: ") + shown);
    QCOMPARE(name(m_grid, 11, 2), QStringLiteral("BOTTOM 1"));
    QCOMPARE(name(m_grid, 1, 1), QString());
}

void AccessibleTest::padsTellTheirState()
{
    QTest::mouseClick(m_window->child<QRadioButton>("radio_outputmidi"), Qt::LeftButton);
    m_grid->setFocus();
    m_grid->setCurrentIndex(m_window->controllerModel->index(2, 2));
    QVERIFY(cell(m_grid, 2, 2)->state().focused);
    QVERIFY(cell(m_grid, 2, 2)->state().selected);
    QVERIFY(!cell(m_grid, 2, 3)->state().focused);
    QVERIFY(!cell(m_grid, 2, 3)->state().selected);
    QVERIFY(!cell(m_grid, 2, 2)->state().disabled);
    QVERIFY(cell(m_grid, 0, 2)->state().disabled); // this device has no buttons at the top
    QVERIFY(!cell(m_list, 0, 0)->state().invisible);
    // Pads of a bank that is not shown, and those that the grid of this output covers.
    QVERIFY(cell(m_pads, 9, 0)->state().invisible);
    QVERIFY(cell(m_pads, 0, 0)->state().invisible);
    QVERIFY(!cell(m_pads, 0, 0)->state().focusable);
    QVERIFY(tell(m_pads)->state().invisible);
    QVERIFY(!tell(m_grid)->state().invisible);
    QVERIFY(cell(m_pads, 0, 0)->actionInterface()->actionNames().isEmpty());
    cell(m_pads, 0, 0)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(m_grid->hasFocus());
    QTest::mouseClick(m_window->child<QRadioButton>("radio_outputpage"), Qt::LeftButton);
    QVERIFY(!cell(m_pads, 0, 0)->state().invisible);
    QVERIFY(cell(m_pads, 0, 0)->state().focusable);
    QVERIFY(!tell(m_pads)->state().invisible);
    QVERIFY(cell(m_pads, 9, 0)->state().invisible);
    QVERIFY(cell(m_pads, 0, 1)->state().invisible);
    QVERIFY(cell(m_grid, 2, 2)->state().invisible);
}

void AccessibleTest::itemsAreFoundWhereTheyAre()
{
    const QModelIndex pad = m_window->vdjModel->index(3, 0);
    const QPoint place = m_pads->viewport()->mapToGlobal(m_pads->visualRect(pad).center());
    QAccessibleInterface* found = tell(m_pads)->childAt(place.x(), place.y());
    QVERIFY(found);
    QCOMPARE(found, cell(m_pads, 3, 0));
    QVERIFY(found->rect().contains(place));
    QCOMPARE(found->parent(), tell(m_pads));
    QCOMPARE(found->tableCellInterface()->rowIndex(), 3);
    QCOMPARE(found->tableCellInterface()->columnIndex(), 0);
    QVERIFY(!tell(m_list)->childAt(-500, -500));
}

void AccessibleTest::childrenAreCountedAsTheViewsEventsCountThem()
{
    QAccessibleInterface* table = tell(m_pads);
    QCOMPARE(table->tableInterface()->rowCount(), 64);
    QCOMPARE(table->tableInterface()->columnCount(), 2);
    QCOMPARE(table->childCount(), 65 * 3);
    for (int number = 0; number < table->childCount(); ++number) {
        QAccessibleInterface* child = table->child(number);
        QVERIFY(child);
        QCOMPARE(table->indexOfChild(child), number);
        QCOMPARE(child->role() == QAccessible::Cell, number >= 3 && number % 3 > 0);
    }
    QCOMPARE(table->child(3 * 3 + 1), cell(m_pads, 2, 0));
    QVERIFY(!table->child(-1));
    QVERIFY(!table->child(65 * 3));
    QVERIFY(!table->tableInterface()->cellAt(64, 0));
}

void AccessibleTest::selectionIsTold()
{
    QAccessibleTableInterface* table = tell(m_pads)->tableInterface();
    m_pads->clearSelection();
    QCOMPARE(table->selectedCellCount(), 0);
    m_pads->setCurrentIndex(m_window->vdjModel->index(5, 0));
    QCOMPARE(table->selectedCells(), QList<QAccessibleInterface*>{cell(m_pads, 5, 0)});
    QVERIFY(cell(m_pads, 5, 0)->tableCellInterface()->isSelected());
    QCOMPARE(tell(m_pads)->focusChild(), cell(m_pads, 5, 0));
}

void AccessibleTest::rowsThatWentAreForgotten()
{
    QCOMPARE(name(m_list, 4, 0), QStringLiteral("Ballyhoo"));
    QVERIFY(m_window->loadshowname(
        writeshow(*m_home, QStringLiteral("Other"), {{QStringLiteral("One"), {{QStringLiteral("Fog"), 0}}}}) +
        QStringLiteral("/Live/live.ini")));
    QCOMPARE(tell(m_list)->tableInterface()->rowCount(), 1);
    QCOMPARE(name(m_list, 0, 0), QStringLiteral("Fog"));
    QVERIFY(!tell(m_list)->tableInterface()->cellAt(4, 0));
}

void AccessibleTest::anItemCanBeMadeCurrent()
{
    QAccessibleActionInterface* actions = cell(m_pads, 4, 0)->actionInterface();
    QVERIFY(actions);
    QCOMPARE(actions->actionNames(), QStringList{QAccessibleActionInterface::setFocusAction()});
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(m_pads->hasFocus());
    QCOMPARE(m_pads->currentIndex(), QModelIndex(m_window->vdjModel->index(4, 0)));
    QVERIFY(cell(m_grid, 1, 1)->actionInterface()->actionNames().isEmpty());
}

LUMIPAD_TEST_MAIN(AccessibleTest)

#include "tst_accessible.moc"
