#pragma once

#include <QObject>

class QAbstractItemModel;

/// Counts the signals of a model: all of them, its own included, or those alone that views listen to.
class ModelSignals : public QObject
{
    Q_OBJECT

public:
    enum Which { All, OfViews };

    explicit ModelSignals(const QAbstractItemModel& model, Which which = All);
    /// How many came since the object was made.
    int count() const;

private slots:
    void note();

private:
    int m_count = 0;
};
