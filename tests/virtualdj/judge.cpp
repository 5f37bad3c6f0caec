#include "judge.h"

#include <algorithm>
#include <utility>

namespace VirtualDj {

namespace {

constexpr int complaintsPerFile = 5;
constexpr int maxStates = 20000; ///< of one script; a factory mapping's have a few dozen
const QString bankVariable = QStringLiteral("dmxbank");
const QString os2lVariable = QStringLiteral("$os2l");

QVector<int> sorted(QSet<int> numbers)
{
    numbers.insert(0);
    QVector<int> all(numbers.cbegin(), numbers.cend());
    std::sort(all.begin(), all.end());
    all.append(all.constLast() + 1);
    // Unset, which is 0, comes first.
    all.removeOne(0);
    all.prepend(0);
    return all;
}

} // namespace

bool States::next()
{
    while (!m_choices.isEmpty() && m_choices.constLast().at + 1 == m_choices.constLast().values.size())
        m_choices.removeLast();
    if (m_choices.isEmpty())
        return false;
    ++m_choices.last().at;
    return true;
}

int States::choose(const QString& of, const QVector<int>& values)
{
    for (const Choice& choice : std::as_const(m_choices)) {
        if (choice.of == of)
            return choice.values.at(choice.at);
    }
    m_choices.append({of, values, 0});
    return values.constFirst();
}

int States::variable(const QString& name)
{
    const auto set = m_set.constFind(name);
    if (set != m_set.constEnd())
        return *set;
    const auto fixed = m_fixed.constFind(name);
    if (fixed != m_fixed.constEnd())
        return *fixed;
    return choose(QStringLiteral("var ") + name, sorted(m_constants.value(name)));
}

QString States::describe() const
{
    QStringList all;
    for (auto fixed = m_fixed.cbegin(); fixed != m_fixed.cend(); ++fixed)
        all.append(fixed.key() + QStringLiteral(" = ") + QString::number(*fixed));
    for (const Choice& choice : m_choices)
        all.append(choice.of + QStringLiteral(" = ") + QString::number(choice.values.at(choice.at)));
    return all.join(QStringLiteral(", "));
}

QString Judge::summary() const
{
    QString text = QStringLiteral("%1 presses and %2 questions judged, %3 OS2L messages")
                       .arg(QString::number(presses), QString::number(questions), QString::number(sent));
    for (auto met = deviations.cbegin(); met != deviations.cend(); ++met)
        text += QStringLiteral("\n    %1 times: %2").arg(QString::number(*met), reason(met.key()));
    return text;
}

void Judge::complain(const QString& what)
{
    if (m_left-- > 0)
        complaints.append(what);
}

const Script& Judge::script(const QString& where, const QString& text)
{
    auto found = m_scripts.find(text);
    if (found == m_scripts.end())
        found = m_scripts.emplace(text, parse(text)).first;
    if (found->second.tooLong)
        complain(where + QStringLiteral(" has a script that is too long for VirtualDJ"));
    return found->second;
}

/// Compares what a press does with what it should do, and sends its messages: a button is on when pressed and
/// off when released (os2l.org; that the release ends what the press has begun is our assumption).
void Judge::press(const QString& where, const Effects& does, const Effects& should)
{
    ++presses;
    if (does != should)
        complain(where + QStringLiteral(": does ") + describe(does) + QStringLiteral(" instead of ") +
                 describe(should));
    for (const bool on : {true, false}) {
        for (const Effect& effect : does) {
            if (effect.kind == Effect::Kind::Os2lButton)
                m_sender.button(effect.name, on);
            else if (effect.kind == Effect::Kind::Os2lCommand && on)
                m_sender.command(effect.name.toInt(), 1);
        }
        for (const Effect& effect : should) {
            if (effect.kind == Effect::Kind::Os2lButton)
                m_awaited.append({QStringLiteral("btn"), effect.name, on});
            else if (effect.kind == Effect::Kind::Os2lCommand && on)
                m_awaited.append({QStringLiteral("cmd"), effect.name, true});
        }
    }
}

/// Compares what the lighting program has got with what it should have got since the last comparison.
void Judge::comparesent(const QString& where)
{
    QList<Os2l::Event> got;
    const qint64 bytes = m_sender.sent();
    if (bytes > 0 && !m_show.receive(bytes, &got))
        complain(where + QStringLiteral(": OS2L messages got lost"));
    const QList<Os2l::Event> awaited = std::exchange(m_awaited, {});
    sent += got.size();
    const auto parting = std::mismatch(got.cbegin(), got.cend(), awaited.cbegin(), awaited.cend());
    if (parting.first != got.cend() || parting.second != awaited.cend()) {
        const int at = static_cast<int>(parting.first - got.cbegin());
        complain(where + QStringLiteral(": the lighting program gets ") + Os2l::describe(got.mid(at, 1)) +
                 QStringLiteral(" instead of ") + Os2l::describe(awaited.mid(at, 1)));
    }
}

void Judge::file(const QByteArray& bytes, const Expectation& expectation)
{
    m_left = complaintsPerFile;
    const auto reads = [&expectation](const QByteArray& file) {
        return (expectation.page ? readpadspage(file).error : readmapping(file).error).isEmpty();
    };
    QByteArray readable = bytes;
    for (auto name = expectation.broken.cbegin(); name != expectation.broken.cend(); ++name) {
        if (!readable.contains(name.key().toUtf8()))
            complain(QStringLiteral("this name should stand in the file: ") + name.key());
        readable.replace(name.key().toUtf8(), name->toUtf8());
    }
    if (!expectation.broken.isEmpty() && reads(bytes))
        complain(QStringLiteral("the file can be read, but names should have broken it"));
    if (expectation.page)
        page(readable, *expectation.page);
    if (expectation.mapping)
        mapping(readable, *expectation.mapping);
}

void Judge::page(const QByteArray& bytes, const PageWork& work)
{
    m_left = complaintsPerFile;
    const PadsPageFile file = readpadspage(bytes);
    if (!file.error.isEmpty()) {
        complain(QStringLiteral("a dead page: ") + file.error);
        return;
    }
    pagein(file, work);
    turns(file, work);
    comparesent(QStringLiteral("the page"));
}

void Judge::pagein(const PadsPageFile& file, const PageWork& work)
{
    QList<int> numbers;
    for (int pad = 1; pad <= work.padcount(); ++pad)
        numbers.append(pad);
    if (file.name != work.name)
        complain(QStringLiteral("the page is named \"%1\"").arg(file.name));
    QList<int> padnumbers;
    for (auto pad = file.pads.cbegin(); pad != file.pads.cend(); ++pad)
        padnumbers.append(pad.key());
    if (padnumbers != numbers || file.parameters.size() != 1 || !file.parameters.contains(1))
        complain(QStringLiteral("the page has other pads or parameters"));
    for (const QString& stranger : file.strangers)
        complain(stranger + QStringLiteral(" is neither pad nor parameter"));
    for (auto pad = file.pads.cbegin(); pad != file.pads.cend(); ++pad) {
        for (const QString& text : {pad->name, pad->color, pad->action})
            script(QStringLiteral("pad %1").arg(pad.key()), text);
    }
    for (const int bank : work.usedbanks()) {
        const PageWork::Bank& pads = work.banks.at(static_cast<std::size_t>(bank));
        if (std::none_of(pads.begin(), pads.begin() + work.padcount(), [](const auto& pad) { return !!pad; }))
            ++deviations[Deviation::HiddenBank];
    }
}

namespace {

/// What a press of the Live Button \a name does.
Effect pressof(const QString& name, Deviations* deviations)
{
    const Taken button = taken(name, deviations);
    return {Effect::Kind::Os2lButton, button.name, button.dropped};
}

} // namespace

/// Judges all that is shown and done in the bank with \a index among the used ones; one that is no index
/// shows and does nothing.
void Judge::bankof(const PadsPageFile& file, const PageWork& work, int index, Desk* desk)
{
    const QList<int> used = work.usedbanks();
    const bool real = index >= 0 && index < used.size();
    const auto bank = static_cast<std::size_t>(real ? used.at(index) : 0);
    const QString where = real ? QStringLiteral("bank %1").arg(bank + 1) : QStringLiteral("no bank");

    ++questions;
    const QString name = real ? taken(work.bankNames.at(bank), &deviations).name : QString();
    Effects aside;
    const QString shows = shownname(file.parameters.value(1).name, desk, &aside);
    if (shows != name)
        complain(where + QStringLiteral(": the parameter shows \"") + shows + QLatin1Char('"'));

    for (auto pad = file.pads.cbegin(); pad != file.pads.cend(); ++pad) {
        const QString padwhere = where + QStringLiteral(", pad %1").arg(pad.key());
        const auto content = real && pad.key() <= padsPerBank
                                 ? work.banks.at(bank).at(static_cast<std::size_t>(pad.key() - 1))
                                 : std::nullopt;
        questions += 2;
        const QString text = content ? taken(content->text, &deviations).name : QString();
        const QString label = shownname(pad->name, desk, &aside);
        if (label != text)
            complain(padwhere + QStringLiteral(": shows \"") + label + QStringLiteral("\" instead of \"") +
                     text + QLatin1Char('"'));
        const Value color = ask(script(padwhere, pad->color).chain, desk, &aside);
        const QColor paint = content ? QColor(content->color) : QColor(0, 0, 0, 0);
        const bool painted = color.kind == Value::Kind::Color;
        // Where no bank is on, no colour is told either.
        if (real ? !painted || color.color != paint : painted)
            complain(padwhere + QStringLiteral(": the colour is ") + color.color.name(QColor::HexArgb));
        Effects should;
        if (content)
            should.append(pressof(content->button, &deviations));
        press(padwhere, perform(script(padwhere, pad->action).chain, desk), should);
    }
    if (!aside.isEmpty())
        complain(where + QStringLiteral(": texts and colours do ") + describe(aside));
    for (const QString& what : std::as_const(desk->asked)) {
        if (what != bankVariable)
            complain(where + QStringLiteral(": asks for ") + what);
    }
}

/// Goes through the banks with the parameter, up and down and past both ends, on one deck; the other deck
/// stays where it is. Then looks at the page with a bank number that another page has left behind.
void Judge::turns(const PadsPageFile& file, const PageWork& work)
{
    const QList<int> used = work.usedbanks();
    const int count = static_cast<int>(used.size());
    const Chain& parameter = script(QStringLiteral("the parameter"), file.parameters.value(1).action).chain;
    Desk desk;
    const auto turn = [&](int direction, int from, int to) {
        desk.turned = direction;
        const Effects does = perform(parameter, &desk);
        desk.turned = 0;
        press(QStringLiteral("the parameter, turned from %1 by %2").arg(from).arg(direction), does,
              {{Effect::Kind::Variable, bankVariable, to}});
    };
    for (int index = 0; index < count; ++index) {
        bankof(file, work, index, &desk);
        turn(1, index, (index + 1) % count);
    }
    for (int index = 0; index < count; ++index) {
        turn(-1, (count - index) % count, count - 1 - index);
        bankof(file, work, count - 1 - index, &desk);
    }
    turn(1, 0, 1 % count);
    desk.deck = 2;
    bankof(file, work, 0, &desk);

    for (const int stray : {count, count + 5}) {
        desk.setvariable(bankVariable, stray);
        bankof(file, work, -1, &desk);
        turn(1, stray, 0);
    }
}

void Judge::mapping(const QByteArray& bytes, const MappingWork& work)
{
    m_left = complaintsPerFile;
    const MappingFile file = readmapping(bytes);
    if (!file.error.isEmpty()) {
        complain(QStringLiteral("a dead mapping: ") + file.error);
        return;
    }
    if (file.device != work.device.id)
        complain(QStringLiteral("the mapping is for the device ") + file.device);
    for (const QString& name : file.contradictions)
        complain(name + QStringLiteral(" is there twice"));
    for (const QString& stranger : file.strangers)
        complain(stranger + QStringLiteral(" is no control"));
    QSet<QString> names;
    for (const Control& one : work.device.controls) {
        names.insert(one.name);
        if (!one.led.isEmpty())
            names.insert(one.led);
        for (const int os2l : {0, 1}) {
            control(file, work, one, os2l);
            if (!one.led.isEmpty())
                light(file, work, one, os2l);
        }
    }
    // VirtualDJ ignores names that it does not know in silence; none may be there.
    for (auto action = file.actions.cbegin(); action != file.actions.cend(); ++action) {
        if (!names.contains(action.key()))
            complain(action.key() + QStringLiteral(" is no control of the device"));
    }
    for (const QString& name : std::as_const(names)) {
        if (!file.actions.contains(name))
            complain(name + QStringLiteral(" is missing"));
    }
    comparesent(QStringLiteral("the mapping"));
    notemapping(file, work);
}

namespace {

/// What \a control should do while the variable of the switch is \a os2l.
Effects shoulddo(const MappingWork& work, const Control& control, const Chain& factory, int os2l,
                 World* world, Deviations* deviations)
{
    const MappingWork::Cell cell = work.cellof(control);
    const bool cells = control.type == Control::Type::Pad || control.type == Control::Type::Button;
    if (control.type == Control::Type::Ignore)
        return perform(factory, world);
    if (cells && work.combined && work.isswitch(control))
        return {{Effect::Kind::Variable, os2lVariable, 1 - os2l}};
    if (work.combined && os2l == 0)
        return perform(factory, world);
    if (control.type == Control::Type::Slider)
        return {{Effect::Kind::Os2lCommand, QString::number(control.column + 1), 0}};
    if (cells && cell.button)
        return {pressof(*cell.button, deviations)};
    return {};
}

Light lightnamed(const QString& color)
{
    Value value;
    value.kind = Value::Kind::Color;
    value.color = colornamed(color);
    return lightof(value);
}

Light dimlight(const QString& color, int percent)
{
    Value value;
    value.kind = Value::Kind::Color;
    value.color = dimmed(colornamed(color), percent);
    return lightof(value);
}

/// The light of a switch while it is on or off.
Light switchlight(const MappingWork& work, const Control& control, bool on)
{
    const MappingWork::Cell cell = work.cellof(control);
    if (control.type == Control::Type::Button)
        return on ? Light{Light::Kind::On, 0} : Light();
    if (work.device.fullRgb)
        return on ? lightnamed(cell.color) : dimlight(cell.color, 30);
    if (on)
        return lightnamed(cell.on.isEmpty() ? work.defaultOn : cell.on);
    return lightnamed(cell.off.isEmpty() ? work.defaultOff : cell.off);
}

/// The light of a Live Button that is on (that is not blinking, or in its lit phase) or off.
Light buttonlight(const MappingWork& work, const Control& control, bool on)
{
    const MappingWork::Cell cell = work.cellof(control);
    if (control.type == Control::Type::Pad) {
        if (work.device.fullRgb && on)
            return lightnamed(cell.on.isEmpty() ? cell.color : cell.on);
        if (work.device.fullRgb)
            return cell.off.isEmpty() ? dimlight(cell.color, 40) : lightnamed(cell.off);
        return switchlight(work, control, on);
    }
    if (control.plainLed)
        return on ? Light{Light::Kind::On, 0} : Light();
    if (work.device.fullRgb)
        return on ? lightnamed(cell.color) : dimlight(cell.color, 30);
    return lightnamed(on ? work.defaultOn : work.defaultOff);
}

/// What the light of \a control should show while the variable of the switch is \a os2l. What a factory light
/// does besides goes to \a does.
Light shouldshow(const MappingWork& work, const Control& control, const Chain& factory, int os2l,
                 World* world, Effects* does, Deviations* deviations)
{
    const MappingWork::Cell cell = work.cellof(control);
    if (work.combined && work.isswitch(control))
        return switchlight(work, control, os2l != 0);
    if (work.combined && os2l == 0) {
        // A control without action and Live Button is written without its light.
        const bool kept = cell.button || !work.factory.value(control.name).isEmpty();
        return kept ? lightof(ask(factory, world, does)) : Light();
    }
    if (!cell.button)
        return Light();
    const Taken button = taken(*cell.button, deviations);
    bool on = world->buttonactive(button.name, button.dropped);
    if (on && cell.blink && control.type == Control::Type::Pad)
        on = world->blinkphase(QString());
    return buttonlight(work, control, on);
}

/// The states that \a script and \a factory can tell apart.
States statesof(const Chain& script, const Chain& factory, int os2l)
{
    QMap<QString, QSet<int>> constants;
    collectconstants(script, &constants);
    collectconstants(factory, &constants);
    return States(std::move(constants), {{os2lVariable, os2l}});
}

} // namespace

void Judge::control(const MappingFile& file, const MappingWork& work, const Control& one, int os2l)
{
    const Chain& does = script(one.name, file.actions.value(one.name)).chain;
    const Chain& factory = script(one.name, work.factory.value(one.name)).chain;
    States states = statesof(does, factory, os2l);
    int left = maxStates;
    do {
        states.restart();
        const Effects should = shoulddo(work, one, factory, os2l, &states, &deviations);
        states.restart();
        const Effects did = perform(does, &states);
        press(did == should ? one.name : one.name + QStringLiteral(" with ") + states.describe(), did,
              should);
    } while (states.next() && --left > 0);
    if (left == 0)
        complain(one.name + QStringLiteral(" has too many states"));
}

void Judge::light(const MappingFile& file, const MappingWork& work, const Control& one, int os2l)
{
    const Chain& shows = script(one.led, file.actions.value(one.led)).chain;
    const Chain& factory = script(one.led, work.factory.value(one.led)).chain;
    States states = statesof(shows, factory, os2l);
    int left = maxStates;
    do {
        ++questions;
        Effects shoulddo;
        Effects does;
        states.restart();
        const Light should = shouldshow(work, one, factory, os2l, &states, &shoulddo, &deviations);
        states.restart();
        const Light light = lightof(ask(shows, &states, &does));
        if (does != shoulddo)
            complain(one.led + QStringLiteral(": does ") + describe(does));
        if (light != should)
            complain(one.led + QStringLiteral(" with ") + states.describe() + QStringLiteral(": shows ") +
                     describe(light) + QStringLiteral(" instead of ") + describe(should));
    } while (states.next() && --left > 0);
    if (left == 0)
        complain(one.led + QStringLiteral(" has too many states"));
}

/// Counts the deviations that the mapping as a whole shows.
void Judge::notemapping(const MappingFile& file, const MappingWork& work)
{
    QMap<Place, int> controls;
    bool hasswitch = false;
    for (const Control& one : work.device.controls) {
        if (one.led.isEmpty())
            continue;
        const MappingWork::Cell cell = work.cellof(one);
        const bool shared = ++controls[{one.row, one.column}] > 1;
        if (shared && (cell.button || work.isswitch(one)))
            ++deviations[Deviation::SharedCell];
        if (cell.button && one.type == Control::Type::Button &&
            (cell.blink || !cell.on.isEmpty() || !cell.off.isEmpty()))
            ++deviations[Deviation::SideButtonColours];
        const bool lost = work.factory.value(one.name).isEmpty() && !work.factory.value(one.led).isEmpty();
        if (work.combined && !cell.button && lost && !work.isswitch(one))
            ++deviations[Deviation::LightWithoutAction];
        hasswitch = hasswitch || work.isswitch(one);
        if (work.combined && work.isswitch(one) && one.type == Control::Type::Pad && work.device.fullRgb)
            ++deviations[Deviation::DarkSwitch];
    }
    for (auto cell = work.cells.cbegin(); cell != work.cells.cend(); ++cell) {
        const bool pad = cell.key().first >= 2 && cell.key().first <= 9 && cell.key().second >= 2 &&
                         cell.key().second <= 9;
        if (cell->button && pad && !controls.contains(cell.key()))
            ++deviations[Deviation::UnwrittenCell];
    }
    if (!work.combined || hasswitch)
        return;
    ++deviations[Deviation::NoSwitch];
    for (auto action = file.actions.cbegin(); action != file.actions.cend(); ++action) {
        if (action->contains(QLatin1String("toggle '$os2l'")))
            complain(action.key() + QStringLiteral(" toggles OS2L without being the switch"));
    }
}

} // namespace VirtualDj
