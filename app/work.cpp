#include "work.h"

#include <tuple>

namespace app {

bool operator==(const Marks& a, const Marks& b) { return a.list == b.list && a.buttons == b.buttons; }

bool operator==(const Work& a, const Work& b)
{
    const auto fields = [](const Work& work) {
        return std::tie(work.pads, work.banks, work.bank, work.sixteenPads, work.device, work.mapping,
                        work.palette, work.offColor, work.onColor, work.switchPad, work.name, work.marks);
    };
    return fields(a) == fields(b);
}

} // namespace app
