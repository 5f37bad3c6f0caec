#include "modelsignals.h"

#include <QAbstractItemModel>
#include <QMetaMethod>

ModelSignals::ModelSignals(const QAbstractItemModel& model, Which which)
{
    const int slot = metaObject()->indexOfSlot("note()");
    const QMetaObject* meta = which == All ? model.metaObject() : &QAbstractItemModel::staticMetaObject;
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal &&
            !QMetaObject::connect(&model, i, this, slot))
            qFatal("A signal of the model cannot be counted");
    }
}

int ModelSignals::count() const { return m_count; }

void ModelSignals::note() { ++m_count; }
