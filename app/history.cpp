#include "history.h"

#include <QUndoCommand>
#include <QUndoStack>

#include <utility>

namespace app {

/// One step of one output.
class History::Change : public QUndoCommand
{
public:
    Change(History* history, int output, const Work& before, const Work& after)
        : m_history(history), m_output(output), m_before(before), m_after(after)
    {
        // Both outputs have one field for the name. A step that left it alone must not bring back an older
        // one: another name may have been typed for the other output since.
        if (m_before.name == m_after.name) {
            m_before.name.reset();
            m_after.name.reset();
        }
    }

    void undo() override { m_history->put(m_output, m_before); }

    void redo() override
    {
        // The stack calls this for a new step too.
        if (m_done)
            m_history->put(m_output, m_after);
        m_done = true;
    }

private:
    History* m_history;
    int m_output;
    Work m_before;
    Work m_after;
    bool m_done = false;
};

History::Step::Step(History* history) : m_history(history) { m_history->begin(); }

History::Step::~Step() { m_history->end(); }

History::History(int outputs, const Take& take, const Put& put) : m_take(take), m_put(put)
{
    for (int output = 0; output < outputs; ++output) {
        m_stacks.append(new QUndoStack(&m_group));
        m_stacks.constLast()->setUndoLimit(maxSteps);
    }
}

void History::follow(int output) { m_group.setActiveStack(m_stacks.at(output)); }

void History::undo() { m_group.undo(); }

void History::redo() { m_group.redo(); }

void History::clear()
{
    m_before.clear();
    for (QUndoStack* stack : std::as_const(m_stacks))
        stack->clear();
}

void History::begin()
{
    if (m_depth++ > 0)
        return;
    for (int output = 0; output < m_stacks.size(); ++output)
        m_before.append(m_take(output));
}

void History::end()
{
    if (--m_depth > 0)
        return;
    const QVector<Work> before = std::exchange(m_before, {});
    for (int output = 0; output < before.size(); ++output) {
        const Work after = m_take(output);
        Work sameBank = before.at(output);
        sameBank.bank = after.bank;
        if (sameBank != after)
            m_stacks.at(output)->push(new Change(this, output, before.at(output), after));
    }
}

/// Puts \a work back; what answers to the change of a widget makes no step of it.
void History::put(int output, const Work& work)
{
    ++m_depth;
    m_put(output, work);
    --m_depth;
}

} // namespace app
