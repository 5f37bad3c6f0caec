#include "commands.h"

#include "pictures.h"
#include "trouble.h"
#include "user.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

/// The words after the name of a command.
class Words
{
public:
    explicit Words(const QStringList& words) : m_words(words) {}

    int count() const { return static_cast<int>(m_words.size()); }
    const QStringList& all() const { return m_words; }
    /// Word \a at, the first for 0.
    QString text(int at) const { return m_words.at(at); }
    int number(int at) const
    {
        bool isnumber = false;
        const int number = text(at).toInt(&isnumber);
        if (!isnumber)
            throw Trouble(QStringLiteral("\"%1\" is no number.").arg(text(at)));
        return number;
    }
    /// The cell that words \a at and the next one name.
    Cell cell(int at) const
    {
        const Cell cell{number(at), number(at + 1)};
        if (!Grid::contains(cell.row, cell.column))
            throw Trouble(QStringLiteral("There is no cell %1, %2.").arg(cell.row).arg(cell.column));
        return cell;
    }

private:
    QStringList m_words;
};

/// One command. Its words stand in \a usage, a last "..." for more of them; \a run may count on their number.
struct Command
{
    QString name;
    QString usage;
    std::function<void(User&, const Words&)> run;

    bool takes(int count) const
    {
        const QStringList words = usage.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const bool more = words.contains(QStringLiteral("..."));
        return more ? count >= words.size() - 1 : count == words.size();
    }
};

Output output(const QString& word)
{
    if (word != QLatin1String("pads") && word != QLatin1String("midi"))
        throw Trouble(QStringLiteral("\"%1\" is neither pads nor midi.").arg(word));
    return word == QLatin1String("pads") ? Output::Pads : Output::Midi;
}

PadColor padcolor(const QString& word)
{
    if (word != QLatin1String("off") && word != QLatin1String("on"))
        throw Trouble(QStringLiteral("\"%1\" is neither off nor on.").arg(word));
    return word == QLatin1String("off") ? PadColor::Off : PadColor::On;
}

/// Prints a sentence for the person who watches.
void say(const QString& sentence)
{
    std::printf("%s\n", qUtf8Printable(sentence));
    std::fflush(stdout);
}

/// Copies a file of the home to where the pictures are.
void keep(User& user, const QString& file)
{
    const QString copy = user.pictures() + QLatin1Char('/') + QFileInfo(file).fileName();
    QFile::remove(copy);
    if (!QFile::copy(user.home().path(file), copy))
        user.giveup(QStringLiteral("There is no file %1 to keep.").arg(file));
}

QVector<Command> windowcommands()
{
    return {
        {"say", "TEXT", [](User&, const Words& words) { say(words.text(0)); }},
        {"keep", "FILE-IN-HOME", [](User& user, const Words& words) { keep(user, words.text(0)); }},
        {"load-show", "NAME", [](User& user, const Words& words) { user.loadshow(words.text(0)); }},
        {"save-project", "NAME", [](User& user, const Words& words) { user.saveproject(words.text(0)); }},
        {"output", "pads|midi", [](User& user, const Words& words) { user.switchto(output(words.text(0))); }},
        {"click", "WIDGET", [](User& user, const Words& words) { user.click(words.text(0)); }},
        {"fill", "EDIT TEXT",
         [](User& user, const Words& words) { user.filledit(words.text(0), words.text(1)); }},
        {"choose", "COMBO ENTRY",
         [](User& user, const Words& words) { user.choosebykeys(words.text(0), words.number(1)); }},
        {"keys", "KEY ...",
         [](User& user, const Words& words) {
             for (const QString& key : words.all())
                 user.keyboard().key(key);
         }},
        {"await-menus", "COUNT", [](User& user, const Words& words) { user.awaitmenus(words.number(0)); }},
        {"await-menus-gone", "", [](User& user, const Words&) { user.awaitmenusgone(); }},
        {"await-box", "BUTTONS",
         [](User& user, const Words& words) { user.awaitbox(QStringLiteral("The box"), words.number(0)); }},
        {"answer", "BUTTON", [](User& user, const Words& words) { user.answerbox(words.number(0)); }},
        {"close", "", [](User& user, const Words&) { user.closeandconfirm(); }},
    };
}

QVector<Command> gridcommands()
{
    return {
        {"drag-to-pad", "LIST-ROW PAD",
         [](User& user, const Words& words) { user.dragbutton(words.number(0), words.number(1)); }},
        {"pad-menu", "PAD", [](User& user, const Words& words) { user.openpadmenu(words.number(0)); }},
        {"export-pads", "", [](User& user, const Words&) { user.exportpads(); }},
        {"drag-to-cell", "LIST-ROW ROW COLUMN",
         [](User& user, const Words& words) { user.dragtocell(words.number(0), words.cell(1)); }},
        {"cell-menu", "ROW COLUMN", [](User& user, const Words& words) { user.opencellmenu(words.cell(0)); }},
        {"color", "ROW COLUMN off|on NUMBER OF-HOW-MANY",
         [](User& user, const Words& words) {
             user.setcolor(words.cell(0), padcolor(words.text(2)), words.number(3), words.number(4));
         }},
        {"blink", "ROW COLUMN", [](User& user, const Words& words) { user.toggleblink(words.cell(0)); }},
        {"switch", "ROW COLUMN", [](User& user, const Words& words) { user.setswitch(words.cell(0)); }},
        {"export-mapper", "DEVICE NAME",
         [](User& user, const Words& words) { user.exportmapper(words.text(0), words.text(1)); }},
    };
}

QVector<Command> picturecommands()
{
    return {
        {"calm", "COMBO ...", [](User& user, const Words& words) { calm(user, words.all()); }},
        {"picture", "NAME", [](User& user, const Words& words) { user.picturesettled(words.text(0)); }},
        {"picture-with-menus", "NAME",
         [](User& user, const Words& words) { user.picturewindow(words.text(0)); }},
        {"picture-of-box", "NAME", [](User& user, const Words& words) { picturebox(user, words.text(0)); }},
        {"picture-above", "NAME LOWER-WIDGET WIDGET ...",
         [](User& user, const Words& words) {
             pictureabove(user, words.text(0), words.text(1), words.all().mid(2));
         }},
        {"picture-of-cells", "NAME ROW COLUMN ROW COLUMN",
         [](User& user, const Words& words) {
             picturecells(user, words.text(0), words.cell(1), words.cell(3));
         }},
    };
}

const QVector<Command>& commands()
{
    static const QVector<Command> all = windowcommands() + gridcommands() + picturecommands();
    return all;
}

} // namespace

void carryout(User& user, const QString& line)
{
    QStringList words = QProcess::splitCommand(line);
    if (words.isEmpty() || words.constFirst().startsWith(QLatin1Char('#')))
        return;
    const QString name = words.takeFirst();
    const auto command = std::find_if(commands().begin(), commands().end(),
                                      [&](const Command& known) { return known.name == name; });
    if (command == commands().end())
        throw Trouble(QStringLiteral("There is no command \"%1\".").arg(name));
    if (!command->takes(static_cast<int>(words.size())))
        throw Trouble(QStringLiteral("The words do not fit: %1 %2.").arg(name, command->usage));
    command->run(user, Words(words));
}

QString commandlist()
{
    QString list;
    for (const Command& command : commands())
        list += QStringLiteral("    %1 %2\n").arg(command.name, command.usage);
    return list;
}
