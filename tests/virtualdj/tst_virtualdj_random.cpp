#include "hands.h"
#include "judge.h"
#include "testfiles.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QTextStream>
#include <QtTest>

using VirtualDj::Place;

namespace {

constexpr int pageCount = 200;
constexpr int chainCount = 70; ///< of three mappings each, every one on top of the one before
constexpr int generations = 3;

/// The numbers of a run; LUMIPAD_VIRTUALDJ_SEED gives others.
quint32 seed()
{
    bool given = false;
    const uint number = qEnvironmentVariable("LUMIPAD_VIRTUALDJ_SEED").toUInt(&given);
    return given ? number : 20260305;
}

class Dice
{
public:
    explicit Dice(quint32 start) : m_random(start) {}

    /// 0 to \a count - 1.
    int below(int count) { return static_cast<int>(m_random.bounded(count)); }
    bool chance(int percent) { return below(100) < percent; }
    template<class T>
    T one(const QList<T>& all)
    {
        return all.at(below(static_cast<int>(all.size())));
    }
    /// One to \a most of \a all.
    template<class T>
    QList<T> some(const QList<T>& all, int most)
    {
        QList<T> chosen;
        for (int count = 1 + below(most); count > 0; --count) {
            const T value = one(all);
            if (!chosen.contains(value))
                chosen.append(value);
        }
        return chosen;
    }
    QColor color() { return QColor(below(256), below(256), below(256)); }

private:
    QRandomGenerator m_random;
};

/// Names that arrive whole or, with two apostrophes, cut: those of every script, with signs of the file's and
/// the script's own languages among them.
QStringList plainnames()
{
    return {QStringLiteral("Strobe"),
            QStringLiteral("Fog Burst"),
            QStringLiteral("100% %1 %2"),
            QStringLiteral("  blanks  "),
            QStringLiteral("back\\slash"),
            QStringLiteral("a>b"),
            QStringLiteral("what?"),
            QStringLiteral("a:b"),
            QStringLiteral("(red)"),
            QStringLiteral("nothing"),
            QStringLiteral("var $os2l"),
            QStringLiteral("#ff0000"),
            QStringLiteral("a, b; c = [d] {e} ~ | ^ * _ @ / !"),
            QStringLiteral("Rock 'n' Roll"),
            QString::fromUtf8("Grünes Licht ß"),
            QString::fromUtf8("Ночь"),
            QString::fromUtf8("Φως"),
            QString::fromUtf8("夜の光"),
            QString::fromUtf8("אור לבן"),
            QString::fromUtf8("ضوء أحمر"),
            QString::fromUtf8("ไฟกลางคืน"),
            QString::fromUtf8("रोशनी"),
            QString::fromUtf8("Party 🎉👩‍🎤"),
            QString::fromUtf8("e\xCC\x81t\xC3\xA9"),
            QString(200, 'x')};
}

/// Names with the separators of scripts; an export on top of a mapping with one of them garbles it.
QStringList separatornames() { return {QStringLiteral("red : green"), QStringLiteral("on ? off : on")}; }

QList<Hands::LiveButton> madeshow(Dice* dice)
{
    QList<Hands::LiveButton> buttons;
    const QStringList names = plainnames() + separatornames();
    for (const QString& name : names)
        buttons.append({name, dice->color().name()});
    return buttons;
}

/// Scripts of users' own mappings.
QStringList ownactions()
{
    return {"play_pause",
            "deck 1 play ? deck 1 pause : deck 1 play",
            "set '$page' 1 & sampler_bank 1",
            "(shift ? loop 4 : loop 8) & nothing",
            "toggle '$fx'",
            "browser_window \"songs\"",
            "var '$page' 1 ? hot_cue 1 : var '$page' 2 ? hot_cue 2 : nothing",
            "shift ? var 'x' ? sampler_pad 1 : sampler_pad 2 : cycle 'x' 4",
            "shift?stop:play",
            "shift ? stop",
            "nothing",
            ""};
}

QStringList ownlights()
{
    return {"on",
            "off",
            "play ? on : off",
            "play ? color 'green' : color 'red'",
            "blink 250ms ? color '#ff0000' : off",
            "color 'blue'",
            "color 50% '#00ff00'",
            "deck 1 loaded",
            "shift ? on",
            "play?on:off",
            "sampler_volume & param_bigger 50% ? on : off",
            "var \"$page\" 1 ? color 'cyan' : var '$page' 2 ? blink ? color 'white' : off",
            ""};
}

/// A user's own mapping for \a device: any control may have no action, any LED no light.
QByteArray ownmapping(const VirtualDj::Device& device, Dice* dice)
{
    QString text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"" + device.id +
                   "\" author=\"Somebody\" version=\"850\" date=\"1-1-2020\">\n";
    const auto map = [&text](const QString& name, const QString& script) {
        text += " <map value=\"" + name + "\" action=\"" + script.toHtmlEscaped() + "\" />\n";
    };
    map("ONINIT", "set '$page' 0");
    for (const VirtualDj::Control& control : device.controls) {
        if (dice->chance(80))
            map(control.name, dice->one(ownactions()));
        if (!control.led.isEmpty() && dice->chance(70))
            map(control.led, dice->one(ownlights()));
    }
    return (text + "</mapper>\n").toUtf8();
}

QStringList devices()
{
    return {"Akai APC Mini",           "Novation Launchpad Mini MK3", "Novation Launchpad Mini",
            "Novation Launchpad MKII", "Novation Launchpad PRO",      "Novation Launchpad S",
            "Novation Launchpad"};
}

VirtualDj::Device devicenamed(const QString& name)
{
    return VirtualDj::readdevice(QStringLiteral(LAYOUTS_DIR "/") + name + ".xml");
}

} // namespace

