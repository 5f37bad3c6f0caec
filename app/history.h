#pragma once

#include "work.h"

#include <QUndoGroup>
#include <QVector>
#include <functional>

class QUndoStack;

namespace app {

/// The steps that a person can take back and take again, for each output on its own. It knows no edit by its
/// kind: a step is the work of an output before and after.
class History
{
public:
    using Take = std::function<Work(int output)>;
    using Put = std::function<void(int output, const Work& work)>;

    /// More than anybody goes back, and little memory.
    static constexpr int maxSteps = 200;

    /// For \a outputs outputs, numbered from 0, whose work \a take takes and \a put puts back.
    History(int outputs, const Take& take, const Put& put);
    Q_DISABLE_COPY(History)

    /// Around one action of the user: what the work of any output is at the end of its life and was not at
    /// its start becomes a step of that output. Those inside another one belong to it. Which bank is shown
    /// counts as no difference.
    class Step
    {
    public:
        explicit Step(History* history);
        ~Step();
        Q_DISABLE_COPY(Step)

    private:
        History* m_history;
    };

    /// What a `Step` does at its making and at its end, for a change that only tells of its start and end.
    void begin();
    void end();
    /// From now on \a output is the one whose steps are undone and redone.
    void follow(int output);
    /// Take the latest step back, and again; nothing when there is none.
    void undo();
    void redo();
    /// Forgets all steps of all outputs, and what has happened so far in one that is not at its end.
    void clear();

private:
    class Change;

    void put(int output, const Work& work);

    Take m_take;
    Put m_put;
    QUndoGroup m_group;
    QVector<QUndoStack*> m_stacks; ///< children of `m_group`
    QVector<Work> m_before;        ///< of the step that is not at its end; empty when none is to come of it
    int m_depth = 0;               ///< of steps inside each other
};

} // namespace app
