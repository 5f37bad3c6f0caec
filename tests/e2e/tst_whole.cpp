#include "story.h"

namespace {

const QString deviceName = QStringLiteral("Novation Launchpad S");
const QString mapperName = QStringLiteral("Late Night");

} // namespace

/// A whole evening's work on both sides is exported and saved, loaded again by a new start of the program,
/// and exported and saved again: every file is the same as before.
class WholeStory : public QObject
{
    Q_OBJECT

private slots:
    void projects_loaded_again_give_the_same_files()
    {
        Stories::tell([] {
            StoryUser user;
            user.open();
            user.loadshow("Tricky Names");
            workonpads(user);
            workoncells(user);
            user.closeandconfirm();

            user.open();
            repeatpads(user);
            repeatcells(user);
            user.closeandconfirm();
        });
    }

private:
    static void workonpads(StoryUser& user)
    {
        user.dragbutton(1, 1);
        user.dragbutton(2, 2);
        user.dragbutton(3, 8);
        user.editpad(2, "Dark 'n' quiet");
        user.choosebank(4);
        user.filledit("bankname", "SLOW");
        // No name with a "&": the project keeps it as it is, and could not be read again.
        user.dragbutton(6, 1);
        user.dragbutton(5, 5);
        user.dragpad(1, 3);
        user.filledit("padsname", "Evening");
        user.picturesettled("1-pads");
        user.exportpads();
        user.expectfile(user.home().page("Evening"), Stories::golden("whole-page.xml"));
        user.saveproject("Pads");
    }

    static void workoncells(StoryUser& user)
    {
        user.switchto(Output::Midi);
        user.choosedevice(deviceName);
        user.chooseitem("mididevices", 2, 2);
        user.dragtocell(1, {2, 2});
        user.dragtocell(2, {2, 3});
        user.dragtocell(3, {6, 6});
        user.dragtocell(5, {2, 11});
        user.dragtocell(6, {0, 5});
        // The two change places.
        user.dragcell({2, 2}, {6, 6});
        givecolors(user);
        user.setswitch({9, 9});
        user.filledit("padsname", mapperName);
        user.picturesettled("2-midi");
        user.exportmapper(deviceName, mapperName);
        user.expectfile(user.home().mapper(deviceName, mapperName),
                        Stories::goldenmapper("whole-mapper.xml", user.home()));
        user.saveproject("Midi");
    }

    static void givecolors(StoryUser& user)
    {
        constexpr int palette = 16;
        user.chooseitem("combo_offcolor", 5, palette);
        user.chooseitem("combo_oncolor", 7, palette);
        user.selectcells({{2, 2}, {2, 3}});
        user.setcolor({2, 3}, PadColor::On, 4, palette);
        user.setcolor({2, 3}, PadColor::Off, 1, palette);
        user.selectcells({{6, 6}});
        user.setcolor({6, 6}, PadColor::On, 16, palette);
        user.toggleblink({6, 6});
    }

    static void repeatpads(StoryUser& user)
    {
        user.loadproject("Pads", Output::Pads);
        user.picturesettled("3-pads-loaded");
        const QString page = user.home().page("Evening");
        const QByteArray pagebefore = Stories::spoil(page);
        user.exportpads(Earlier::Replaced);
        user.expectfile(page, pagebefore);
        const QString project = user.home().project("Pads");
        const QByteArray projectbefore = Stories::spoil(project);
        user.saveproject("Pads", Earlier::Replaced);
        user.expectfile(project, projectbefore);
    }

    static void repeatcells(StoryUser& user)
    {
        user.loadproject("Midi", Output::Midi, Earlier::Replaced);
        // Which mapping was chosen is not part of a project. The exported one is now the third choice.
        user.chooseitem("mididevices", 2, 3);
        user.picturesettled("4-midi-loaded");
        const QString mapper = user.home().mapper(deviceName, mapperName);
        const QByteArray mapperbefore = Stories::spoil(mapper);
        user.exportmapper(deviceName, mapperName, Earlier::Replaced);
        user.expectfile(mapper, mapperbefore);
        const QString project = user.home().project("Midi");
        const QByteArray projectbefore = Stories::spoil(project);
        user.saveproject("Midi", Earlier::Replaced);
        user.expectfile(project, projectbefore);
    }
};

QTEST_GUILESS_MAIN(WholeStory)
#include "tst_whole.moc"
