#include "story.h"

/// Holding Shift asks for a move instead of a copy.
class ShiftDragStory : public QObject
{
    Q_OBJECT

private slots:
    void pads_dragged_with_shift_arrive_and_nothing_is_lost()
    {
        Stories::tell([] {
            StoryUser user;
            user.open();
            user.loadshow("Tricky Names");
            user.dragbutton(1, 1);
            user.dragbutton(2, 2, "Shift");
            user.dragbutton(3, 3);
            user.picturesettled("1-dragged");
            user.dragpad(1, 6, "Shift");
            user.picturesettled("2-moved-to-an-empty-pad");
            user.dragpad(6, 3, "Shift");
            user.picturesettled("3-swapped");
            user.filledit("padsname", "Shift");
            user.expectexport("Shift", "shiftdrag.xml");
            user.closeandconfirm();
        });
    }
};

QTEST_GUILESS_MAIN(ShiftDragStory)
#include "tst_shiftdrag.moc"
