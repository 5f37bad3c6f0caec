#include "player.h"

#include <algorithm>

namespace VirtualDj {

namespace {

Value truth(bool is)
{
    Value value;
    value.kind = Value::Kind::Truth;
    value.truth = is;
    return value;
}

Value number(int is)
{
    Value value;
    value.kind = Value::Kind::Number;
    value.number = is;
    return value;
}

/// `color 'x'`, `color 40% 'x'`, by name or as #rrggbb (VDJScript documentation).
Value color(const QStringList& arguments)
{
    const QString first = arguments.value(0);
    const bool dims = first.endsWith(QLatin1Char('%'));
    Value value;
    value.color = colornamed(dims ? arguments.value(1) : first);
    if (value.color.isValid())
        value.kind = Value::Kind::Color;
    if (dims)
        value.color = dimmed(value.color, first.chopped(1).toInt());
    return value;
}

/// `var 'x'` is true when not 0, `var 'x' n` when equal to n (VDJScript documentation).
Value variable(const QStringList& arguments, World* world)
{
    const int is = world->variable(arguments.value(0));
    return arguments.size() > 1 ? truth(is == arguments.at(1).toInt()) : number(is);
}

/// The number of words behind the first argument.
int dropped(const Step& step) { return static_cast<int>(step.arguments.size()) - 1; }

Value askverb(const Step& step, World* world)
{
    switch (step.verb) {
    case Verb::Var:
        return variable(step.arguments, world);
    case Verb::ParamBigger:
        // While a parameter is turned it tells the direction (measured by others); elsewhere it asks for the
        // value of a control, which is the mapping's own matter.
        return truth(world->turn() != 0 ? world->turn() > step.arguments.value(0).toInt()
                                        : world->factorytruth(step.text));
    case Verb::GetText: {
        Value value;
        value.kind = Value::Kind::Text;
        value.text = step.arguments.value(0);
        return value;
    }
    case Verb::Color:
        return color(step.arguments);
    case Verb::Blink:
        // `blink ? a : b` alternates (VDJScript documentation).
        return truth(world->blinkphase(step.arguments.value(0)));
    case Verb::On:
        return truth(true);
    case Verb::Off:
        return truth(false);
    case Verb::Nothing:
        return Value();
    case Verb::Toggle:
        // A button that toggles a variable is lit by it (our assumption).
        return number(world->variable(step.arguments.value(0)));
    case Verb::Os2lButton:
        // Needs the lighting program to tell (our assumption).
        return truth(world->buttonactive(step.arguments.value(0), dropped(step)));
    case Verb::Set:
    case Verb::Cycle:
    case Verb::Os2lCommand:
    case Verb::Factory:
        return truth(world->factorytruth(step.text));
    }
    return Value();
}

Value asksingle(const Step& step, World* world, Effects* does)
{
    return step.bracketed ? ask(step.brackets, world, does) : askverb(step, world);
}

/// The value of a step without what follows its "?".
Value askstep(const Step& step, World* world, Effects* does)
{
    Value value = asksingle(step, world, does);
    if (step.both.empty())
        return value;
    bool all = istrue(value);
    for (const Step& other : step.both)
        all = all && istrue(asksingle(other, world, does));
    return truth(all);
}

void setvariable(const QString& name, int value, World* world, Effects* effects)
{
    world->setvariable(name, value);
    effects->append({Effect::Kind::Variable, name, value});
}

/// `cycle 'x' n`: up by one, n becomes 0 (VDJScript documentation, measured by others). `cycle 'x' -n`: down
/// by one, below 0 becomes n - 1 (our assumption).
int cycled(int value, int count)
{
    if (count < 0)
        return value - 1 < 0 ? -count - 1 : value - 1;
    return value + 1 >= count ? 0 : value + 1;
}

void performverb(const Step& step, World* world, Effects* effects)
{
    // Words after a verb's arguments are dropped (measured by others).
    const QString name = step.arguments.value(0);
    const int argument = step.arguments.value(1).toInt();
    switch (step.verb) {
    case Verb::Set:
        setvariable(name, argument, world, effects);
        break;
    case Verb::Toggle:
        setvariable(name, world->variable(name) == 0 ? 1 : 0, world, effects);
        break;
    case Verb::Cycle:
        setvariable(name, cycled(world->variable(name), argument), world, effects);
        break;
    case Verb::Os2lButton:
        effects->append({Effect::Kind::Os2lButton, name, dropped(step)});
        break;
    case Verb::Os2lCommand:
        effects->append({Effect::Kind::Os2lCommand, name, dropped(step)});
        break;
    case Verb::Factory:
        effects->append({Effect::Kind::Factory, step.text, 0});
        break;
    // Questions do nothing when they are done.
    case Verb::Var:
    case Verb::ParamBigger:
    case Verb::GetText:
    case Verb::Color:
    case Verb::Blink:
    case Verb::On:
    case Verb::Off:
    case Verb::Nothing:
        break;
    }
}

void performchain(const Chain& chain, World* world, Effects* effects);

void performsingle(const Step& step, World* world, Effects* effects)
{
    if (step.bracketed)
        performchain(step.brackets, world, effects);
    else
        performverb(step, world, effects);
}

void performstep(const Step& step, World* world, Effects* effects)
{
    if (step.asks) {
        performchain(istrue(askstep(step, world, effects)) ? step.yes : step.no, world, effects);
        return;
    }
    performsingle(step, world, effects);
    for (const Step& other : step.both)
        performsingle(other, world, effects);
}

void performchain(const Chain& chain, World* world, Effects* effects)
{
    for (const Step& step : chain.steps)
        performstep(step, world, effects);
}

QString shown(const Value& value)
{
    switch (value.kind) {
    case Value::Kind::Text:
        return value.text;
    case Value::Kind::Number:
        return QString::number(value.number);
    case Value::Kind::Truth:
        return value.truth ? QStringLiteral("yes") : QStringLiteral("no");
    case Value::Kind::Color:
        return value.color.name();
    case Value::Kind::Nothing:
        break;
    }
    return QString();
}

} // namespace

Effects perform(const Chain& chain, World* world)
{
    Effects effects;
    performchain(chain, world, &effects);
    return effects;
}

Value ask(const Chain& chain, World* world, Effects* does)
{
    Effects unasked;
    Effects* effects = does ? does : &unasked;
    Value value;
    // A chain that ends in a question has that question's value (our assumption), any other one that of its
    // first step (measured by others). The other steps are done: those before a question as others have
    // measured, the rest by our assumption.
    for (const Step& step : chain.steps) {
        if (step.asks)
            return ask(istrue(askstep(step, world, effects)) ? step.yes : step.no, world, effects);
        if (&step == &chain.steps.front() && !chain.steps.back().asks)
            value = askstep(step, world, effects);
        else
            performstep(step, world, effects);
    }
    return value;
}

bool istrue(const Value& value)
{
    switch (value.kind) {
    case Value::Kind::Truth:
        return value.truth;
    case Value::Kind::Number:
        return value.number != 0;
    case Value::Kind::Text:
        return !value.text.isEmpty();
    case Value::Kind::Color:
        return true;
    case Value::Kind::Nothing:
        break;
    }
    return false;
}

QString shownname(const QString& name, World* world, Effects* does)
{
    const QStringList pieces = name.split(QLatin1Char('`'));
    QString text;
    for (int piece = 0; piece < pieces.size(); ++piece) {
        const bool script = piece % 2 == 1;
        text += script ? shown(ask(parse(pieces.at(piece)).chain, world, does)) : pieces.at(piece);
    }
    return text;
}

Light lightof(const Value& value)
{
    if (value.kind == Value::Kind::Color) {
        const bool dark = value.color.alpha() == 0 || value.color.rgb() == QColor(Qt::black).rgb();
        return dark ? Light() : Light{Light::Kind::Color, value.color.rgb()};
    }
    return istrue(value) ? Light{Light::Kind::On, 0} : Light();
}

QString describe(const Effects& effects)
{
    const auto words = [](int count) {
        return count > 0 ? QStringLiteral(" (dropped words: %1)").arg(count) : QString();
    };
    QStringList all;
    for (const Effect& effect : effects) {
        switch (effect.kind) {
        case Effect::Kind::Os2lButton:
            all.append(QStringLiteral("Live Button \"%1\"").arg(effect.name) + words(effect.value));
            break;
        case Effect::Kind::Os2lCommand:
            all.append(QStringLiteral("OS2L command %1").arg(effect.name) + words(effect.value));
            break;
        case Effect::Kind::Variable:
            all.append(QStringLiteral("%1 becomes %2").arg(effect.name, QString::number(effect.value)));
            break;
        case Effect::Kind::Factory:
            all.append(QStringLiteral("[%1]").arg(effect.name));
            break;
        }
    }
    return all.isEmpty() ? QStringLiteral("nothing") : all.join(QStringLiteral(", "));
}

QString describe(const Light& light)
{
    switch (light.kind) {
    case Light::Kind::Dark:
        return QStringLiteral("dark");
    case Light::Kind::On:
        return QStringLiteral("on");
    case Light::Kind::Color:
        break;
    }
    return QColor(light.color).name();
}

} // namespace VirtualDj
