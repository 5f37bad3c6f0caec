#pragma once

#include "os2l.h"
#include "player.h"
#include "work.h"

#include <QList>
#include <QStringList>

#include <map>

namespace VirtualDj {

class Desk;

/// Presses every pad of a file in every bank and every control in every state, asks every light, sends what
/// comes of it to a lighting program over OS2L, and compares all that with what the user had done.
class Judge
{
public:
    Judge() : m_sender(m_show.port()) {}

    /// Judge a file. What is wrong goes to `complaints`, a few for each file.
    void page(const QByteArray& file, const PageWork& work);
    void mapping(const QByteArray& file, const MappingWork& work);
    /// Judges a file by what is written down about it.
    void file(const QByteArray& bytes, const Expectation& expectation);

    QStringList complaints;
    Deviations deviations;
    qint64 presses = 0;   ///< pads and controls pressed and released
    qint64 questions = 0; ///< lights, texts and colours asked for
    qint64 sent = 0;      ///< OS2L messages that came through

    /// A line for the log of the tests.
    QString summary() const;

private:
    void complain(const QString& what);
    void press(const QString& where, const Effects& does, const Effects& should);
    void comparesent(const QString& where);
    const Script& script(const QString& where, const QString& text);
    void pagein(const PadsPageFile& file, const PageWork& work);
    void bankof(const PadsPageFile& file, const PageWork& work, int index, Desk* desk);
    void turns(const PadsPageFile& file, const PageWork& work);
    void control(const MappingFile& file, const MappingWork& work, const Control& control, int os2l);
    void light(const MappingFile& file, const MappingWork& work, const Control& control, int os2l);
    void notemapping(const MappingFile& file, const MappingWork& work);

    Os2l::LightShow m_show;
    Os2l::Sender m_sender;
    QList<Os2l::Event> m_awaited;
    std::map<QString, Script> m_scripts; ///< by text; most of them come again and again
    int m_left = 0;                      ///< complaints that the file may still give
};

/// VirtualDJ's memory: global variables ("$...") and, for each deck, those of the deck (VDJScript
/// documentation). No factory question is true, no light blinks, no button is active.
class Desk : public World
{
public:
    int deck = 1;
    int turned = 0;
    QSet<QString> asked; ///< all that scripts have asked for

    int variable(const QString& name) override
    {
        asked.insert(name);
        return m_variables.value(scoped(name));
    }
    void setvariable(const QString& name, int value) override { m_variables.insert(scoped(name), value); }
    bool factorytruth(const QString& text) override { return no(text); }
    bool blinkphase(const QString& pace) override { return no(QStringLiteral("blink ") + pace); }
    bool buttonactive(const QString& name, int) override { return no(QStringLiteral("button ") + name); }
    int turn() const override { return turned; }

private:
    bool no(const QString& what)
    {
        asked.insert(what);
        return false;
    }

    QString scoped(const QString& name) const
    {
        return name.startsWith(QLatin1Char('$')) ? name : QString::number(deck) + QLatin1Char(' ') + name;
    }

    QMap<QString, int> m_variables;
};

/// Every state of the world that scripts can tell apart, one after the other: whatever is asked for is taken
/// in each of its possible values. Variables are 0, each number that a script compares them with, and another
/// one.
class States : public World
{
public:
    /// \a constants are the numbers by variable; \a fixed variables have one value.
    States(QMap<QString, QSet<int>> constants, QMap<QString, int> fixed)
        : m_constants(std::move(constants)), m_fixed(std::move(fixed))
    {
    }

    /// Forgets what the last run has set.
    void restart() { m_set.clear(); }
    /// Goes on to the next state; false after the last one.
    bool next();
    /// For messages.
    QString describe() const;

    int variable(const QString& name) override;
    void setvariable(const QString& name, int value) override { m_set.insert(name, value); }
    bool factorytruth(const QString& text) override { return choose(text, {0, 1}) != 0; }
    bool blinkphase(const QString& pace) override
    {
        return choose(QStringLiteral("blink ") + pace, {0, 1}) != 0;
    }
    bool buttonactive(const QString& name, int dropped) override
    {
        const QString words = dropped > 0 ? QStringLiteral(" (dropped words: %1)").arg(dropped) : QString();
        return choose(QStringLiteral("button ") + name + words, {0, 1}) != 0;
    }

private:
    struct Choice
    {
        QString of;
        QVector<int> values;
        int at = 0;
    };

    int choose(const QString& of, const QVector<int>& values);

    QMap<QString, QSet<int>> m_constants;
    QMap<QString, int> m_fixed;
    QMap<QString, int> m_set;
    QVector<Choice> m_choices;
};

} // namespace VirtualDj
