#include "hands.h"

#include "testdialogs.h"
#include "testfiles.h"
#include "testshows.h"

#include <QColorDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>

#include <utility>

using VirtualDj::Place;

namespace {

/// A bank has two columns.
constexpr int padRows = VirtualDj::padsPerBank / 2;
const QString checkMark = QString::fromUtf8("\u2714");

/// The entry \a text of \a menu, whether it is the chosen one (with a check mark) or not (with a blank).
QAction* entryof(const QMenu* menu, const QString& text)
{
    const auto actions = menu->actions();
    for (QAction* action : actions) {
        const QString plain = action->text();
        if (plain == text || plain == QLatin1Char(' ') + text || plain == checkMark + text)
            return action;
    }
    qFatal("The menu has no entry %s", qPrintable(text));
}

} // namespace

QString initext(const QString& title)
{
    QString text = title;
    text.replace('\\', QLatin1String("\\\\")).replace('"', QLatin1String("\\\""));
    text.replace('\t', QLatin1String("\\t")).replace('\n', QLatin1String("\\n"));
    // A number ends at the first sign that is no digit of it.
    return text.replace(QChar(1), QLatin1String("\\x1"));
}

Hands::Hands(const TestHome& home, QList<LiveButton> buttons)
    : m_home(home), m_buttons(std::move(buttons)), m_list(m_window.child<QTableView>("dmxlistview")),
      m_pads(m_window.child<QTableView>("vdjlistview")),
      m_cells(m_window.child<QTableView>("tablecontroller"))
{
    TestPage live{QStringLiteral("Stage"), {}};
    for (const LiveButton& button : std::as_const(m_buttons))
        live.buttons.append({initext(button.name), button.color.mid(1).toInt(nullptr, 16)});
    const QString show = writeshow(home, QStringLiteral("Stage"), {live});
    {
        Dialogs dialogs({Answers::choose(show)});
        call("on_loadini_clicked");
    }
    page.name = QStringLiteral("OS2L DMX");
    for (std::size_t bank = 0; bank < page.bankNames.size(); ++bank)
        page.bankNames.at(bank) = QStringLiteral("BANK %1").arg(bank + 1);
}

void Hands::call(const char* slot)
{
    if (!QMetaObject::invokeMethod(&m_window, slot, Qt::DirectConnection))
        qFatal("The window has no slot %s", slot);
}

void Hands::turntomidi()
{
    QTest::mouseClick(m_window.child<QRadioButton>("radio_outputmidi"), Qt::LeftButton);
}

void Hands::choosesixteen(bool sixteen)
{
    m_window.child<QRadioButton>(sixteen ? "radioButton_16pads" : "radioButton_8pads")->click();
    page.sixteen = sixteen;
}

void Hands::namepage(const QString& name)
{
    m_window.child<QLineEdit>("padsname")->setText(name);
    call("on_padsname_editingFinished");
    page.name = name.isEmpty() ? QStringLiteral("OS2L DMX") : name;
}

void Hands::namebank(int bank, const QString& name)
{
    m_window.child<QComboBox>("bankcombo")->setCurrentIndex(bank);
    m_window.child<QLineEdit>("bankname")->setText(name);
    call("on_bankname_editingFinished");
    page.bankNames.at(static_cast<std::size_t>(bank)) = name;
}

void Hands::cleanpads()
{
    call("on_cleanpads_button_clicked");
    page.banks = {};
}

QModelIndex Hands::padindex(int bank, int pad) const
{
    return m_pads->model()->index(bank * padRows + pad % padRows, pad / padRows);
}

QModelIndex Hands::cellindex(const Place& place) const
{
    return m_cells->model()->index(place.first, place.second);
}

/// Drags with the payload that the list or grid makes. A drag or drop that the view would not begin or accept
/// is a fault of the test.
void Hands::drop(const QModelIndex& source, const QModelIndex& target)
{
    if (!source.flags().testFlag(Qt::ItemIsDragEnabled) || !target.flags().testFlag(Qt::ItemIsDropEnabled))
        qFatal("A user cannot drag from %d, %d to %d, %d", source.row(), source.column(), target.row(),
               target.column());
    const std::unique_ptr<QMimeData> data(source.model()->mimeData({source}));
    if (!const_cast<QAbstractItemModel*>(target.model())
             ->dropMimeData(data.get(), Qt::CopyAction, -1, -1, target))
        qFatal("A grid refuses a drop of the test");
}

