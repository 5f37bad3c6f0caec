#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>

/// One input of a fuzz target: \a size bytes from a file or from the fuzzer, which take this name for
/// granted. Returns 0; an input that shows a fault ends the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Fuzz {

/// The processor time that reading one input may take: what a user waits for the worst file. Checked code
/// is slower.
#if defined(__SANITIZE_ADDRESS__)
constexpr double maxSeconds = 15;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr double maxSeconds = 15;
#else
constexpr double maxSeconds = 3;
#endif
#else
constexpr double maxSeconds = 3;
#endif

/// Far below every bound of the readers; only inputs with less are held against a second implementation.
constexpr int fewElements = 100;

/// Ends the program with the sentence \a claim unless it holds.
inline void require(bool holds, const char* claim)
{
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s\n", claim);
    std::abort();
}

/// What \a read gives, which must take no longer than `maxSeconds`.
template<typename Read>
auto intime(const Read& read)
{
    const std::clock_t begin = std::clock();
    auto result = read();
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    require(seconds <= maxSeconds, "an input is read in time");
    return result;
}

/// The input as bytes that live as long as the input does.
inline QByteArray bytes(const std::uint8_t* data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
}

/// A file with the content \a text in a folder of its own, for readers that take a path. Every object has
/// another name: the toolkit's settings remember what a path held before.
class InputFile
{
public:
    explicit InputFile(const QByteArray& text, const QString& suffix = QStringLiteral("xml"))
    {
        static int number = 0;
        m_path = folder() + QLatin1Char('/') + QString::number(++number) + QLatin1Char('.') + suffix;
        QFile file(m_path);
        require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size(),
                "there is room for the input in the temporary folder");
    }
    ~InputFile() { QFile::remove(m_path); }
    Q_DISABLE_COPY(InputFile)

    QString path() const { return m_path; }
    /// The folder that holds this file alone.
    static QString folder()
    {
        static const QTemporaryDir temporary;
        return temporary.path();
    }

private:
    QString m_path;
};

/// Whether \a value, written into an XML attribute as it stands, is read as what it was by every XML reader.
inline bool survives(const QString& value)
{
    if (QString::fromUtf8(value.toUtf8()) != value)
        return false; // half a surrogate pair
    return std::all_of(value.cbegin(), value.cend(), [](QChar sign) {
        return sign >= QLatin1Char(' ') && sign < QChar(0xFFFD) && sign != QLatin1Char('"') &&
               sign != QLatin1Char('&') && sign != QLatin1Char('<');
    });
}

} // namespace Fuzz
