#include "testshows.h"

#include "testhome.h"

#include <QFile>

QList<TestPage> smallshow()
{
    return {{QStringLiteral("Moods"),
             {{QStringLiteral("Strobe"), 0xFF0000},
              {QStringLiteral("Blackout"), 0},
              {QStringLiteral("Slow Fade"), 0x00FF00}}},
            {QStringLiteral("Movers"),
             {{QStringLiteral("Circle"), 0xFF}, {QStringLiteral("Ballyhoo"), 0xFFFF00}}}};
}

QString writeshow(const TestHome& home, const QString& name, const QList<TestPage>& pages)
{
    const QString folder = QStringLiteral("TheLightingController/LightShows/") + name;
    QFile file(home.makefolder(folder + QStringLiteral("/Live")) + QStringLiteral("/live.ini"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        qFatal("Cannot write a test show");
    QString text = QStringLiteral("[page]\nnumber=%1\n").arg(pages.size());
    for (int page = 0; page < pages.size(); ++page) {
        text += QStringLiteral("\n[page%1]\nname=\"%2\"\nnb_buttons=%3\n")
                    .arg(QString::number(page + 1), pages.at(page).name,
                         QString::number(pages.at(page).buttons.size()));
        for (int button = 0; button < pages.at(page).buttons.size(); ++button) {
            const TestButton& item = pages.at(page).buttons.at(button);
            text += QStringLiteral("\n[page%1_button%2]\ntitle=\"%3\"\ncolor=%4\n")
                        .arg(QString::number(page + 1), QString::number(button + 1), item.title,
                             QString::number(item.color));
        }
    }
    file.write(text.toUtf8());
    return home.path(folder);
}
