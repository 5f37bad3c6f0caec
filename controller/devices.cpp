#include "devices.h"

#include "readfile.h"
#include "storedtexts.h"
#include "xmlelements.h"

#include <QDir>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>

namespace controller {

namespace {

/// The XML files of \a folder, sorted by the code units of their lower-cased names.
QStringList xmlfiles(const QString& folder)
{
    QStringList names = QDir(folder).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Unsorted);
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        const int order = QString::compare(a.toLower(), b.toLower());
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

Record devicerecord(const Record& layout, const QString& name, const QString& path)
{
    Record device{{Key::device(), layout.value(Key::name())},
                  {Key::name(), name},
                  {Key::path(), path},
                  {Key::off(), layout.value(QStringLiteral("coloroff"))},
                  {Key::on(), layout.value(QStringLiteral("coloron"))}};
    for (const QString& key :
         {Key::fullRgb(), Key::colors(), Key::top(), Key::left(), Key::right(), Key::bottom(), Key::faders()})
        device.insert(key, layout.value(key));
    return device;
}

Record mapperrecord(const QString& device, const QString& name, const QString& path)
{
    return {{Key::device(), device}, {Key::name(), name}, {Key::path(), path}};
}

/// Whether \a xml can name one of \a devices. In all encodings but UTF-16 their ids are plain bytes, unless
/// they are written as references.
bool canname(const QByteArray& xml, const QList<Record>& devices)
{
    return xml.startsWith("\xFE\xFF") || xml.startsWith("\xFF\xFE") || xml.contains("&#") ||
           std::any_of(devices.cbegin(), devices.cend(), [&xml](const Record& device) {
               return xml.contains(device.value(Key::device()).toUtf8());
           });
}

/// The ids of \a devices that the mapping file \a xml is for.
QStringList deviceids(const QByteArray& xml, const QList<Record>& devices)
{
    // Parsing takes by far the most of a scan, and most mappings are for other controllers.
    if (!canname(xml, devices))
        return {};
    QStringList ids;
    const auto mappers = elementsof(xml, {QStringLiteral("mapper")}).mid(0, maxMappersPerFile);
    for (const XmlElement& mapper : mappers) {
        const QString device = mapper.attributes.value(Key::device());
        if (getdeviceindex(devices, device) >= 0)
            ids.append(device);
    }
    return ids;
}

/// The attributes of every `layout` element of the file \a path. The layouts are the program's own, and every
/// start waits for them; read as a stream they take a third of the time that document trees of them do.
QList<Record> layoutsof(const QString& path)
{
    const QString tag = QStringLiteral("layout");
    const auto xml = readregularfile(path, maxXmlSize);
    // Half the files are mappings.
    if (!xml || !xml->contains("<layout"))
        return {};
    QList<Record> layouts;
    QXmlStreamReader reader(*xml);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.qualifiedName() != tag)
            continue;
        Record layout;
        const auto attributes = reader.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            layout.insert(attribute.qualifiedName().toString(), attribute.value().toString());
        layouts.append(layout);
    }
    return reader.hasError() ? QList<Record>() : layouts;
}

} // namespace

DeviceLists readdefaultmappers(const QString& folder)
{
    DeviceLists lists;
    const QStringList files = xmlfiles(folder);
    for (const QString& file : files) {
        const QString path = folder + QLatin1Char('/') + file;
        const QString name = QFileInfo(file).baseName();
        const QString factorypath = folder + QLatin1Char('/') + name + QStringLiteral(" mapping.xml");
        const QList<Record> layouts = layoutsof(path);
        for (const Record& layout : layouts) {
            const Record device = devicerecord(layout, name, path);
            const QString id = device.value(Key::device());
            lists.devices.append(device);
            lists.mappers.append(mapperrecord(id, Stored::simpleMapping(), factorypath));
            lists.mappers.append(mapperrecord(id, Stored::factoryMapping(name), factorypath));
        }
    }
    return lists;
}

QList<Record> readmappers(const QString& folder, const QList<Record>& devices)
{
    QList<Record> mappers;
    const QStringList files = xmlfiles(folder);
    int scanned = 0;
    for (const QString& file : files) {
        const QString path = folder + QLatin1Char('/') + file;
        const auto xml = readregularfile(path, std::min(maxXmlSize, maxMappersScan - scanned));
        scanned += std::max(xml ? static_cast<int>(xml->size()) : 0, minMapperScan);
        if (scanned > maxMappersScan)
            break;
        const QStringList ids = xml ? deviceids(*xml, devices) : QStringList();
        for (const QString& id : ids)
            mappers.append(mapperrecord(id, QFileInfo(file).baseName(), path));
    }
    return mappers;
}

int getdeviceindex(const QList<Record>& devices, const QString& device)
{
    for (int i = 0; i < devices.size(); ++i) {
        if (devices.at(i).value(Key::device()) == device)
            return i;
    }
    return -1;
}

int getmapperid(const QList<Record>& mappers, const QString& device, int n)
{
    if (n < 0)
        return -1;
    for (int i = 0; i < mappers.size(); ++i) {
        if (mappers.at(i).value(Key::device()) == device && n-- == 0)
            return i;
    }
    return -1;
}

QStringList palette(const Record& device) { return device.value(Key::colors()).split(QLatin1Char(',')); }

QString palettecolor(const Record& device, const QString& key)
{
    return palette(device).value(device.value(key).toInt());
}

LedColors ledcolors(const Record& device)
{
    const QString fullrgb = device.value(Key::fullRgb());
    if (fullrgb == QLatin1String("true"))
        return LedColors::Any;
    return fullrgb == QLatin1String("false") ? LedColors::Palette : LedColors::Unstated;
}

} // namespace controller