/// Random work in the real window, exported, judged.
class RandomTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void pagesDoWhatWasDropped();
    void mappingsDoWhatWasDroppedThroughThreeGenerations();
    void cleanupTestCase();

private:
    struct Chain
    {
        QString device;
        QString mapping; ///< what the next export builds on, as the window offers it; empty: nothing yet
        VirtualDj::FactoryActions factory;
    };

    void workonpads(Hands* hands);
    void editpads(Hands* hands);
    void workoncells(Hands* hands, bool separators);
    void colorcells(Hands* hands);
    void chooseorigin(Hands* hands, Chain* chain);
    bool judged(const QString& what);

    Dice m_dice{seed()};
    VirtualDj::Judge m_judge;
    QMap<QPair<QString, int>, VirtualDj::FactoryActions> m_own;
    int m_pages = 0;
    int m_mappings = 0;
};

void RandomTest::initTestCase() { QTextStream(stdout) << "LUMIPAD_VIRTUALDJ_SEED=" << seed() << '\n'; }

void RandomTest::cleanupTestCase()
{
    // Qt Test stops to log after many warnings, and the display-less platform warns of every menu.
    QTextStream(stdout) << m_pages << " pages, " << m_mappings << " mappings: " << m_judge.summary() << '\n';
    // What is tolerated by name must be there, or nobody would notice that it is no longer needed.
    if (m_pages < pageCount || m_mappings < chainCount * generations)
        return;
    const QList<VirtualDj::Deviation> all = VirtualDj::alldeviations();
    for (const VirtualDj::Deviation deviation : all)
        QVERIFY2(m_judge.deviations.value(deviation) > 0, qPrintable(VirtualDj::reason(deviation)));
}

bool RandomTest::judged(const QString& what)
{
    if (m_judge.complaints.isEmpty())
        return true;
    QTextStream(stdout) << "LUMIPAD_VIRTUALDJ_SEED=" << seed() << ", " << what << ":\n"
                        << m_judge.complaints.join('\n') << '\n';
    return false;
}

void RandomTest::workonpads(Hands* hands)
{
    hands->choosesixteen(m_dice.chance(50));
    const int buttons = static_cast<int>(plainnames().size() + separatornames().size());
    const QList<int> banks = m_dice.some(QList<int>{0, 1, 2, 3, 4, 5, 6, 7}, 8);
    for (int drops = 1 + m_dice.below(30); drops > 0; --drops) {
        const int bank = m_dice.one(banks);
        hands->droponpad(m_dice.below(buttons), bank,
                         m_dice.below(m_dice.chance(20) ? 16 : hands->page.padcount()));
    }
    for (const int bank : banks) {
        editpads(hands);
        hands->namebank(bank, m_dice.one(plainnames() + separatornames()));
    }
    // What is left must be worth an export.
    hands->droponpad(m_dice.below(buttons), m_dice.one(banks), m_dice.below(8));
}

/// Moves, swaps, removes and edits a few pads, wherever they are.
void RandomTest::editpads(Hands* hands)
{
    for (int bank = 0; bank < VirtualDj::bankCount; ++bank) {
        for (int pad = 0; pad < VirtualDj::padsPerBank; ++pad) {
            if (!hands->holdsbutton(bank, pad) || !m_dice.chance(15))
                continue;
            switch (m_dice.below(4)) {
            case 0:
                hands->removepad(bank, pad);
                break;
            case 1:
                hands->editpad(bank, pad, m_dice.chance(20) ? QString() : m_dice.one(plainnames()));
                break;
            default:
                hands->dragpad(bank, pad, m_dice.chance(70) ? bank : m_dice.below(8), m_dice.below(16));
                break;
            }
        }
    }
}

void RandomTest::pagesDoWhatWasDropped()
{
    const TestHome home;
    home.makepadsfolder();
    Hands hands(home, madeshow(&m_dice));
    for (; m_pages < pageCount; ++m_pages) {
        if (m_dice.chance(80))
            hands.cleanpads();
        workonpads(&hands);
        hands.namepage(
            m_dice.one(QStringList{"OS2L DMX", "Friday %1", QString::fromUtf8("夜 Früh"), "It's"}));
        m_judge.page(hands.exportpage(), hands.page);
        QVERIFY(judged(QStringLiteral("page %1").arg(m_pages)));
    }
}

