// The project file: writing what was read and reading it again loses nothing.

#include "project.h"
#include "fuzz.h"

#include <QRegularExpression>

namespace {

/// Whether every value of the project file \a text survives being written without escapes: each start tag has
/// as many attributes as the program writes, and nothing that would be read as something else.
bool survives(const QString& text)
{
    static const QString value = QStringLiteral("[^\"&<\\r\\x{0}\\x{FFFD}-\\x{FFFF}]*+");
    static const QRegularExpression shape(
        QStringLiteral("\\A<\\?xml [^\\n]*\\?>\\n<project (?:(?:[a-z]+=\"%1\" ){6}|(?:[a-z]+=\"%1\" ){8})>\\n"
                       "(?:\\t<key (?:(?:[a-z]+=\"%1\" ){7}|(?:[a-z]+=\"%1\" ){11})/>\\n)*+</project>\\n\\z")
            .arg(value));
    return shape.match(text).hasMatch();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = Fuzz::bytes(data, size);
    const project::Project read = Fuzz::intime([&] { return project::readproject(input); });
    const QString written = project::projectxml(read);
    if (!survives(written))
        return 0;
    const project::Project again = Fuzz::intime([&] { return project::readproject(written.toUtf8()); });
    Fuzz::require(project::projectxml(again) == written, "a project that was written is read as it was");
    return 0;
}
