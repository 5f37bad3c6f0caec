#include "story.h"

/// The window of the real program at scales of the screen that are no whole numbers. What is inside of it at
/// each scale is looked at by the tests of the window itself, which must have the scale set up as the program
/// does.
class ScaleStory : public QObject
{
    Q_OBJECT

private slots:
    void window_has_its_size_at_the_scale_of_the_screen_data();
    void window_has_its_size_at_the_scale_of_the_screen();
};

void ScaleStory::window_has_its_size_at_the_scale_of_the_screen_data()
{
    // What 650 (1366) by 606 make at the scale, halves rounded up.
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QSize>("pads");
    QTest::addColumn<QSize>("midi");
    QTest::newRow("120 dots per inch") << "QT_FONT_DPI"
                                       << "120" << QSize(813, 758) << QSize(1708, 758);
    QTest::newRow("factor 1.5") << "QT_SCALE_FACTOR"
                                << "1.5" << QSize(975, 909) << QSize(2049, 909);
}

void ScaleStory::window_has_its_size_at_the_scale_of_the_screen()
{
    QFETCH(const QString, variable);
    QFETCH(const QString, value);
    QFETCH(const QSize, pads);
    QFETCH(const QSize, midi);
    Stories::tell([&] {
        StoryUser user;
        QProcessEnvironment scale;
        scale.insert(variable, value);
        user.open(scale);
        user.expectsize(pads);
        user.picture("1-pads");
        // From the button to the choice of the output.
        for (const char* key : {"Tab", "Tab", "Tab", "Right"})
            user.keyboard().key(key);
        user.expectsize(midi);
        user.picture("2-midi");
        user.keyboard().key("Ctrl+Q");
        user.awaitend(0);
    });
}

QTEST_GUILESS_MAIN(ScaleStory)
#include "tst_scale.moc"
