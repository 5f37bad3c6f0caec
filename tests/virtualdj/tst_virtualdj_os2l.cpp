#include "os2l.h"

#include <QJsonDocument>
#include <QtTest>

using namespace Os2l;

/// The way from VirtualDJ to the lighting program.
class Os2lTest : public QObject
{
    Q_OBJECT

private slots:
    void buttonArrivesAsItIsNamed_data();
    void buttonArrivesAsItIsNamed();
    void keepsTheOrderOfManyMessages();
    void sendsJsonObjects();
    void cutsTheStreamWhereverItBreaks();
    void tellsWhichButtonsAreActive();
    void noticesMessagesThatDoNotCome();
};

void Os2lTest::buttonArrivesAsItIsNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Strobe";
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "  Fog  ";
    QTest::newRow("quotes") << "Say \"Hello\", it's";
    QTest::newRow("markup") << "<Intro> & &amp; ]]>";
    QTest::newRow("script") << "a ? b : c & (d) `e`";
    QTest::newRow("back\\slash") << "a\\b\\\\\"";
    QTest::newRow("braces") << "}{\"}";
    QTest::newRow("tab and line break") << "a\tb\nc\r\n";
    QTest::newRow("control characters") << QString::fromUtf8("\x01\x1f\x7f");
    QTest::newRow("German") << QString::fromUtf8("Grünes Licht ß");
    QTest::newRow("Russian") << QString::fromUtf8("Ночь");
    QTest::newRow("Greek") << QString::fromUtf8("Φως");
    QTest::newRow("Japanese") << QString::fromUtf8("夜の光");
    QTest::newRow("Hebrew") << QString::fromUtf8("אור לבן");
    QTest::newRow("Arabic") << QString::fromUtf8("ضوء أحمر");
    QTest::newRow("Thai") << QString::fromUtf8("ไฟกลางคืน");
    QTest::newRow("Hindi") << QString::fromUtf8("रोशनी");
    QTest::newRow("accents apart") << QString::fromUtf8("e\xCC\x81");
    QTest::newRow("emoji") << QString::fromUtf8("Party 🎉👩‍🎤🏳️‍🌈");
    QTest::newRow("line separator") << QString(QChar(0x2028)) + QChar(0xFEFF);
    QTest::newRow("long") << QString(100000, 'x');
}

void Os2lTest::buttonArrivesAsItIsNamed()
{
    QFETCH(QString, name);
    LightShow show;
    Sender sender(show.port());
    sender.button(name, true);
    sender.button(name, false);
    QList<Event> events;
    QVERIFY(show.receive(sender.sent(), &events));
    QCOMPARE(events.size(), 2);
    QCOMPARE(events.at(0).kind, QString("btn"));
    QCOMPARE(events.at(0).name, name);
    QVERIFY(events.at(0).on);
    QCOMPARE(events.at(1).name, name);
    QVERIFY(!events.at(1).on);
}

void Os2lTest::keepsTheOrderOfManyMessages()
{
    LightShow show;
    Sender sender(show.port());
    QList<Event> awaited;
    for (int number = 0; number < 500; ++number) {
        sender.button(QString::number(number), number % 3 == 0);
        awaited.append({"btn", QString::number(number), number % 3 == 0});
        sender.command(number % 8, 0.5);
        awaited.append({"cmd", QString::number(number % 8), true});
    }
    QList<Event> events;
    QVERIFY(show.receive(sender.sent(), &events));
    QCOMPARE(events, awaited);
}

void Os2lTest::sendsJsonObjects()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    Sender sender(server.serverPort());
    sender.button("Say \"Hi\"", true);
    const qint64 bytes = sender.sent();
    QVERIFY(server.waitForNewConnection(20000));
    const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
    QByteArray all;
    while (all.size() < bytes && (socket->bytesAvailable() > 0 || socket->waitForReadyRead(20000)))
        all += socket->readAll();
    const QJsonObject expected{{"evt", "btn"}, {"name", "Say \"Hi\""}, {"page", ""}, {"state", "on"}};
    QCOMPARE(QJsonDocument::fromJson(all).object(), expected);
}

void Os2lTest::cutsTheStreamWhereverItBreaks()
{
    const QByteArray stream = "{\"evt\":\"btn\",\"name\":\"a}\\\"{\\\\\",\"state\":\"on\"}"
                              "{\"evt\":\"cmd\",\"id\":3,\"deep\":{\"x\":[{}]}}\n {\"evt\":\"btn\"}";
    for (int chunk = 1; chunk <= stream.size(); ++chunk) {
        Objects objects;
        QList<QJsonObject> whole;
        for (int at = 0; at < stream.size(); at += chunk)
            whole += objects.feed(stream.mid(at, chunk));
        QCOMPARE(whole.size(), 3);
        QCOMPARE(whole.at(0).value("name").toString(), QString("a}\"{\\"));
        QCOMPARE(whole.at(1).value("id").toInt(), 3);
        QCOMPARE(whole.at(2).value("evt").toString(), QString("btn"));
    }
}

void Os2lTest::tellsWhichButtonsAreActive()
{
    LightShow show;
    Sender sender(show.port());
    const QString name = QString::fromUtf8("夜 \"Fog\"");
    QVERIFY(sender.listen(show.tell(name, true) + show.tell("Strobe", true)));
    QCOMPARE(sender.active(), (QSet<QString>{name, "Strobe"}));
    QVERIFY(sender.listen(show.tell(name, false)));
    QCOMPARE(sender.active(), QSet<QString>{"Strobe"});
}

void Os2lTest::noticesMessagesThatDoNotCome()
{
    LightShow show;
    QList<Event> events;
    {
        Sender sender(show.port());
        sender.button("Strobe", true);
        QVERIFY(show.receive(sender.sent(), &events));
    }
    QVERIFY(!show.receive(1, &events));
    QCOMPARE(events.size(), 1);
}

QTEST_GUILESS_MAIN(Os2lTest)
#include "tst_virtualdj_os2l.moc"
