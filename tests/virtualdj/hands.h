#pragma once

#include "testhome.h"
#include "testwindow.h"
#include "work.h"

#include <QComboBox>
#include <QList>
#include <QTableView>

#include <memory>

/// A user at the real window, and beside it a plain account of what that user has dropped where. The account
/// never looks at the window: it is what the judge compares the written files with.
class Hands
{
public:
    struct LiveButton
    {
        QString name;
        QString color; ///< #rrggbb
    };

    /// Opens the window in \a home, with a show of \a buttons loaded through the dialog.
    Hands(const TestHome& home, QList<LiveButton> buttons);

    // The pads page. Banks (0 to 7) and pads (0 to 15) count from 0.

    void choosesixteen(bool sixteen);
    void namepage(const QString& name);
    void namebank(int bank, const QString& name);
    void cleanpads();
    void droponpad(int button, int bank, int pad);
    /// Drags a pad that holds a Live Button onto another one.
    void dragpad(int bank, int pad, int tobank, int topad);
    void editpad(int bank, int pad, const QString& text);
    void removepad(int bank, int pad);

    // The controller

    /// Chooses the controller as output, in place of the pads page.
    void turntomidi();
    void choosedevice(const QString& name);
    /// Chooses a mapping by its text; empty: the first one, for OS2L alone. \a factory is what its controls
    /// do.
    void choosemapping(const QString& name, const VirtualDj::FactoryActions& factory);
    void choosedefaults(int off, int on);
    void cleancells();
    void droponcell(int button, const VirtualDj::Place& place);
    void dragcell(const VirtualDj::Place& from, const VirtualDj::Place& to);
    // The next four choose from the menu of the first of \a places, with all of them selected.
    void removecells(const QList<VirtualDj::Place>& places);
    void blinkcells(const QList<VirtualDj::Place>& places);
    /// A colour of the palette, by its number from 1, or the default for 0.
    void colorcells(const QList<VirtualDj::Place>& places, bool on, int number);
    /// A colour from the dialog, or the default for an invalid one.
    void colorcells(const QList<VirtualDj::Place>& places, bool on, const QColor& color);
    void toggleswitch(const VirtualDj::Place& place);

    /// The cells that can take a Live Button: those of the device, without the switch.
    QList<VirtualDj::Place> usablecells() const;
    /// Those of them that hold one.
    QList<VirtualDj::Place> filledcells() const;
    bool holdsbutton(int bank, int pad) const { return bool(padat(bank, pad)); }

    /// Clicks Export, answers the message, and gives the written file.
    QByteArray exportpage();
    QByteArray exportmapping();
    /// Where the last mapping was written, and the text that offers it after the next start.
    QString mappingpath() const;
    QString mappingname() const;

    VirtualDj::PageWork page;
    VirtualDj::MappingWork midi;

private:
    const std::optional<VirtualDj::PageWork::Pad>& padat(int bank, int pad) const
    {
        return page.banks.at(static_cast<std::size_t>(bank)).at(static_cast<std::size_t>(pad));
    }
    std::optional<VirtualDj::PageWork::Pad>& padat(int bank, int pad)
    {
        return page.banks.at(static_cast<std::size_t>(bank)).at(static_cast<std::size_t>(pad));
    }
    QModelIndex padindex(int bank, int pad) const;
    QModelIndex cellindex(const VirtualDj::Place& place) const;
    static void drop(const QModelIndex& source, const QModelIndex& target);
    void choosefrommenu(const QList<VirtualDj::Place>& places, const QString& entry,
                        const QString& submenu = QString());
    void emptycell(const VirtualDj::Place& place);
    void call(const char* slot);
    QByteArray exportto(const QString& path);

    const TestHome& m_home;
    QList<LiveButton> m_buttons;
    TestWindow m_window;
    QTableView* m_list;
    QTableView* m_pads;
    QTableView* m_cells;
    bool m_switchlocked = false; ///< the switch takes no drops until the device is chosen anew
};

/// The text \a title as a value of live.ini. Of the control characters it knows tab, line break and 1, which
/// no hexadecimal digit may follow.
QString initext(const QString& title);
