// The scan of VirtualDJ's folder of mappings: the mapper elements of known devices, in the order of the
// files.

#include "devices.h"
#include "fuzz.h"
#include "xmlelements.h"

#include <QFileInfo>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text = Fuzz::bytes(data, size);
    const Fuzz::InputFile file(text);
    static const QList<Record> devices =
        controller::readdefaultmappers(QStringLiteral(":/mappings/Mappings")).devices;
    Fuzz::require(!devices.isEmpty(), "the devices are there");
    const auto mappers =
        Fuzz::intime([&] { return controller::readmappers(Fuzz::InputFile::folder(), devices); });
    for (const Record& mapper : mappers) {
        Fuzz::require(controller::getdeviceindex(devices, mapper.value(Key::device())) >= 0,
                      "a mapper has a known device");
        Fuzz::require(mapper.value(Key::path()) == file.path(), "a mapper has its file's path");
        Fuzz::require(mapper.value(Key::name()) == QFileInfo(file.path()).baseName(),
                      "a mapper has its file's name");
    }
    QStringList expected;
    const auto elements = elementsof(text, {QStringLiteral("mapper")});
    for (const XmlElement& element : elements)
        if (controller::getdeviceindex(devices, element.attributes.value(Key::device())) >= 0)
            expected.append(element.attributes.value(Key::device()));
    if (expected.size() > 8) // more than a real file has; the scan may stop there
        return 0;
    QStringList found;
    for (const Record& mapper : mappers)
        found.append(mapper.value(Key::device()));
    Fuzz::require(found == expected, "every mapper of a known device is found");
    return 0;
}
