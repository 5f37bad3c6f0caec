#pragma once

#include <QHash>
#include <QPoint>
#include <QRect>
#include <QString>

class QXmlStreamReader;

/// Where the widgets are, read from the window's form. The form has no layouts, so its numbers hold in the
/// running window too.
class Form
{
public:
    /// Reads the form file \a path. Throws `Trouble` when that is no form.
    explicit Form(const QString& path);

    /// The rectangle of the widget, in the window's central widget. Throws `Trouble` for an unknown name.
    QRect rect(const QString& name) const;

private:
    void readwidget(QXmlStreamReader& xml, QPoint parent);

    QHash<QString, QRect> m_rects;
};
