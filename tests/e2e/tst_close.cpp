#include "story.h"

/// The close box asks before filled pads are lost, and only then.
class CloseStory : public QObject
{
    Q_OBJECT

private slots:
    void empty_pads_are_closed_unasked()
    {
        Stories::tell([] {
            StoryUser user;
            user.open();
            user.loadshow("Tricky Names");
            user.requestclose();
            user.awaitend(0);
        });
    }

    void cancel_keeps_window_and_pads()
    {
        Stories::tell([] {
            StoryUser user;
            user.open();
            user.loadshow("Tricky Names");
            user.dragbutton(1, 1);
            user.requestclose();
            user.awaitbox("The question whether to exit", 2);
            user.picture("1-asked");
            // The right one of the two buttons is Cancel.
            user.answerbox(2);
            user.picturesettled("2-cancelled");
            // What was on the pads is still there to export.
            user.filledit("padsname", "Still here");
            user.expectexport("Still here", "close.xml");
            user.closeandconfirm();
        });
    }
};

QTEST_GUILESS_MAIN(CloseStory)
#include "tst_close.moc"
