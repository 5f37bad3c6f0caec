#include "look.h"
#include "story.h"

/// From a show to a pads page, by the mouse alone but for the names typed.
class PadsPageStory : public QObject
{
    Q_OBJECT

private slots:
    void pads_are_filled_moved_named_and_exported()
    {
        Stories::tell([] {
            StoryUser user;
            user.open();
            start(user);
            drag(user);
            editotherbank(user);

            user.filledit("padsname", "My Night");
            user.picturesettled("8-named");
            user.expectexport("My Night", "padspage.xml");

            declineoverwrite(user);
            user.closeandconfirm();
        });
    }

    void page_name_may_have_any_characters()
    {
        Stories::tell([] {
            // Keys of the layout with and without Shift, others of Latin-1, and four scripts beyond.
            const QString name = QStringLiteral("Größe ½ {#1} Ночь 夜 ☾ 🌙");
            StoryUser user;
            user.open();
            user.loadshow("Tricky Names");
            user.dragbutton(1, 1);
            user.filledit("padsname", name);
            user.picturesettled("named");
            user.exportpads();
            const QByteArray page = Stories::golden("close.xml").replace("Still here", name.toUtf8());
            user.expectfile(user.home().page(name), page);
            user.expectonstage(user.home().page(name), "any-characters.json");
            user.closeandconfirm();
        });
    }

private:
    static void start(StoryUser& user)
    {
        // While the list of pages is empty it holds no text, so the arrow, a drawn image, alone has this
        // colour.
        user.await([&] { return user.shows("combobox", Look::comboArrow); },
                   "The box of the Live pages has no arrow.");
        user.picturesettled("1-started");
        user.loadshow("Tricky Names");
        user.picturesettled("2-loaded");
    }

    static void drag(StoryUser& user)
    {
        user.dragbutton(1, 1);
        user.dragbutton(2, 2);
        user.dragbutton(3, 3);
        user.picturesettled("3-dragged");
        user.dragpad(3, 5);
        user.picturesettled("4-moved-to-an-empty-pad");
        user.dragpad(1, 2);
        user.picturesettled("5-swapped");
        user.dragbutton(4, 2);
        user.picturesettled("6-replaced");
    }

    static void editotherbank(StoryUser& user)
    {
        user.choosebank(3);
        user.dragbutton(5, 7);
        user.editpad(7, "Rock 'n' <Roll> & \"Go\"");
        user.picturesettled("7-bank-3-edited");
    }

    /// A second export of the same name asks first, and No, the right one of its two buttons, leaves the file
    /// alone.
    static void declineoverwrite(StoryUser& user)
    {
        user.dragpad(7, 8);
        user.click("pushButton_2");
        user.awaitbox("The question whether to overwrite", 2);
        user.picture("9-overwrite");
        user.answerbox(2);
        user.expectfile(user.home().page("My Night"), Stories::golden("padspage.xml"));
    }
};

QTEST_GUILESS_MAIN(PadsPageStory)
#include "tst_padspage.moc"
