#include "mademapping.h"

namespace {

constexpr int perRow = 8;

QByteArray number(int value) { return QByteArray::number(value); }

QByteArray padname(int control)
{
    return "PAD_" + number(control / perRow + 1) + '_' + number(control % perRow + 1);
}

QByteArray maptext(const QByteArray& name, const QByteArray& action)
{
    return "\t<map value=\"" + name + "\" action=\"" + action + "\"/>\n";
}

/// What the user's own mapping gives a pad to do, and what an export has put around it on every other pad.
QByteArray padaction(int control)
{
    const QByteArray pad = number(control + 1);
    QByteArray own = "var &apos;$mode&apos; 0 ? sampler_pad " + pad +
                     " : var &apos;$mode&apos; 1 ? set &apos;$last&apos; " + pad + " &amp; hot_cue " + pad +
                     " : nothing";
    if (control % 2 == 0)
        return own;
    return "var &apos;$os2l&apos; ? os2l_button &apos;Slow Fade " + pad + "&apos; : " + own;
}

QByteArray ledaction(int control)
{
    const QByteArray pad = number(control + 1);
    QByteArray own = "sampler_loaded " + pad + " ? color &apos;#00ff00&apos; : hot_cue " + pad +
                     " ? color &apos;#ff8000&apos; : off";
    if (control % 2 == 0)
        return own;
    return "var &apos;$os2l&apos; ? os2l_button &apos;Slow Fade " + pad +
           "&apos; ? color &apos;#ffffff&apos; : color 40% &apos;#ffffff&apos; : " + own;
}

} // namespace

QByteArray mademapping(int controls)
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"LAUNCHPADPRO\" "
                      "author=\"Lumipad\" version=\"840\" date=\"5-3-2026\">\n";
    for (int control = 0; control < controls; ++control) {
        text += maptext(padname(control), padaction(control));
        text += maptext("LED_" + padname(control), ledaction(control));
    }
    return text + "</mapper>\n";
}

QByteArray madelayout(int controls)
{
    constexpr int firstLine = 2;
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<layout name=\"MADEPAD\" fullrgb=\"true\" "
                      "top=\"0\" left=\"0\" bottom=\"0\" right=\"0\" faders=\"0\">\n";
    for (int control = 0; control < controls; ++control) {
        text += "\t<pad name=\"" + padname(control) + "\" row=\"" +
                number(firstLine + control / perRow % perRow) + "\" col=\"" +
                number(firstLine + control % perRow) + "\" colorled=\"LED_\"/>\n";
    }
    return text + "</layout>\n";
}
