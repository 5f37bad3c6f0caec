#pragma once

#include <QColor>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

/// A small VirtualDJ for the tests: it reads the files that Lumipad writes, as VirtualDJ would, and knows
/// nothing of how they are written. Every rule names where it is from: VirtualDJ's own documentation, what
/// others measured in the real program, or our assumption; docs/virtualdj.md lists the same rules with the
/// open doubts.
namespace VirtualDj {

/// The verbs whose meaning the pads pages and mappings rest on. Any other verb is `Factory`: one opaque thing
/// that VirtualDJ does or knows, named by its text.
enum class Verb {
    Factory,
    Var,
    Set,
    Toggle,
    Cycle,
    ParamBigger,
    GetText,
    Color,
    Blink,
    On,
    Off,
    Nothing,
    Os2lButton,
    Os2lCommand,
};

struct Step;

/// Steps that are done one after the other.
struct Chain
{
    std::vector<Step> steps;
};

/// One step: a verb with its arguments, brackets around a chain, or several of these joined by "&&"; and what
/// follows when it is asked with "?".
struct Step
{
    Verb verb = Verb::Nothing;
    QString text;          ///< the step as written, every quotation in apostrophes
    QStringList arguments; ///< without their quotes
    Chain brackets;        ///< what the brackets hold; the verb does not count then
    bool bracketed = false;
    std::vector<Step> both; ///< further terms joined by "&&"
    bool asks = false;      ///< a "?" follows
    Chain yes;
    Chain no;
};

/// A script that was read. Any text is one; what cannot be understood is left out.
struct Script
{
    Chain chain;
    int statements = 0;
    bool tooLong = false; ///< what follows the last statement that VirtualDJ takes is missing
};

/// The longest script (measured by others).
constexpr int maxStatements = 255;

/// Reads a script.
Script parse(const QString& text);

/// Adds to \a constants, by the name of the variable, the numbers that \a chain compares variables with.
void collectconstants(const Chain& chain, QMap<QString, QSet<int>>* constants);

/// The colour that VirtualDJ knows by \a name: "#rrggbb" or one of its named ones; "transparent" is a colour
/// too (VDJScript documentation). Invalid for any other name.
QColor colornamed(const QString& name);

/// \a color at \a percent of its brightness.
QColor dimmed(const QColor& color, int percent);

} // namespace VirtualDj
