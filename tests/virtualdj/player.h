#pragma once

#include "script.h"

#include <QString>
#include <QVector>

namespace VirtualDj {

/// What a script can ask for while it runs: VirtualDJ's memory and its surroundings at that moment.
class World
{
public:
    World() = default;
    virtual ~World() = default;
    Q_DISABLE_COPY(World)

    /// The variable \a name; 0 when it was never set (our assumption).
    virtual int variable(const QString& name) = 0;
    virtual void setvariable(const QString& name, int value) = 0;
    /// Whether what the opaque verb \a text stands for is so.
    virtual bool factorytruth(const QString& text) = 0;
    /// Whether a light that blinks at \a pace (such as "500ms"; empty: VirtualDJ's own) is on at this moment.
    virtual bool blinkphase(const QString& pace) = 0;
    /// Whether the lighting program has told that its button \a name is on. The script has \a dropped words
    /// behind the name.
    virtual bool buttonactive(const QString& name, int dropped) = 0;
    /// The direction in which a parameter is turned just now: 1 up, -1 down; 0 when none is.
    virtual int turn() const { return 0; }
};

/// What came of running a script as an action.
struct Effect
{
    enum class Kind { Os2lButton, Os2lCommand, Variable, Factory };

    Kind kind = Kind::Factory;
    QString name;  ///< of the button, the command or the variable; the text of a factory action
    int value = 0; ///< of the variable; behind a button or command the number of words that are dropped

    bool operator==(const Effect& other) const
    {
        return kind == other.kind && name == other.name && value == other.value;
    }
    bool operator!=(const Effect& other) const { return !(*this == other); }
};
using Effects = QVector<Effect>;

/// What came of asking a script.
struct Value
{
    enum class Kind { Nothing, Truth, Number, Text, Color };

    Kind kind = Kind::Nothing;
    bool truth = false;
    int number = 0;
    QString text;
    QColor color;
};

/// Does \a chain as an action.
Effects perform(const Chain& chain, World* world);

/// Asks \a chain for its value. A missing or empty branch shows nothing (measured by others; that an empty
/// one stays dark is our assumption). What is done on the way goes to \a does.
Value ask(const Chain& chain, World* world, Effects* does = nullptr);

/// Whether \a value counts as true.
bool istrue(const Value& value);

/// The text that VirtualDJ shows for the name \a name of a pad or parameter of a pads page: what stands
/// between back-quotes is a script whose value is shown, the rest is shown as it is (measured by others). An
/// unclosed back-quote runs to the end (our assumption). What is done on the way goes to \a does.
QString shownname(const QString& name, World* world, Effects* does = nullptr);

/// What a light shows.
struct Light
{
    enum class Kind { Dark, On, Color };

    Kind kind = Kind::Dark;
    QRgb color = 0;

    bool operator==(const Light& other) const { return kind == other.kind && color == other.color; }
    bool operator!=(const Light& other) const { return !(*this == other); }
};

/// The light of an LED whose script has the value \a value. A black light is dark.
Light lightof(const Value& value);

/// For messages.
QString describe(const Effects& effects);
QString describe(const Light& light);

} // namespace VirtualDj
