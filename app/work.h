#pragma once

#include "record.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace app {

/// Which Live Buttons count as used, in both places that keep it.
struct Marks
{
    QList<QList<Record>>
        list;              ///< rows of the Live Buttons list; `check` of their records is what is put back
    QList<Record> buttons; ///< index = `buttonid`; again `check`
};

/// What a person has done for one output, as one value: `MainWindow::takework` takes it, `putwork` puts it
/// back. Copies share their data, so that many of them cost little more than what differs between them. The
/// fields of the other output stay as they are here.
struct Work
{
    QList<QList<Record>> pads; ///< every pad or cell of the output's grid, row by row

    // The pads page
    QStringList banks; ///< names; may be shorter or longer than 8
    int bank = -1;     ///< the one that is shown, from 0
    bool sixteenPads = false;

    // The controller; -1 is no choice
    int device = -1;
    int mapping = -1; ///< among those of the device
    QStringList
        palette; ///< what the default colours are chosen from; a full-RGB device keeps that of another
    int offColor = -1;
    int onColor = -1;
    QList<int> switchPad;

    // What both outputs share. A name without a value stays as it is when the work is put back; marks without
    // one follow the pads.
    std::optional<QString> name; ///< of the page or mapping
    std::optional<Marks> marks;
};

bool operator==(const Marks& a, const Marks& b);
bool operator==(const Work& a, const Work& b);
inline bool operator!=(const Work& a, const Work& b) { return !(a == b); }

} // namespace app
