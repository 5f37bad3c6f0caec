#include "work.h"

#include <tuple>

namespace app {

bool operator==(const Marks& a, const Marks& b) { return a.list == b.list && a.buttons == b.buttons; }

bool operator==(const Work& a, const Work& b)
{
    // Taken apart as a whole: a field that is missing here does not compile, and so cannot escape undo.
    const auto fields = [](const Work& work) {
        const auto& [pads, banks, bank, sixteenPads, device, mapping, palette, offColor, onColor, switchPad,
                     name, marks] = work;
        return std::tie(pads, banks, bank, sixteenPads, device, mapping, palette, offColor, onColor,
                        switchPad, name, marks);
    };
    return fields(a) == fields(b);
}

} // namespace app
