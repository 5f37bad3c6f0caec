// One process for one reader: makes the worst file that it accepts, reads it and ends. Its argument is the
// reader.

#include "bounds.h"
#include "devices.h"
#include "keylist.h"
#include "lightshow.h"
#include "mapperwriter.h"
#include "payload.h"
#include "project.h"
#include "xmlelements.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>

#include <cstdio>

using namespace controller;
using namespace project;
using namespace show;

namespace {

/// As much of a file as \a bytes allow and \a parts of it.
QByteArray filled(const QByteArray& begin, const QByteArray& middle, const QByteArray& end, int bytes,
                  int parts)
{
    return begin + middle.repeated(qMin(parts, (bytes - begin.size() - end.size()) / middle.size())) + end;
}

bool stored(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// A show whose one group has most of the lines, shared by all pages.
QByteArray sharedshow()
{
    QByteArray text = "[page]\nnumber=" + QByteArray::number(maxLivePages) + '\n';
    for (int page = 1; page <= maxLivePages; ++page)
        text += "[page" + QByteArray::number(page) + "]\npageid=1\nnb_buttons=1\n";
    text += "[page1_button1]\ntitle=@" + QByteArray(maxTitleLength, 't') + '\n';
    for (int key = 0; key < 5000; ++key)
        text += 'k' + QByteArray::number(key) + "=v\n";
    return text;
}

/// A show of as many Live Buttons as there can be, with ten lines for each.
QByteArray wideshow()
{
    QByteArray text = "[page]\nnumber=1\n[page1]\nnb_buttons=" + QByteArray::number(maxLiveButtons) + '\n';
    for (int button = 1; button < maxLightShowLines / 10; ++button) {
        text += "[page1_button" + QByteArray::number(button) + "]\n";
        for (int key = 1; key < 10; ++key)
            text += 'k' + QByteArray::number(key) + "=value\n";
    }
    return text;
}

/// A show whose page names the groups of its Live Buttons by a text so long that all of them can just be
/// asked for, among as many other groups as fit whose names begin alike.
QByteArray longidshow()
{
    const QByteArray id(maxShowCharacters / maxLiveButtons - 20, 'p');
    QByteArray text = "[page]\nnumber=1\n[page1]\nnb_buttons=" + QByteArray::number(maxLiveButtons) +
                      "\npageid=" + id + '\n';
    for (int group = 0; text.size() < maxLightShowSize - 2 * id.size(); ++group)
        text += "[page" + id + "_b" + QByteArray::number(group) + "]\nk=v\n";
    return text;
}

bool readshow(const QString& path, const QByteArray& text)
{
    return stored(path, text) && readlightshow(path).has_value();
}

/// As many copies of the mapping \a file, which counts \a counted bytes, as a scan reads.
bool readfolder(const QTemporaryDir& folder, const QByteArray& file, int counted)
{
    const int files = maxMappersScan / counted;
    for (int n = 0; n < files; ++n) {
        if (!stored(folder.filePath(QStringLiteral("%1.xml").arg(n)), file))
            return false;
    }
    return readmappers(folder.path(), {{{Key::device(), QStringLiteral("APCMINI")}}}).size() == files;
}

/// A few large files of as many elements as a file can have.
bool readlargefiles(const QTemporaryDir& folder)
{
    const QByteArray file = filled("<mapper device=\"APCMINI\">", "<map value=\"A\" action=\"b\"/>",
                                   "</mapper>", maxXmlSize, maxXmlParts / 3 - 2);
    return readfolder(folder, file, maxXmlParts * minMapperScanPart);
}

/// Many small files, each of as many elements as the least that a file counts allows.
bool readsmallfiles(const QTemporaryDir& folder)
{
    const int parts = minMapperScan / minMapperScanPart - 4;
    return readfolder(folder,
                      filled("<mapper device=\"APCMINI\">", "<a/>", "</mapper>", minMapperScan, parts),
                      minMapperScan);
}

/// A mapping of the longest actions, all of them of signs that are escaped, exported to a layout of as many
/// controls.
bool exportmapping(const QTemporaryDir& folder)
{
    constexpr int controls = maxXmlSize / (maxActionLength + 100);
    const QByteArray action(maxActionLength, '\'');
    QByteArray layout = "<layout>";
    QByteArray mapping = "<mapper>";
    for (int n = 0; n < controls; ++n) {
        layout += "<slider name=\"" + QByteArray::number(n) + "\"/>";
        mapping += "<map value=\"" + QByteArray::number(n) + "\" action=\"" + action + "\"/>";
    }
    const QString layoutpath = folder.filePath(QStringLiteral("layout.xml"));
    const QString mapperpath = folder.filePath(QStringLiteral("mapping.xml"));
    if (!stored(layoutpath, layout + "</layout>") || !stored(mapperpath, mapping + "</mapper>"))
        return false;
    Mapping mapper;
    mapper.combined = true;
    mapper.keys = getkeynames(layoutpath, mapperpath);
    return mapperxml(mapper).toUtf8().size() > controls * action.size();
}

bool drop()
{
    QMimeData data;
    const QByteArray color("\x01\xff\xff\0\0\0\0\0\0\0\0", 11);
    data.setData(payloadformats().at(0), QByteArray(maxPayloadSize, '\xff'));
    data.setData(payloadformats().at(1), color.repeated(maxPayloadSize / color.size()));
    return decodepayload(&data, PayloadBlink + 1).has_value();
}

/// Without a `project` element its cells are those of a pads page.
bool readcells(const QByteArray& text) { return !std::get<PadCells>(readproject(text).cells).isEmpty(); }

/// A project of as many heads as are accepted, each with the longest texts.
bool readheads()
{
    QByteArray text = "<a>";
    constexpr int texts = 3; // in each head
    const QByteArray name(maxXmlSize / maxProjects / texts - 50, 'n');
    for (int n = 0; n < maxProjects; ++n)
        text += "<project show='" + name + "' showname='" + name + "' export='" + name + "'/>";
    return readproject(text + "</a>").heads.size() == maxProjects;
}

/// A project of as many names of banks as count, in the longest text that holds them, and more that do not.
bool readbanks()
{
    const Project work =
        readproject(filled("<project banks='", QByteArray(4000, 'b') + ',', "'/>", maxXmlSize, maxXmlSize));
    return !work.heads.isEmpty() && work.heads.first().pads.banks.size() == maxBankNames;
}

/// A mapping of texts that comments part.
bool readtexts(const QTemporaryDir& folder)
{
    const QString path = folder.filePath(QStringLiteral("mapping.xml"));
    return stored(path, filled("<mapper>", "text<!--comment-->", "<map value='A' action='b'/></mapper>",
                               maxXmlSize, maxXmlParts - 5)) &&
           readpairs(path, QStringLiteral("map"), Key::value(), Key::action()).size() == 1;
}

bool read(const QByteArray& reader)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    if (reader == "show-shared")
        return readshow(path, sharedshow());
    if (reader == "show-lines")
        return readshow(path, wideshow());
    if (reader == "show-pageid")
        return readshow(path, longidshow());
    if (reader == "project-cells")
        return readcells(filled("<a>", "<key a='' b='' c=''/>", "</a>", maxXmlSize, maxXmlParts / 4 - 1));
    if (reader == "project-name")
        return readcells(filled("<key name='", "\t", "'/>", maxXmlSize, maxXmlSize));
    if (reader == "project-heads")
        return readheads();
    if (reader == "project-banks")
        return readbanks();
    if (reader == "mapping-texts")
        return readtexts(folder);
    if (reader == "mappers")
        return readlargefiles(folder);
    if (reader == "mappers-small")
        return readsmallfiles(folder);
    if (reader == "export")
        return exportmapping(folder);
    return reader == "drop" && drop();
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc == 2 && read(argv[1]))
        return 0;
    std::fprintf(stderr, "lumipad_bench_worst: the file was not read\n");
    return 1;
}