void Hands::droponpad(int button, int bank, int pad)
{
    drop(m_list->model()->index(button, 0), padindex(bank, pad));
    const LiveButton& live = m_buttons.at(button);
    padat(bank, pad) = VirtualDj::PageWork::Pad{live.name, live.color, live.name};
}

void Hands::dragpad(int bank, int pad, int tobank, int topad)
{
    drop(padindex(bank, pad), padindex(tobank, topad));
    std::swap(padat(bank, pad), padat(tobank, topad));
}

void Hands::editpad(int bank, int pad, const QString& text)
{
    const QModelIndex index = padindex(bank, pad);
    m_pads->model()->setData(index, text, Qt::EditRole);
    // The number of an emptied text counts through all banks.
    padat(bank, pad)->text =
        text.isEmpty() ? QStringLiteral("PAD %1").arg(bank * padRows + pad % padRows + 1) : text;
}

void Hands::removepad(int bank, int pad)
{
    m_pads->selectionModel()->setCurrentIndex(padindex(bank, pad), QItemSelectionModel::ClearAndSelect);
    call("ondeletevdjaction_triggered");
    padat(bank, pad).reset();
}

void Hands::choosedevice(const QString& name)
{
    auto* devices = m_window.child<QComboBox>("devicescombo");
    const int index = devices->findText(name);
    if (index < 0)
        qFatal("There is no device %s", qPrintable(name));
    const bool changes = index != devices->currentIndex();
    devices->setCurrentIndex(index);
    midi.device = VirtualDj::readdevice(QStringLiteral(LAYOUTS_DIR "/") + name + QStringLiteral(".xml"));
    if (changes)
        m_switchlocked = false;
}

void Hands::choosemapping(const QString& name, const VirtualDj::FactoryActions& factory)
{
    auto* mappings = m_window.child<QComboBox>("mididevices");
    const int index = name.isEmpty() ? 0 : mappings->findText(name);
    if (index < 0 || (index == 0 && !name.isEmpty()))
        qFatal("There is no mapping %s", qPrintable(name));
    mappings->setCurrentIndex(index);
    midi.combined = index > 0;
    midi.factory = factory;
}

void Hands::choosedefaults(int off, int on)
{
    midi.defaultOff.clear();
    midi.defaultOn.clear();
    if (midi.device.fullRgb)
        return;
    m_window.child<QComboBox>("combo_offcolor")->setCurrentIndex(off);
    m_window.child<QComboBox>("combo_oncolor")->setCurrentIndex(on);
    midi.defaultOff = midi.device.colors.at(off);
    midi.defaultOn = midi.device.colors.at(on);
}

QList<Place> Hands::usablecells() const
{
    QList<Place> places;
    for (int row = 2; row <= 9; ++row) {
        for (int column = 2; column <= 9; ++column)
            places.append({row, column});
    }
    for (const VirtualDj::Control& control : midi.device.controls) {
        const Place place{control.row, control.column};
        if (!control.led.isEmpty() && !places.contains(place))
            places.append(place);
    }
    if (m_switchlocked)
        places.removeOne(midi.switchCell);
    return places;
}

QList<Place> Hands::filledcells() const
{
    QList<Place> places;
    const QList<Place> usable = usablecells();
    for (const Place& place : usable) {
        if (midi.cells.value(place).button)
            places.append(place);
    }
    return places;
}

/// A cell without its Live Button keeps its own colours and blink.
void Hands::emptycell(const Place& place)
{
    VirtualDj::MappingWork::Cell& cell = midi.cells[place];
    cell.button.reset();
    cell.color = QStringLiteral("#000000");
}

void Hands::cleancells()
{
    call("on_cleanmidi_button_clicked");
    m_switchlocked = false; // its cell is as usable again as the device has it
    const QList<Place> usable = usablecells();
    for (auto cell = midi.cells.begin(); cell != midi.cells.end(); ++cell) {
        cell->button.reset();
        if (usable.contains(cell.key()))
            cell->color = QStringLiteral("#000000");
    }
}