/// Fills cells of the controller, then moves, swaps, removes, colours, blinks and switches.
void RandomTest::workoncells(Hands* hands, bool separators)
{
    const int buttons = static_cast<int>(plainnames().size() + (separators ? separatornames().size() : 0));
    for (int drops = 1 + m_dice.below(25); drops > 0; --drops)
        hands->droponcell(m_dice.below(buttons), m_dice.one(hands->usablecells()));
    // The side buttons, and the two special cells of the two-colour Launchpads, more often than chance would.
    for (const Place& place :
         m_dice.some(QList<Place>{{2, 11}, {5, 11}, {0, 2}, {11, 3}, {2, 0}, {2, 2}, {3, 2}}, 3)) {
        if (hands->usablecells().contains(place))
            hands->droponcell(m_dice.below(buttons), place);
    }
    if (m_dice.chance(70))
        hands->toggleswitch(m_dice.one(hands->usablecells()));
    for (int changes = m_dice.below(6); changes > 0 && hands->filledcells().size() > 2; --changes) {
        const QList<Place> filled = hands->filledcells();
        switch (m_dice.below(4)) {
        case 0:
            hands->removecells(m_dice.some(filled, 2));
            break;
        case 1:
            hands->toggleswitch(m_dice.one(hands->usablecells()));
            break;
        default:
            hands->dragcell(m_dice.one(filled),
                            m_dice.one(m_dice.chance(50) ? filled : hands->usablecells()));
            break;
        }
        colorcells(hands);
    }
    hands->droponcell(m_dice.below(buttons), m_dice.one(hands->usablecells()));
}

void RandomTest::colorcells(Hands* hands)
{
    if (hands->filledcells().isEmpty())
        return;
    const QList<Place> places = m_dice.some(hands->filledcells(), 4);
    const bool on = m_dice.chance(50);
    if (m_dice.chance(40))
        hands->blinkcells(places);
    else if (hands->midi.device.fullRgb)
        hands->colorcells(places, on, m_dice.chance(80) ? m_dice.color() : QColor());
    else
        hands->colorcells(places, on, m_dice.below(static_cast<int>(hands->midi.device.colors.size()) + 1));
}

/// Chooses what the export builds on: at first nothing, the factory's or an own mapping, then the last
/// export.
void RandomTest::chooseorigin(Hands* hands, Chain* chain)
{
    const VirtualDj::MappingFile factory =
        VirtualDj::readmapping(contents(QStringLiteral(LAYOUTS_DIR "/") + chain->device + " mapping.xml"));
    const int own = m_dice.below(2);
    if (!chain->mapping.isEmpty())
        hands->choosemapping(chain->mapping, chain->factory);
    else if (m_dice.chance(20))
        hands->choosemapping(QString(),
                             VirtualDj::factoryof(factory, hands->midi.device, &m_judge.deviations));
    else if (m_dice.chance(50))
        hands->choosemapping(chain->device + " mapping (factory)",
                             VirtualDj::factoryof(factory, hands->midi.device, &m_judge.deviations));
    else
        hands->choosemapping(QStringLiteral("%1 own %2").arg(chain->device).arg(own),
                             m_own.value({chain->device, own}));
}

void RandomTest::mappingsDoWhatWasDroppedThroughThreeGenerations()
{
    const TestHome home;
    const QString folder = home.makefolder("Documents/VirtualDJ/Mappers") + '/';
    for (const QString& name : devices()) {
        const VirtualDj::Device device = devicenamed(name);
        for (int own = 0; own < 2; ++own) {
            const QByteArray file = ownmapping(device, &m_dice);
            writefile(folder + QStringLiteral("%1 own %2.xml").arg(name).arg(own), file);
            m_own.insert({name, own},
                         VirtualDj::factoryof(VirtualDj::readmapping(file), device, &m_judge.deviations));
        }
    }
    QVector<Chain> chains(chainCount);
    for (int chain = 0; chain < chainCount; ++chain)
        chains[chain].device = devices().at(chain % devices().size());
    for (int generation = 1; generation <= generations; ++generation) {
        // Mappings are listed when the program starts.
        Hands hands(home, madeshow(&m_dice));
        hands.turntomidi();
        for (int number = 0; number < chainCount; ++number) {
            Chain& chain = chains[number];
            if (m_dice.chance(80))
                hands.cleancells();
            hands.choosedevice(chain.device);
            chooseorigin(&hands, &chain);
            const int colors = static_cast<int>(hands.midi.device.colors.size());
            hands.choosedefaults(m_dice.below(colors), m_dice.below(colors));
            workoncells(&hands, generation == generations);
            hands.namepage(QStringLiteral("Chain %1 %2").arg(number).arg(generation));
            const QByteArray file = hands.exportmapping();
            m_judge.mapping(file, hands.midi);
            ++m_mappings;
            QVERIFY(judged(QStringLiteral("generation %1 of %2").arg(generation).arg(hands.mappingname())));
            chain.factory =
                VirtualDj::factoryafter(hands.midi, VirtualDj::readmapping(file), &m_judge.deviations);
            chain.mapping = hands.mappingname();
        }
    }
}

LUMIPAD_TEST_MAIN(RandomTest)
#include "tst_virtualdj_random.moc"
