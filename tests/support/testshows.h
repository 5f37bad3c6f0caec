#pragma once

#include <QList>
#include <QString>

class TestHome;

/// One Live Button of a test show.
struct TestButton
{
    QString title;
    int color;
};

/// One Live page of a test show.
struct TestPage
{
    QString name;
    QList<TestButton> buttons;
};

/// Two pages, three and two Live Buttons.
QList<TestPage> smallshow();

/// Writes the show \a name, with \a pages, into the folder that the program offers first, and gives the
/// show's folder.
QString writeshow(const TestHome& home, const QString& name, const QList<TestPage>& pages = smallshow());