void Hands::droponcell(int button, const Place& place)
{
    drop(m_list->model()->index(button, 0), cellindex(place));
    const LiveButton& live = m_buttons.at(button);
    VirtualDj::MappingWork::Cell cell;
    cell.button = live.name;
    cell.color = live.color;
    midi.cells[place] = cell;
}

void Hands::dragcell(const Place& from, const Place& to)
{
    drop(cellindex(from), cellindex(to));
    VirtualDj::MappingWork::Cell& source = midi.cells[from];
    VirtualDj::MappingWork::Cell& target = midi.cells[to];
    if (!target.button)
        target = VirtualDj::MappingWork::Cell();
    std::swap(source, target);
}

/// Chooses \a entry from the menu that a right click on the first of \a places brings up.
void Hands::choosefrommenu(const QList<Place>& places, const QString& entry, const QString& submenu)
{
    m_cells->selectionModel()->clear();
    for (const Place& place : places)
        m_cells->selectionModel()->select(cellindex(place), QItemSelectionModel::Select);
    const QPoint pos = m_cells->visualRect(cellindex(places.constFirst())).center();
    QMetaObject::invokeMethod(&m_window, "customMenuRequested", Qt::DirectConnection, Q_ARG(QPoint, pos));
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        qFatal("No menu came up");
    const QMenu* chosen = submenu.isEmpty() ? menu.data() : entryof(menu, submenu)->menu();
    entryof(chosen, entry)->trigger();
    if (menu)
        menu->close();
}

void Hands::removecells(const QList<Place>& places)
{
    choosefrommenu(places, QStringLiteral("Remove"));
    for (const Place& place : places)
        emptycell(place);
}

void Hands::blinkcells(const QList<Place>& places)
{
    choosefrommenu(places, QStringLiteral("Blink"));
    const bool blink = !midi.cells.value(places.constFirst()).blink;
    for (const Place& place : places)
        midi.cells[place].blink = blink;
}

void Hands::colorcells(const QList<Place>& places, bool on, int number)
{
    const QString color = number == 0 ? QString() : midi.device.colors.at(number - 1);
    choosefrommenu(places, number == 0 ? QStringLiteral("default") : color,
                   on ? QStringLiteral("On Color") : QStringLiteral("Off Color"));
    for (const Place& place : places)
        (on ? midi.cells[place].on : midi.cells[place].off) = color;
}

void Hands::colorcells(const QList<Place>& places, bool on, const QColor& color)
{
    if (!color.isValid()) {
        colorcells(places, on, 0);
        return;
    }
    Dialogs dialogs({[color](QDialog* dialog) {
        auto* colors = qobject_cast<QColorDialog*>(dialog);
        if (!colors)
            return;
        colors->setCurrentColor(color);
        colors->accept();
    }});
    choosefrommenu(places, QStringLiteral("Select ..."),
                   on ? QStringLiteral("On Color") : QStringLiteral("Off Color"));
    for (const Place& place : places)
        (on ? midi.cells[place].on : midi.cells[place].off) = color.name();
}

void Hands::toggleswitch(const Place& place)
{
    choosefrommenu({place}, QStringLiteral("Set as Switch"));
    const Place before = std::exchange(midi.switchCell, Place(-1, -1));
    if (before.first >= 0)
        emptycell(before);
    emptycell(place);
    m_switchlocked = before != place;
    if (m_switchlocked)
        midi.switchCell = place;
}

QByteArray Hands::exportto(const QString& path)
{
    QFile::remove(path);
    Dialogs dialogs({Answers::press(QMessageBox::Ok)});
    call("on_actionExport_triggered");
    return contents(path);
}

QByteArray Hands::exportpage()
{
    return exportto(m_home.path(QStringLiteral("Documents/VirtualDJ/Pads/") + page.name + ".xml"));
}

QString Hands::mappingname() const { return midi.device.name + " - " + page.name + " mapping"; }

QString Hands::mappingpath() const
{
    return m_home.path(QStringLiteral("Documents/VirtualDJ/Mappers/") + mappingname() + ".xml");
}

QByteArray Hands::exportmapping() { return exportto(mappingpath()); }
