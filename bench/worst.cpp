// One process for one reader and one file: makes the file, reads it and ends. Its arguments are a reader and
// "worst" or "small".

#include "bounds.h"
#include "devices.h"
#include "keylist.h"
#include "lightshow.h"
#include "mapperwriter.h"
#include "payload.h"
#include "project.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>

#include <cstdio>

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
QByteArray sharedshow(int lines)
{
    QByteArray text = "[page]\nnumber=" + QByteArray::number(qMin(lines, maxLivePages)) + '\n';
    for (int page = 1; page <= qMin(lines, maxLivePages); ++page)
        text += "[page" + QByteArray::number(page) + "]\npageid=1\nnb_buttons=1\n";
    text += "[page1_button1]\ntitle=@" + QByteArray(qMin(lines, maxTitleLength), 't') + '\n';
    for (int key = 0; key < lines / 100; ++key)
        text += 'k' + QByteArray::number(key) + "=v\n";
    return text;
}

/// A show of as many Live Buttons as there can be, with ten lines for each.
QByteArray wideshow(int lines)
{
    QByteArray text = "[page]\nnumber=1\n[page1]\nnb_buttons=" + QByteArray::number(lines / 10) + '\n';
    for (int button = 1; button < lines / 10; ++button) {
        text += "[page1_button" + QByteArray::number(button) + "]\n";
        for (int key = 1; key < 10; ++key)
            text += 'k' + QByteArray::number(key) + "=value\n";
    }
    return text;
}

bool readshow(const QString& path, const QByteArray& text)
{
    return stored(path, text) && readlightshow(path).has_value();
}

bool readfolder(const QTemporaryDir& folder, bool worst)
{
    const QByteArray file = filled("<mapper device=\"APCMINI\">", "<map value=\"A\" action=\"b\"/>",
                                   "</mapper>", worst ? maxXmlSize : 100, maxXmlParts / 3 - 2);
    const int files = worst ? maxMappersScan / file.size() : 1;
    for (int n = 0; n < files; ++n) {
        if (!stored(folder.filePath(QStringLiteral("%1.xml").arg(n)), file))
            return false;
    }
    return readmappers(folder.path(), {{{Key::device(), QStringLiteral("APCMINI")}}}).size() == files;
}

/// A mapping of the longest actions, all of them of signs that are escaped, exported to a layout of as many
/// controls.
bool exportmapping(const QTemporaryDir& folder, bool worst)
{
    const int controls = worst ? maxXmlSize / (maxActionLength + 100) : 1;
    const QByteArray action(worst ? maxActionLength : 10, '\'');
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

bool drop(bool worst)
{
    QMimeData data;
    const QByteArray color("\x01\xff\xff\0\0\0\0\0\0\0\0", 11);
    data.setData(payloadformats().at(0), QByteArray(worst ? maxPayloadSize : 100, '\xff'));
    data.setData(payloadformats().at(1), color.repeated(worst ? maxPayloadSize / color.size() : 1));
    return decodepayload(&data, PayloadBlink + 1).has_value();
}

bool read(const QByteArray& reader, bool worst)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    const int lines = worst ? maxLightShowLines : 100;
    const int bytes = worst ? maxXmlSize : 1000;
    if (reader == "show-shared")
        return readshow(path, sharedshow(lines));
    if (reader == "show-lines")
        return readshow(path, wideshow(lines));
    if (reader == "project-cells")
        return !readproject(filled("<a>", "<key a='' b='' c=''/>", "</a>", bytes, maxXmlParts / 4 - 1))
                    .keys.isEmpty();
    if (reader == "project-name")
        return !readproject(filled("<key name='", "\t", "'/>", bytes, bytes)).keys.isEmpty();
    if (reader == "mappers")
        return readfolder(folder, worst);
    if (reader == "export")
        return exportmapping(folder, worst);
    return reader == "drop" && drop(worst);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc == 3 && read(argv[1], qstrcmp(argv[2], "worst") == 0))
        return 0;
    std::fprintf(stderr, "lumipad_bench_worst: the file was not read\n");
    return 1;
}
